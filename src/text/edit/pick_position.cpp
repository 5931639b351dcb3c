#include "text/edit/pick_position.h"

#include "frame/protocol/idle.h"
#include "frame/window/busy.h"
#include "frame/window/status.h"
#include "platform/display/input_codes.h"
#include "platform/display/intuition.h"
#include "requesters/requester_frame.h"
#include "text/edit/cursor_placing.h"
#include "text/record/text_record.h"
#include "frame/window/held_drawing.h"
#include "text/render/render.h"

namespace {

constexpr int Undecided = 0;
constexpr int Picked = 1;
constexpr int Refused = -1;

// What one message of the window decides.
int ServePickMessage(TextRecord* record, const IntuiMessage& event)
{
    switch (event.Class) {
    case IDCMP_NEWSIZE:
        RelayoutText(record);
        return Undecided;
    case IDCMP_GADGETDOWN:
        WorkTextScroller(record, static_cast<Gadget*>(event.IAddress));
        return Undecided;
    case IDCMP_MOUSEBUTTONS:
        if (event.Code == SELECTDOWN) {
            const MouseCell cell = CellOfPosition(record, event.MouseX, event.MouseY);
            DrawCursor(record, false);
            SetCursorOnRow(record, cell.Column, cell.Row);
            DrawCursor(record, true);
            record->MouseDown |= 1;
            return Picked;
        }
        return event.Code == MENUUP ? Refused : Undecided;
    case IDCMP_RAWKEY:
        return (event.Code & IECODE_UP_PREFIX) ? Undecided : Refused;
    case IDCMP_MENUPICK:
    case IDCMP_CLOSEWINDOW:
        return Refused;
    default:
        return Undecided;
    }
}

} // namespace

int PickPosition(TextRecord* record, const char* prompt)
{
    int levels = 0;
    while (record->BusyDepth > 0) {
        UnlockTextWindow(record);
        ++levels;
    }
    // The user picks in the text as it stands, and scrolls it live.
    const int16_t held = SuspendHeldDrawing(record);
    Window* window = record->Window;
    ClearPointer(window);
    if (prompt[0] != '\0')
        SetStatusText(record, prompt);
    ClearMenuStrip(window);
    DrawCursor(record, true);

    // After the pick the loop waits for the button to come up as well, so
    // that the release reaches no requester or command of the macro.
    int result = Undecided;
    const uint32_t signal = 1u << window->UserPort->mp_SigBit;
    auto finished = [&] { return result == Refused || (result == Picked && !(record->MouseDown & 1)); };
    while (!finished() && (record->TextState & WindowOpen)) {
        WaitInLoop(signal);
        while (!finished()) {
            Message* message = GetMsg(window->UserPort);
            if (!message)
                break;
            const IntuiMessage event = *reinterpret_cast<IntuiMessage*>(message);
            ReplyMsg(message);
            if (result == Undecided)
                result = ServePickMessage(record, event);
            else if (event.Class == IDCMP_MOUSEBUTTONS && event.Code == SELECTUP)
                record->MouseDown &= ~1u;
        }
    }

    DrainWindowPort(window);
    if (record->MenuStrip)
        SetMenuStrip(window, record->MenuStrip);
    while (levels-- > 0)
        LockTextWindow(record);
    ResumeHeldDrawing(record, held);
    return result == Picked ? Picked : Refused;
}

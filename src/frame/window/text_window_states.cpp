#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "frame/window/busy.h"
#include "frame/window/refresh.h"
#include "frame/window/status.h"
#include "frame/window/text_window.h"
#include "platform/display/intuition.h"
#include "platform/exec/memory.h"
#include "text/lines/edit_line.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

// The text window's box as the user left it, for the next opening.
static void KeepWindowBox(TextRecord* record)
{
    const Window* window = record->Window;
    record->WindowLeft = window->LeftEdge;
    record->WindowTop = window->TopEdge;
    record->WindowWidth = window->Width;
    record->WindowHeight = window->Height;
}

int RaiseTextWindow(TextRecord* record)
{
    if (record->TextState & WindowOpen) {
        WindowToFront(record->Window);
        ActivateWindow(record->Window);
        return 1;
    }
    FlushEditLine(record);
    Window* old = record->Window;
    if (!OpenTextWindow(record)) {
        record->Window = old;
        DisplayBeep(nullptr);
        return 0;
    }
    if (old) {
        // Where the user dragged the title window is where it comes back.
        record->IconLeft = old->LeftEdge;
        record->IconTop = old->TopEdge;
        CloseWindow(old);
        SendToMain(record, CMD_SCREEN_RELEASE, 0);
    }
    record->TextState = WindowOpen;
    LoadEditLine(record, LineIndex{record->CursorLine}, ColumnIndex{record->CursorColumn});
    RefreshAll(record);
    DrawCursor(record, true);
    return 1;
}

bool EnsureWindow(TextRecord* record)
{
    if (record->TextState & WindowOpen)
        return true;
    if (record->TextState & (Iconified | Hidden))
        return RaiseTextWindow(record) != 0;
    return false;
}

void IconifyText(TextRecord* record)
{
    if (!(record->TextState & WindowOpen))
        return;
    FlushEditLine(record);
    KeepWindowBox(record);
    auto* title = reinterpret_cast<NewWindow*>(
        SendToMainWait(record, CMD_GET_ICON_WINDOW, reinterpret_cast<intptr_t>(record)));
    if (!title)
        return;
    Window* icon = OpenWindow(title);
    if (!icon) {
        FreeVec(title);
        return;
    }
    // The screen is used by the title window before the text window gives
    // it up, so it stays held throughout.
    SendToMain(record, CMD_SCREEN_USE_ICON, 0);
    CloseTextWindow(record);
    record->IconLeft = title->LeftEdge;
    record->IconTop = title->TopEdge;
    record->TextState = Iconified;
    record->Window = icon;
    icon->UserData = record;
    ModifyIDCMP(icon, TitleWindowIDCMP);
    UpdateVisibleSize(record);
    SetStatusText(record, record->FileName);
    ClearBusyPointer(record);
    ActivateWindow(icon);
    FreeVec(title);
}

void HideText(TextRecord* record)
{
    if (record->TextState & Hidden)
        return;
    if (record->TextState & WindowOpen) {
        FlushEditLine(record);
        KeepWindowBox(record);
        CloseTextWindow(record);
    } else if (record->TextState & Iconified) {
        CloseWindow(record->Window);
        SendToMain(record, CMD_SCREEN_RELEASE, 0);
    }
    record->Window = nullptr;
    record->TextState = Hidden;
}

#include "requesters/requester_frame.h"

#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/idle.h"
#include "frame/protocol/send.h"
#include "frame/window/busy.h"
#include "frame/window/report.h"
#include "platform/display/requester_window.h"
#include "platform/locale/latin1.h"
#include "platform/utility/strings.h"
#include "requesters/requester_layout.h"
#include "services/builtin_messages.h"
#include "services/messages.h"
#include "text/record/settings.h"
#include "text/record/text_record.h"
#include "frame/window/held_drawing.h"
#include "text/render/render.h"

#include <atomic>
#include <cstring>
#include <string>

namespace {

constexpr uint16_t RawEnter = 0x43;
constexpr uint16_t RawReturn = 0x44;
constexpr uint16_t RawEsc = 0x45;
constexpr uint16_t RawHelp = 0x5F;
constexpr const char* ProgramName = "Tavrel";

RequesterPlace PlaceFromSettings()
{
    switch (Settings.Flags & RequesterPositionMask) {
    case FollowMouse:
        return RequesterPlace::FollowMouse;
    case ScreenTopLeft:
        return RequesterPlace::ScreenTopLeft;
    case WindowCenter:
        return RequesterPlace::WindowCenter;
    default:
        return RequesterPlace::ScreenCenter;
    }
}

std::atomic<HelpNodeShow> InstalledHelp{nullptr};
std::atomic<ScrollerHandler> InstalledScrollers{nullptr};
std::atomic<RelayoutHandler> InstalledRelayout{nullptr};

void ShowHelpNode(TextRecord* record, const char* node)
{
    if (HelpNodeShow show = InstalledHelp.load())
        show(record, node);
}

// The name of a list row that shows a function's usage: up to the first
// '(' or blank.
void FunctionOfRow(const std::string& row, char* scratch, size_t size)
{
    std::string text = std::string(GetString(MessageId{150})) + ' ' + row.substr(0, row.find_first_of("( "));
    Strlcpy(scratch, text.c_str(), size);
}

// The Help key. True when it ends the loop (with the result 0).
bool HelpKey(TextRecord* record, RequesterWindow* requester)
{
    if (!record)
        return false;
    if (record->MacroScratch[0] == '\0') {
        if (record->HelpCommandId == -1) {
            const RequesterGadget* list = nullptr;
            std::string row;
            {
                std::lock_guard<std::mutex> hold(requester->Lock);
                list = FindRequesterGadget(requester->Layout, ListGadget);
                if (list && list->Number >= 0 && list->Number < static_cast<int>(list->Rows.size()))
                    row = list->Rows[static_cast<size_t>(list->Number)];
            }
            if (!row.empty())
                FunctionOfRow(row, record->MacroScratch, sizeof record->MacroScratch);
        } else if (record->HelpCommandId > 0) {
            ShowHelpNode(record, GetBuiltInString(MessageId{record->HelpCommandId}));
            return false;
        } else {
            return false;
        }
    }
    bool ends = false;
    const char* function = GetString(MessageId{150});
    size_t prefix = std::strlen(function);
    if (std::strncmp(record->MacroScratch, function, prefix) == 0) {
        std::string rest = record->MacroScratch + prefix;
        rest.erase(0, rest.find_first_not_of(' '));
        ShowHelpNode(record, rest.substr(0, rest.find(' ')).c_str());
        ends = record->HelpCommandId >= 0;
    }
    record->MacroScratch[0] = '\0';
    return ends;
}

} // namespace

void SetHelpNodeShow(HelpNodeShow show)
{
    InstalledHelp.store(show);
}

void SetScrollerHandler(ScrollerHandler handler)
{
    InstalledScrollers.store(handler);
}

void SetRelayoutHandler(RelayoutHandler handler)
{
    InstalledRelayout.store(handler);
}

void RelayoutText(TextRecord* record)
{
    ClearTextArea(record);
    if (RelayoutHandler handler = InstalledRelayout.load())
        handler(record);
}

bool OpenRequesterFrame(TextRecord* record, RequesterWindow* requester, bool reportNoScreen)
{
    LockTextWindow(record);
    if (!Globals.Screen) {
        if (reportNoScreen)
            ReportAppErrorId(MessageId{239});
        UnlockTextWindow(record);
        return false;
    }
    if (record && record->MainPort)
        SendToMain(record, CMD_CLOSE_SEARCH, 0);
    if (requester->Title.empty())
        requester->Title = record ? FileNameToLatin1(record->FileName) : ProgramName;
    requester->Place = PlaceFromSettings();
    requester->RefWindow = record && (record->TextState & WindowOpen) ? record->Window : nullptr;
    if (!OpenRequesterWindow(requester)) {
        UnlockTextWindow(record);
        return false;
    }
    return true;
}

void CloseRequesterFrame(TextRecord* record, RequesterWindow* requester)
{
    CloseRequesterWindow(requester);
    UnlockTextWindow(record);
}

void WorkTextScroller(TextRecord* record, Gadget* gadget)
{
    if (ScrollerHandler handler = InstalledScrollers.load())
        handler(record, gadget);
}

void ServeTextWindow(TextRecord* record)
{
    Window* window = record ? record->Window : nullptr;
    if (!window)
        return;
    bool served = false;
    while (Message* message = GetMsg(window->UserPort)) {
        IntuiMessage event = *reinterpret_cast<IntuiMessage*>(message);
        ReplyMsg(message);
        if (!(record->TextState & WindowOpen))
            continue;
        switch (event.Class) {
        case IDCMP_NEWSIZE:
            RelayoutText(record);
            break;
        case IDCMP_GADGETDOWN:
            WorkTextScroller(record, static_cast<Gadget*>(event.IAddress));
            break;
        case IDCMP_CLOSEWINDOW:
            // A text can't close while its requester waits for an answer.
            DisplayBeep(nullptr);
            break;
        default:
            continue;
        }
        served = true;
    }
    if (served)
        DrawCursor(record, true);
}

int RunRequester(TextRecord* record, RequesterWindow* requester, int* rawKey)
{
    int result = RequestClosed;
    bool finished = false;
    uint32_t requesterSignal = 1u << requester->UserPort->mp_SigBit;
    // The user sees the text as it stands now, and it stays live while he
    // answers, even in the middle of a macro command.
    const int16_t held = record ? SuspendHeldDrawing(record) : 0;
    while (!finished) {
        Window* textWindow = record ? record->Window : nullptr;
        uint32_t windowSignal = textWindow ? 1u << textWindow->UserPort->mp_SigBit : 0;
        uint32_t signals = WaitInLoop(requesterSignal | windowSignal);
        if (signals & windowSignal)
            ServeTextWindow(record);
        if (!(signals & requesterSignal))
            continue;
        while (Message* message = GetMsg(requester->UserPort)) {
            IntuiMessage event = *reinterpret_cast<IntuiMessage*>(message);
            ReplyMsg(message);
            switch (event.Class) {
            case IDCMP_CLOSEWINDOW:
                result = RequestClosed;
                finished = true;
                break;
            case IDCMP_GADGETUP:
                result = event.Code;
                finished = true;
                break;
            case IDCMP_MENUPICK:
                result = RequestMenuPick | event.Code;
                finished = true;
                break;
            case IDCMP_RAWKEY:
                if (event.Code == RawEnter || event.Code == RawReturn) {
                    result = RequestReturn;
                    finished = true;
                } else if (event.Code == RawEsc) {
                    result = RequestClosed;
                    finished = true;
                } else if (event.Code == RawHelp) {
                    if (HelpKey(record, requester)) {
                        result = 0;
                        finished = true;
                    }
                } else if (rawKey && !(event.Code & IECODE_UP_PREFIX)) {
                    *rawKey = event.Code;
                    result = RequestKey;
                    finished = true;
                }
                break;
            case IDCMP_MOUSEBUTTONS:
                if ((event.Code & 0x7F) != IECODE_LBUTTON) {
                    result = RequestClosed;
                    finished = true;
                }
                break;
            default:
                break;
            }
        }
    }
    if (record)
        ResumeHeldDrawing(record, held);
    return result;
}

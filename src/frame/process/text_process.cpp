#include "frame/process/text_process.h"

#include "config/menu_picks.h"
#include "files/load_text.h"
#include "frame/process/screen.h"
#include "frame/process/start_text.h"
#include "frame/process/text_drops.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/command_strings.h"
#include "frame/protocol/idle.h"
#include "frame/protocol/send.h"
#include "frame/window/report.h"
#include "frame/window/status.h"
#include "frame/window/text_window.h"
#include "macro/variables.h"
#include "platform/display/intuition.h"
#include "platform/display/menus.h"
#include "platform/exec/memory.h"
#include "platform/exec/tasks.h"
#include "requesters/no_memory.h"
#include "services/messages.h"
#include "services/rexx/arexx_command.h"
#include "services/rexx/text_host_port.h"
#include "text/edit/ask_before_close.h"
#include "text/edit/viewport.h"
#include "text/input/key_press.h"
#include "text/input/mouse.h"
#include "text/input/scroller_gadgets.h"
#include "text/record/create_text_record.h"
#include "text/record/settings.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <algorithm>
#include <cstring>
#include <mutex>

namespace {

struct StartOrder {
    char* FileName = nullptr;
    MsgPort* MainPort = nullptr;
    TextRecord* Asker = nullptr;
    uint32_t OpeningNumber = 0;
    bool BeforeScreen = false;
};

// Set while this text reads its file ahead of its window; see
// ReportTextShortage.
thread_local bool ReadingAhead = false;

StartOrder TakeStartMessage(MsgPort* ownPort)
{
    Message* received;
    while (!(received = GetMsg(ownPort)))
        WaitPort(ownPort);
    auto* start = reinterpret_cast<CommandMessage*>(received);
    StartOrder order{start->FileName, start->MainPortArg, start->Sender,
        static_cast<uint32_t>(start->Spare), start->Argument == StartBeforeScreen};
    FreeVec(start);
    return order;
}

// The new text opens in the directory of the text that asked for it. That
// text may have ended since; it is still in the list only while its record
// lives.
TextRecord* CreateRecordNear(TextRecord* asker)
{
    char directory[FileDirectorySize];
    bool found = false;
    if (asker) {
        ObtainSemaphoreShared(&Globals.TextListLock);
        if (ContainsText(&Globals.Texts, asker)) {
            std::memcpy(directory, asker->FileDirectory, sizeof directory);
            found = true;
        }
        ReleaseSemaphore(&Globals.TextListLock);
    }
    std::lock_guard<std::mutex> hold(ScreenSettingsLock());
    return CreateTextRecord(found ? directory : nullptr);
}

// A text started before main had a screen read its file while the display
// came up. Its record took the window's box before main cut the settings'
// box down to the screen; its own box is cut the same way here.
void FitBoxToScreen(TextRecord* record)
{
    std::lock_guard<std::mutex> hold(ScreenSettingsLock());
    record->WindowWidth = std::min<int16_t>(record->WindowWidth, static_cast<int16_t>(Settings.ScreenWidth));
    record->WindowHeight = std::min<int16_t>(record->WindowHeight, static_cast<int16_t>(Settings.ScreenHeight));
}

bool HasFileName(const StartOrder& order)
{
    return order.FileName && *order.FileName;
}

// The texts of the command line read their files before anything waits
// for main or the display, which are still starting up. A read that meets
// anything a load reports gives up quietly; the load in the window then
// reports it.
bool ReadStartFile(TextRecord* record, const StartOrder& order)
{
    if (!order.BeforeScreen || !HasFileName(order))
        return false;
    ReadingAhead = true;
    const bool read = ReadFileAhead(record, order.FileName);
    ReadingAhead = false;
    return read;
}

// One window message, handled on a copy: the original is replied at once
// so that the display side never waits for editing.
int HandleWindowMessage(TextRecord* record, const IntuiMessage& event)
{
    record->MouseX = event.MouseX;
    record->MouseY = event.MouseY;
    record->LastQualifier = event.Qualifier;
    record->LastCode = event.Code;
    if (event.Class == IDCMP_RAWKEY && (event.Code & IECODE_UP_PREFIX))
        return 0;
    if (event.Class == IDCMP_MOUSEMOVE && record->MouseDown == 0)
        return 0;
    if ((record->TextState & WindowOpen) && event.Class != IDCMP_NEWSIZE)
        DrawCursor(record, false);
    int leave = 0;
    bool updateTitle = true;
    switch (event.Class) {
    case IDCMP_CLOSEWINDOW:
        if (record->BusyDepth == 0) {
            leave = LeaveAsk;
            updateTitle = false;
        } else {
            DisplayBeep(nullptr);
        }
        break;
    case IDCMP_RAWKEY: {
        KeyOutcome outcome = HandleRawKey(record, event);
        leave = outcome.Leave;
        updateTitle = outcome.UpdateTitle;
        break;
    }
    case IDCMP_MOUSEBUTTONS:
        HandleMouseButtons(record, event);
        break;
    case IDCMP_GADGETDOWN:
        if (record->BusyDepth > 0)
            DisplayBeep(nullptr);
        else
            HandleScrollerGadget(record, static_cast<Gadget*>(event.IAddress));
        break;
    case IDCMP_MOUSEMOVE:
        HandleMouseMove(record, event);
        updateTitle = false;
        break;
    case IDCMP_NEWSIZE:
        ClearTextArea(record);
        ResizeViewport(record);
        updateTitle = false;
        break;
    case IDCMP_ACTIVEWINDOW:
        SendToMain(record, CMD_TEXT_ACTIVE, 0);
        break;
    case IDCMP_MENUPICK:
        leave = HandleMenuPick(record, event);
        break;
    case IDCMP_MENUHELP:
        HandleMenuHelp(record, event);
        updateTitle = false;
        break;
    default:
        break;
    }
    if (updateTitle)
        UpdateStatusTitle(record);
    return leave;
}

int DrainWindow(TextRecord* record, MsgPort* port)
{
    int leave = 0;
    while (Message* received = GetMsg(port)) {
        IntuiMessage event = *reinterpret_cast<IntuiMessage*>(received);
        ReplyMsg(received);
        leave |= HandleWindowMessage(record, event);
    }
    return leave;
}

int RunLoop(TextRecord* record)
{
    int leave = 0;
    for (;;) {
        ClearBusyPointer(record);
        MsgPort* windowPort = record->Window ? record->Window->UserPort : nullptr;
        uint32_t windowSignal = windowPort ? PortSignal(windowPort) : 0;
        uint32_t commandSignal = PortSignal(record->CommandPort);
        uint32_t hostSignal = record->HostPort ? PortSignal(record->HostPort) : 0;
        uint32_t dropSignal = record->AppWindowPort ? PortSignal(record->AppWindowPort) : 0;
        uint32_t signals = WaitInLoop(commandSignal | windowSignal | hostSignal | dropSignal);
        if (signals & windowSignal) {
            leave |= DrainWindow(record, windowPort);
            record->LastQualifier = 0;
        }
        if (signals & dropSignal)
            DrainDrops(record);
        if (signals & commandSignal)
            leave |= ReadCommands(record, record->CommandPort);
        if (signals & hostSignal) {
            while (Message* message = GetMsg(record->HostPort))
                RunArexxCommand(record, reinterpret_cast<RexxMsg*>(message));
        }
        DrawCursor(record, true);
        if (leave == 0)
            continue;
        if (leave == LeaveNow || AskBeforeClose(record))
            return leave;
        leave = 0;
    }
}

// Main sends to a text only while it is in TextList, so once CMD_REMOVE_TEXT
// is answered nothing new arrives; what came before is dropped here.
void DrainCommandPort(TextRecord* record)
{
    while (Message* message = GetMsg(record->CommandPort))
        FreeCommandMessage(reinterpret_cast<CommandMessage*>(message));
}

void Unregister(TextRecord* record)
{
    SendToMainWait(record, CMD_REMOVE_TEXT, reinterpret_cast<intptr_t>(record));
    DrainCommandPort(record);
    FreeMenus(record->MenuStrip);
    record->MenuStrip = nullptr;
    CloseFont(record->TextFont);
    record->TextFont = nullptr;
    FreeMacroVariables(record);
    FreeTextRecord(record);
}

} // namespace

void ReportTextShortage(TextRecord* record)
{
    if (!ReadingAhead)
        NoMemoryRequester(record);
}

void TextProcessEntry()
{
    Task* self = FindTask(nullptr);
    StartOrder order = TakeStartMessage(self->pr_MsgPort);

    TextRecord* record = CreateRecordNear(order.Asker);
    if (!record) {
        ReportAppErrorId(MessageId::NotEnoughMemory);
        FreeVec(order.FileName);
        SendLastMessage(order.MainPort, 0);
        return;
    }
    const bool readAhead = ReadStartFile(record, order);
    // A font that will not open is no failure: the window's own font serves.
    OpenTextFont(record, record->FontName, record->FontSize);
    record->OwnerProcess = self;
    EnsureHostPort(record);
    record->ReplyPort = self->pr_MsgPort;
    record->MainPort = order.MainPort;
    record->OpeningNumber = order.OpeningNumber;
    SendToMainWait(record, CMD_ADD_TEXT, reinterpret_cast<intptr_t>(record));
    // Main serves its port only once it holds the screen.
    if (order.BeforeScreen)
        FitBoxToScreen(record);

    record->MenuStrip = reinterpret_cast<Menu*>(SendToMainWait(record, CMD_BUILD_MENU, 0));
    if (!record->MenuStrip) {
        ReportAppErrorId(MessageId::ErrorCreatingMenus);
        CloseTextHostPort(record);
        Unregister(record);
        FreeVec(order.FileName);
        SendLastMessage(order.MainPort, 0);
        return;
    }

    int leave = 0;
    if (OpenTextWindow(record)) {
        if (readAhead)
            ShowFileReadAhead(record, order.FileName);
        else if (HasFileName(order))
            LoadTextChecked(record, order.FileName, false);
        SendToMain(record, CMD_RAISE_TOOLBARS, 0);
        leave = RunLoop(record);
        LeaveLoop();
    }

    SendToMainWait(record, CMD_DROP_BOOKMARKS, 0);
    CloseTextWindow(record);
    if (record->AppWindowPort) {
        while (Message* message = GetMsg(record->AppWindowPort))
            ReplyMsg(message);
        DeleteMsgPort(record->AppWindowPort);
        record->AppWindowPort = nullptr;
    }
    CloseTextHostPort(record);
    Unregister(record);
    FreeVec(order.FileName);
    SendLastMessage(order.MainPort, leave);
}

#include "frame/process/main_process.h"

#include "builtins/builtin_table.h"
#include "config/key_map.h"
#include "config/menu_table.h"
#include "config/prefs_path.h"
#include "config/read_preferences.h"
#include "config/toolbars.h"
#include "frame/process/command_line.h"
#include "frame/process/dispatch.h"
#include "frame/process/screen.h"
#include "frame/process/search_window.h"
#include "frame/process/start_text.h"
#include "frame/process/text_process.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/idle.h"
#include "frame/window/report.h"
#include "macro/direct_mode.h"
#include "macro/user_functions.h"
#include "platform/dos/paths.h"
#include "platform/dos/volumes.h"
#include "platform/exec/ports.h"
#include "platform/exec/tasks.h"
#include "platform/utility/strings.h"
#include "requesters/requester_frame.h"
#include "services/messages.h"
#include "services/rexx/start_scripts.h"
#include "text/edit/viewport.h"
#include "text/input/scroller_gadgets.h"
#include "text/record/no_memory_report.h"
#include "text/record/settings.h"

#include <optional>
#include <string>
#include <unistd.h>

namespace {

void SetDefaultFileName()
{
    char* name = Globals.DefaultFileName;
    if (!getcwd(name, DefaultFileNameSize))
        name[0] = 0;
    AddPart(name, GetString(MessageId::NoName), DefaultFileNameSize);
}

// Serves the command port, then the search window, until no text is
// left. Everything a pass brought is served before the count is looked
// at; the window's signal is taken anew each pass, as it comes and goes.
void RunMainLoop()
{
    uint32_t commandSignal = PortSignal(Globals.MainPort);
    while (Globals.TextCount.load() > 0) {
        uint32_t searchSignal = SearchWindowSignal();
        uint32_t signals = WaitInLoop(commandSignal | searchSignal);
        if (signals & commandSignal) {
            while (Message* message = GetMsg(Globals.MainPort))
                DispatchCommand(reinterpret_cast<CommandMessage*>(message));
        }
        if (signals & searchSignal)
            HandleSearchWindow();
    }
    CloseSearchWindow();
    LeaveLoop();
}

// The preferences file of PrefsPath, before any text exists; a fault is
// told and the program goes on with what was read.
void ReadStartPreferences()
{
    char path[JoinedPathSize];
    PrefsFilePath(path);
    if (ReadPreferences(&Settings, path) != 0)
        ReportAppErrorId(MessageId{105});
}

} // namespace

int MainProcess(const std::vector<std::string>& arguments)
{
    ResetAppGlobals();
    InitKeyMap(&GlobalKeyMap);
    InitToolbars();
    InstallBuiltinFunctions();
    InstallFunctionList();
    // The line table and the line buffers report through this hook, as
    // they stand below the requesters.
    SetNoMemoryReport(ReportTextShortage);
    // A requester's loop works the scrollers of the text behind it.
    SetScrollerHandler(HandleScrollerGadget);
    // It lays the text out anew for a new window size or font.
    SetRelayoutHandler(ResizeViewport);
    bool catalogOpen = OpenMessageCatalog(ExpandVolumePath("PROGDIR:catalogs").c_str());
    ResolveMenuLabels();

    Globals.MainPort = CreateMsgPort();
    if (Globals.MainPort) {
        InitSemaphore(&Globals.PrefsPathLock);
        InitSemaphore(&Globals.ScriptPathLock);
        InitSemaphore(&Globals.FunctionTableLock);
        InitSemaphore(&Globals.MenuTableLock);
        InitSemaphore(&Globals.TextListLock);
        Settings.FontAttr.ta_Name = Settings.FontName;
        ReadStartPreferences();
        SetDefaultFileName();
        StartScripts();
        // The texts of the command line start before the screen is taken:
        // on the desktop the screen waits for the display to come up, and
        // meanwhile each text reads its file.
        StartTextsBeforeScreen(true);
        const std::optional<std::string> screenName = StartFromArguments(arguments);
        StartTextsBeforeScreen(false);
        ObtainScreen();
        // A PUBSCREEN given counts from the next opening of the screen on.
        if (screenName)
            Strlcpy(Globals.PubScreenName, screenName->c_str(), sizeof Globals.PubScreenName);
        if (Globals.TextCount.load() == 0)
            StartTextProcess(Globals.MainPort, nullptr);
        RunMainLoop();
        StopScripts();
        FreeUserFunctions();
    } else {
        ReportAppErrorId(MessageId::NotEnoughMemory);
    }

    ReleaseScreen();
    CloseToolbars();
    FreeKeyMap(&GlobalKeyMap);
    if (catalogOpen)
        CloseMessageCatalog();
    if (Globals.MainPort) {
        DeleteMsgPort(Globals.MainPort);
        Globals.MainPort = nullptr;
    }
    return 0;
}

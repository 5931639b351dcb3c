#include "frame/main_process.h"

#include "frame/app_globals.h"
#include "frame/command_message.h"
#include "frame/dispatch.h"
#include "frame/idle.h"
#include "frame/report.h"
#include "frame/screen.h"
#include "frame/start_text.h"
#include "platform/dos/paths.h"
#include "platform/dos/readargs.h"
#include "platform/dos/volumes.h"
#include "platform/exec/ports.h"
#include "platform/exec/tasks.h"
#include "platform/utility/strings.h"
#include "requesters/requester_frame.h"
#include "services/messages.h"
#include "text/scroller_gadgets.h"
#include "text/settings.h"

#include <unistd.h>

namespace {

void SetDefaultFileName()
{
    char* name = Globals.DefaultFileName;
    if (!getcwd(name, DefaultFileNameSize))
        name[0] = 0;
    AddPart(name, GetString(MessageId::NoName), DefaultFileNameSize);
}

void StartFromArguments(const std::vector<std::string>& arguments)
{
    std::vector<const char*> words;
    for (const std::string& argument : arguments)
        words.push_back(argument.c_str());
    RDArgs args;
    if (!ReadArgs("FILE/M,PUBSCREEN/K", static_cast<int>(words.size()), words.data(), &args))
        return;
    // The screen is already held; the name counts from the next opening on.
    const ArgResult& screen = args.items[1];
    if (screen.present)
        Strlcpy(Globals.PubScreenName, screen.string.c_str(), sizeof Globals.PubScreenName);
    for (const std::string& pattern : args.items[0].strings)
        StartFromPattern(Globals.MainPort, pattern.c_str());
}

// Serves the command port until no text is left. Everything a pass
// brought is served before the count is looked at.
void RunMainLoop()
{
    uint32_t commandSignal = PortSignal(Globals.MainPort);
    while (Globals.TextCount.load() > 0) {
        uint32_t signals = WaitInLoop(commandSignal);
        if (signals & commandSignal) {
            while (Message* message = GetMsg(Globals.MainPort))
                DispatchCommand(reinterpret_cast<CommandMessage*>(message));
        }
    }
    LeaveLoop();
}

} // namespace

int MainProcess(const std::vector<std::string>& arguments)
{
    ResetAppGlobals();
    // A requester's loop works the scrollers of the text behind it.
    SetScrollerHandler(HandleScrollerGadget);
    bool catalogOpen = OpenMessageCatalog(ExpandVolumePath("PROGDIR:catalogs").c_str());

    Globals.MainPort = CreateMsgPort();
    if (Globals.MainPort) {
        InitSemaphore(&Globals.PrefsPathLock);
        InitSemaphore(&Globals.ScriptPathLock);
        InitSemaphore(&Globals.FunctionTableLock);
        InitSemaphore(&Globals.MenuTableLock);
        InitSemaphore(&Globals.TextListLock);
        Settings.FontAttr.ta_Name = Settings.FontName;
        SetDefaultFileName();
        ObtainScreen();
        StartFromArguments(arguments);
        if (Globals.TextCount.load() == 0)
            StartTextProcess(Globals.MainPort, nullptr);
        RunMainLoop();
    } else {
        ReportAppErrorId(MessageId::NotEnoughMemory);
    }

    ReleaseScreen();
    if (catalogOpen)
        CloseMessageCatalog();
    if (Globals.MainPort) {
        DeleteMsgPort(Globals.MainPort);
        Globals.MainPort = nullptr;
    }
    return 0;
}

#include "services/rexx/start_scripts.h"

#include "config/script_menu_commands.h"
#include "frame/window/report.h"
#include "platform/rexx/host_sockets.h"
#include "platform/rexx/script_server.h"
#include "services/rexx/run_script.h"
#include "services/rexx/script_message.h"
#include "services/rexx/script_names.h"

#include <string>

namespace {

const ScriptActions MenuActions{RunScript, LoadMacroFile};

} // namespace

void StartScripts()
{
    SetScriptActions(&MenuActions);
    std::string refusal = StartHostSockets();
    if (!refusal.empty())
        ReportAppError(refusal.c_str());
    StartScriptServer(ResolveForScriptServer, ScriptExtension);
}

// The scripts first: a connection waits for the script it started, and
// halting that script is what lets the connection end.
void StopScripts()
{
    StopScriptServer();
    StopHostSockets();
}

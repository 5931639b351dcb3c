#include "echo_host.h"

#include "platform/exec/ports.h"
#include "platform/exec/tasks.h"
#include "platform/rexx/host_ports.h"
#include "platform/rexx/rexx_message.h"
#include "platform/rexx/script_server.h"

#include <cstring>
#include <string>

namespace {

void AnswerEcho(RexxMsg* message)
{
    const char* command = message->rm_Args[0];
    message->rm_Result1 = 0;
    message->rm_Result2 = 0;
    if (std::strcmp(command, "fail") == 0) {
        message->rm_Result1 = 20;
    } else {
        if (std::strncmp(command, "set ", 4) == 0) {
            std::string rest(command + 4);
            size_t blank = rest.find(' ');
            SetRexxVarFromMsg(rest.substr(0, blank).c_str(), rest.substr(blank + 1).c_str(), message);
        }
        message->rm_Result2 = reinterpret_cast<intptr_t>(CreateArgstring(command, LengthArgstring(command)));
    }
    ReplyRexxMsg(message);
}

} // namespace

void ServeEchoHost(const char* name, std::atomic<bool>* open, const std::atomic<bool>* stop)
{
    MsgPort* port = OpenHostPort(name);
    open->store(true);
    const uint32_t portSignal = PortSignal(port);
    while (!(Wait(portSignal | SIGBREAKF_CTRL_C) & SIGBREAKF_CTRL_C) || !stop->load()) {
        while (Message* received = GetMsg(port))
            AnswerEcho(reinterpret_cast<RexxMsg*>(received));
    }
    WithdrawHostPort(port);
    while (Message* received = GetMsg(port))
        AnswerEcho(reinterpret_cast<RexxMsg*>(received));
    DeleteMsgPort(port);
}

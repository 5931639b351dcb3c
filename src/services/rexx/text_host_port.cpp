#include "services/rexx/text_host_port.h"

#include "frame/protocol/app_globals.h"
#include "platform/exec/semaphores.h"
#include "platform/exec/tasks.h"
#include "platform/rexx/host_ports.h"
#include "platform/rexx/rexx_message.h"
#include "platform/rexx/script_server.h"
#include "services/message_id.h"
#include "services/rexx/arexx_command.h"
#include "services/rexx/scripts_out.h"
#include "text/record/text_record.h"

int EnsureHostPort(TextRecord* record)
{
    if (!record->HostPort)
        record->HostPort = OpenHostPort(record->OwnerProcess->tc_Node.ln_Name);
    return record->HostPort ? 0 : int(MessageId{130});
}

void CloseTextHostPort(TextRecord* record)
{
    MsgPort* port = record->HostPort;
    if (!port)
        return;
    // Other texts read the port's name under the text list's lock (TEXTS,
    // REXXPORT, SENDCMD): it leaves the record under that lock held
    // exclusively, before it goes.
    ObtainSemaphore(&Globals.TextListLock);
    record->HostPort = nullptr;
    ReleaseSemaphore(&Globals.TextListLock);
    WithdrawHostPort(port);
    // What came before the end is served as ever; a script still running
    // then is halted, and its answer taken without a word: the user ended
    // the text, and an endless script must not hold its end up.
    bool halted = false;
    for (;;) {
        while (Message* received = GetMsg(port)) {
            auto* message = reinterpret_cast<RexxMsg*>(received);
            if (received->mn_Node.ln_Type != NT_REPLYMSG) {
                message->rm_Result1 = 100;
                ReplyRexxMsg(message);
            } else if (halted) {
                FreeRexxMsg(message);
                ScriptAnswered(record);
            } else {
                RunArexxCommand(record, message);
            }
        }
        if (record->PendingArexxCount == 0)
            break;
        if (!halted) {
            HaltScripts(port);
            halted = true;
            continue;
        }
        WaitPort(port);
    }
    DeleteMsgPort(port);
}

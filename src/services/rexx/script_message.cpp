#include "services/rexx/script_message.h"

#include "platform/rexx/rexx_message.h"
#include "services/message_id.h"
#include "services/rexx/script_names.h"
#include "services/rexx/text_host_port.h"
#include "text/record/text_record.h"

#include <cstring>

RexxMsg* NewScriptMessage(TextRecord* record, const char* name, int* error)
{
    char fullName[ScriptNameSize];
    if ((*error = EnsureHostPort(record)) || (*error = ResolveScriptName(name, fullName)))
        return nullptr;
    *error = int(MessageId::NotEnoughMemory);
    RexxMsg* message = CreateRexxMsg(record->HostPort, ScriptExtension, record->HostPort->mp_Node.ln_Name);
    if (!message)
        return nullptr;
    message->rm_Args[0] = CreateArgstring(fullName, long(std::strlen(fullName)));
    if (!message->rm_Args[0]) {
        DeleteRexxMsg(message);
        return nullptr;
    }
    *error = 0;
    return message;
}

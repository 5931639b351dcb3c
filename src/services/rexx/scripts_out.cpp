#include "services/rexx/scripts_out.h"

#include "platform/rexx/rexx_message.h"
#include "platform/rexx/script_server.h"
#include "text/record/text_record.h"

bool SendToScriptServer(TextRecord* record, RexxMsg* message)
{
    message->rm_Node.mn_Node.ln_Name = ScriptServerName;
    if (!PutToScriptServer(message))
        return false;
    ++record->PendingArexxCount;
    return true;
}

void ScriptAnswered(TextRecord* record)
{
    if (record->PendingArexxCount > 0)
        --record->PendingArexxCount;
}

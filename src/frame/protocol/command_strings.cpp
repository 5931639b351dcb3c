#include "frame/protocol/command_strings.h"

#include "frame/protocol/command_message.h"
#include "platform/exec/memory.h"

void FreeCommandMessage(CommandMessage* message)
{
    switch (message->Code & CMD_CODE_MASK) {
    case CMD_FIND_PREV:
    case CMD_FIND_NEXT:
    case CMD_REPLACE_PREV:
    case CMD_REPLACE_NEXT:
    case CMD_RUN_MACRO:
        FreeVec(reinterpret_cast<void*>(message->Argument));
        break;
    default:
        break;
    }
    FreeVec(message);
}

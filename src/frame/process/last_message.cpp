#include "frame/process/text_process.h"
#include "frame/protocol/command_message.h"
#include "platform/exec/memory.h"
#include "platform/exec/tasks.h"

#include <new>

void SendLastMessage(MsgPort* mainPort, int leaveReason)
{
    int16_t code = leaveReason == LeaveQuit ? CMD_QUIT_ALL : static_cast<int16_t>(CMD_TEXT_ENDED | CMD_FREE);
    void* memory;
    while (!(memory = AllocVec(sizeof(CommandMessage), MEMF_PUBLIC | MEMF_CLEAR)))
        Delay(25);
    auto* message = new (memory) CommandMessage{};
    message->cm_Message.mn_Length = sizeof(CommandMessage);
    message->Code = code;
    PutMsg(mainPort, &message->cm_Message);
}

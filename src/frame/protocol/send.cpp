#include "frame/protocol/send.h"

#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "platform/exec/memory.h"
#include "text/record/text_record.h"

#include <new>

static CommandMessage* NewCommand(TextRecord* sender, int16_t code, intptr_t argument)
{
    void* memory = AllocVec(sizeof(CommandMessage), MEMF_PUBLIC | MEMF_SHARED | MEMF_CLEAR);
    if (!memory)
        return nullptr;
    auto* message = new (memory) CommandMessage{};
    message->cm_Message.mn_Length = sizeof(CommandMessage);
    message->Sender = sender;
    message->Code = code;
    message->Argument = argument;
    return message;
}

int PostCommand(MsgPort* port, TextRecord* sender, int16_t code, intptr_t argument)
{
    CommandMessage* message = NewCommand(sender, code, argument);
    if (!message)
        return 0;
    PutMsg(port, &message->cm_Message);
    return 1;
}

int SendToMain(TextRecord* text, int16_t code, intptr_t argument)
{
    return PostCommand(text->MainPort, text, static_cast<int16_t>(code | CMD_FREE), argument);
}

intptr_t SendToMainWait(TextRecord* text, int16_t code, intptr_t argument)
{
    // A record no main process started (a tool's, a test's) has no one to ask.
    if (!text->MainPort)
        return 0;
    CommandMessage* message = NewCommand(text, static_cast<int16_t>(code | CMD_REPLY), argument);
    if (!message)
        return 0;
    message->cm_Message.mn_ReplyPort = text->ReplyPort;
    PutMsg(text->MainPort, &message->cm_Message);
    // Only replies arrive at ReplyPort, and this process waits for one at
    // a time, so the first message there is this one.
    Message* reply = nullptr;
    while (reply != &message->cm_Message) {
        WaitPort(text->ReplyPort);
        reply = GetMsg(text->ReplyPort);
    }
    intptr_t result = message->Argument;
    FreeVec(message);
    return result;
}

int SendToText(TextRecord* text, int16_t code, intptr_t argument)
{
    return PostCommand(text->CommandPort, text, code, argument);
}

int SendPositionToText(TextRecord* text, int16_t code, int32_t line, int32_t column)
{
    CommandMessage* message = NewCommand(text, code, line);
    if (!message)
        return 0;
    message->Spare = column;
    PutMsg(text->CommandPort, &message->cm_Message);
    return 1;
}

void BroadcastToTexts(int16_t code, intptr_t argument)
{
    for (TextRecord* text = Globals.Texts.First; text; text = text->NextText)
        SendToText(text, code, argument);
}

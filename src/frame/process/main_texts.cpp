// The main process's handlers for the life of texts and for finding them.
#include "frame/process/main_handlers.h"
#include "frame/process/start_text.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/find_text.h"
#include "frame/protocol/send.h"
#include "frame/protocol/text_name_list.h"
#include "platform/dos/paths.h"
#include "platform/exec/memory.h"
#include "platform/utility/strings.h"
#include "services/messages.h"
#include "text/record/text_record.h"

#include <cstring>

void HandleNewText(CommandMessage* message, int16_t*)
{
    message->Argument = StartTextProcess(Globals.MainPort, reinterpret_cast<const char*>(message->Argument));
}

void HandleCloseText(CommandMessage* message, int16_t* code)
{
    intptr_t which = message->Argument;
    TextRecord* sender = message->Sender;
    FreeVec(message);
    *code = static_cast<int16_t>(*code & ~CMD_FREE);
    // Any value but -1 means the text that asked, whatever its number.
    if (which == -1)
        BroadcastToTexts(CMD_CLOSE_NOW, 0);
    else if (sender)
        SendToText(sender, CMD_CLOSE_NOW, 0);
}

void HandleTextEnded(CommandMessage*, int16_t*)
{
    Globals.TextCount.fetch_sub(1);
}

void HandleQuitAll(CommandMessage* message, int16_t* code)
{
    FreeVec(message);
    *code = static_cast<int16_t>(*code & ~CMD_FREE);
    Globals.TextCount.fetch_sub(1);
    BroadcastToTexts(CMD_ASK_CLOSE, 0);
}

void HandleTextActive(CommandMessage* message, int16_t*)
{
    Globals.ActiveText = message->Sender;
}

void HandleAddText(CommandMessage* message, int16_t*)
{
    ObtainSemaphore(&Globals.TextListLock);
    AddTextInOpeningOrder(&Globals.Texts, message->Sender);
    ReleaseSemaphore(&Globals.TextListLock);
}

void HandleRemoveText(CommandMessage* message, int16_t*)
{
    ObtainSemaphore(&Globals.TextListLock);
    RemoveText(&Globals.Texts, message->Sender);
    ReleaseSemaphore(&Globals.TextListLock);
    if (Globals.ActiveText == message->Sender)
        Globals.ActiveText = nullptr;
}

void HandleListTexts(CommandMessage* message, int16_t*)
{
    bool withNewWindow = message->Argument != 0;
    long count = CountTexts(&Globals.Texts) + (withNewWindow ? 1 : 0);
    long size = count > 0 ? count * TextNameRowSpacing : TextNameRowSpacing;
    auto* list = static_cast<char*>(AllocVec(static_cast<size_t>(size), MEMF_SHARED));
    message->Argument = reinterpret_cast<intptr_t>(list);
    if (!list)
        return;
    auto count16 = static_cast<uint16_t>(count);
    std::memcpy(list, &count16, sizeof count16);
    int row = 0;
    auto put = [&](const char* name) {
        char* target = list + 2 + row++ * TextNameRowSpacing;
        Strlcpy(target, name, TextNameRowSize);
    };
    if (withNewWindow)
        put(GetString(MessageId::NewWindow));
    ObtainSemaphoreShared(&Globals.TextListLock);
    for (TextRecord* text = Globals.Texts.First; text; text = text->NextText)
        put(FilePart(text->FileName));
    ReleaseSemaphore(&Globals.TextListLock);
}

void HandleSelectText(CommandMessage* message, int16_t*)
{
    TextRecord* text = TextAt(&Globals.Texts, static_cast<long>(message->Argument) - 1);
    if (!text) {
        message->Argument = static_cast<intptr_t>(MessageId::WindowNotFound);
        return;
    }
    if (text->TextState & Busy) {
        message->Argument = static_cast<intptr_t>(MessageId::WindowIsBusy);
        return;
    }
    SendToText(text, CMD_SHOW_TEXT, 0);
    message->Argument = 0;
}

void HandleFindOther(CommandMessage* message, int16_t*)
{
    message->Argument = FindTextByName(message->Sender, reinterpret_cast<const char*>(message->Argument));
}

void HandleFindAny(CommandMessage* message, int16_t*)
{
    message->Argument = FindTextByName(nullptr, reinterpret_cast<const char*>(message->Argument));
}

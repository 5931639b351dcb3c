// The last find and replace texts, shared by all texts and held by the
// main process. Copies handed out are the caller's to free; the search
// window, while open, shows what is set.
#include "config/shared_copy.h"
#include "frame/process/main_handlers.h"
#include "frame/process/search_window.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "platform/utility/strings.h"

static void GiveCopy(CommandMessage* message, const char* text)
{
    message->Argument = reinterpret_cast<intptr_t>(SharedCopy(text));
}

static void Keep(char* target, const CommandMessage* message)
{
    const auto* text = reinterpret_cast<const char*>(message->Argument);
    if (!text)
        return;
    Strlcpy(target, text, FindTextSize);
}

void HandleGetFind(CommandMessage* message, int16_t*)
{
    GiveCopy(message, Globals.SearchText);
}

void HandleGetReplace(CommandMessage* message, int16_t*)
{
    GiveCopy(message, Globals.ReplaceText);
}

void HandleSetFind(CommandMessage* message, int16_t*)
{
    Keep(Globals.SearchText, message);
    ShowSearchText();
}

void HandleSetReplace(CommandMessage* message, int16_t*)
{
    Keep(Globals.ReplaceText, message);
    ShowReplaceText();
}

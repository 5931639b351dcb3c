// The editing locks of the key map and of the user menus: not guards of
// memory, but the right of one text to edit them for the length of a
// dialogue. Both are plain variables of the main process; everyone else is
// turned away by the answer 0.
#include "frame/process/main_handlers.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "platform/exec/memory.h"

void HandleKeysLock(CommandMessage* message, int16_t*)
{
    if (Globals.KeysOwner) {
        message->Argument = 0;
        return;
    }
    Globals.KeysOwner = message->Sender;
    message->Argument = 1;
}

void HandleKeysUnlock(CommandMessage*, int16_t*)
{
    Globals.KeysOwner = nullptr;
}

void HandleMenusLock(CommandMessage* message, int16_t*)
{
    if (Globals.MenusLocked) {
        message->Argument = 0;
        return;
    }
    Globals.MenusLocked = 1;
    message->Argument = 1;
}

void HandleMenusUnlock(CommandMessage*, int16_t*)
{
    Globals.MenusLocked = 0;
}

void HandleMenusChanged(CommandMessage* message, int16_t* code)
{
    FreeVec(message);
    *code = static_cast<int16_t>(*code & ~CMD_FREE);
    BroadcastToTexts(CMD_MENUS_REBUILD, 0);
}

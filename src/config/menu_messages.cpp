#include "config/menu_messages.h"

#include "config/build_menus.h"
#include "config/menu_table.h"
#include "config/shared_copy.h"
#include "config/user_menus.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "platform/exec/semaphores.h"
#include "text/record/settings.h"

void HandleBuildMenu(CommandMessage* message, int16_t*)
{
    message->Argument = reinterpret_cast<intptr_t>(BuildMenus(message->Sender));
}

void HandleGetUserMacro(CommandMessage* message, int16_t*)
{
    int32_t index = static_cast<int32_t>(message->Argument);
    message->Argument = Globals.MenusLocked ? 0 : reinterpret_cast<intptr_t>(CopyUserMacro(index));
}

void HandleSetScriptEntry(CommandMessage* message, int16_t* code)
{
    const auto* entry = reinterpret_cast<const ScriptEntry*>(message->Argument);
    SetScriptLabel(entry->Index, entry->Label);
    // The sender is one of the texts told to rebuild; it waits for nothing
    // more, so it is answered first.
    *code = static_cast<int16_t>(*code & ~CMD_REPLY);
    ReplyMsg(&message->cm_Message);
    BroadcastToTexts(CMD_MENUS_REBUILD, 0);
}

void HandleGetScriptEntry(CommandMessage* message, int16_t*)
{
    intptr_t index = message->Argument;
    message->Argument = 0;
    if (index < 0 || index >= ScriptItemCount)
        return;
    ObtainSemaphoreShared(&Globals.MenuTableLock);
    const char* label = Settings.ScriptLabels[index];
    if (label[0])
        message->Argument = reinterpret_cast<intptr_t>(SharedCopy(label));
    ReleaseSemaphore(&Globals.MenuTableLock);
}

#include "config/menu_picks.h"

#include "config/menu_commands.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "frame/protocol/leave_reasons.h"
#include "platform/display/intuition.h"
#include "text/record/text_record.h"

namespace {

const MenuCommand* CommandOf(uint32_t id)
{
    return id < static_cast<uint32_t>(MenuCommandCount) ? &MenuCommandTable[id] : nullptr;
}

void RunCommand(TextRecord* record, const MenuCommand& command, bool namesHelp)
{
    record->TextState |= Busy;
    if (namesHelp)
        record->HelpCommandId = static_cast<int32_t>(command.Help);
    command.Handler(record);
    if (namesHelp)
        record->HelpCommandId = 0;
    record->TextState = static_cast<uint16_t>(record->TextState & ~Busy);
}

} // namespace

int HandleMenuPick(TextRecord* record, const IntuiMessage& event)
{
    int leave = 0;
    for (MenuNumber number = event.Code; number != MENUNULL;) {
        const MenuItem* item = ItemAddress(record->MenuStrip, number);
        if (!item)
            break;
        // A command may rebuild the strip: the chain is read before it runs.
        number = item->NextSelect;
        const MenuCommand* command = CommandOf(GTMENUITEM_USERDATA(item));
        if (!command)
            continue;
        if (command->Quits)
            leave = LeaveQuit;
        else if (command->Handler)
            RunCommand(record, *command, true);
    }
    return leave;
}

void HandleMenuHelp(TextRecord* record, const IntuiMessage& event)
{
    const MenuItem* item = ItemAddress(record->MenuStrip, event.Code);
    if (!item)
        return;
    if (const MenuCommand* command = CommandOf(GTMENUITEM_USERDATA(item)))
        SendToMain(record, CMD_HELP_ID, static_cast<intptr_t>(command->Help));
}

int RunMenuShortcut(TextRecord* record, char letter)
{
    for (const NewMenu* row = BuiltInMenus; row->nm_Type != NM_END; ++row) {
        if (row->nm_Type != NM_ITEM || !row->nm_CommKey || row->nm_CommKey[0] != letter)
            continue;
        const MenuCommand* command = CommandOf(row->nm_UserData);
        if (!command)
            return 0;
        if (command->Quits)
            return LeaveAsk;
        if (command->Handler)
            RunCommand(record, *command, false);
        return 0;
    }
    return 0;
}

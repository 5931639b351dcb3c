#include "config/menu_picks.h"

#include "config/menu_commands.h"
#include "config/menu_table.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/leave_reasons.h"
#include "frame/protocol/send.h"
#include "macro/run_macro_command.h"
#include "platform/display/intuition.h"
#include "platform/exec/memory.h"
#include "requesters/file_reports.h"
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

// A user menu item runs its macro: its number in the menu, less the seven
// items above the user menus, is its index in main's table. Main
// gives a copy, or nothing while another text edits the user menus.
void RunUserMenu(TextRecord* record, MenuNumber number)
{
    record->TextState |= Busy;
    auto* macro = reinterpret_cast<char*>(SendToMainWait(record, CMD_GET_USER_MACRO, ITEMNUM(number) - FirstUserMenuItem));
    if (macro) {
        RunMacroCommand(record, macro);
        FreeVec(macro);
    } else {
        ErrorRequester(record, MessageId::MenusAccessDenied);
    }
    record->TextState = static_cast<uint16_t>(record->TextState & ~Busy);
}

} // namespace

int HandleMenuPick(TextRecord* record, const IntuiMessage& event)
{
    int leave = 0;
    for (MenuNumber number = event.Code; number != MENUNULL;) {
        const MenuNumber picked = number;
        const MenuItem* item = ItemAddress(record->MenuStrip, number);
        if (!item)
            break;
        // A command may rebuild the strip: the chain is read before it runs.
        number = item->NextSelect;
        const uint32_t id = GTMENUITEM_USERDATA(item);
        if (id == UserMenuCommand) {
            RunUserMenu(record, picked);
            continue;
        }
        const MenuCommand* command = CommandOf(id);
        if (!command)
            continue;
        record->LastCode = picked;
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
        // The Ctrl of a shortcut belongs to the key: the pick is a plain
        // one. A script item reads its index from the pick's menu number.
        record->LastQualifier &= ~uint32_t(IEQUALIFIER_CONTROL);
        if (row->nm_UserData == ScriptCommand) {
            const auto item = static_cast<uint16_t>(row - &BuiltInMenus[FirstScriptRow] + FirstScriptItem);
            record->LastCode = FULLMENUNUM(ScriptsMenu, item, NOSUB);
        }
        if (command->Handler)
            RunCommand(record, *command, false);
        return 0;
    }
    return 0;
}

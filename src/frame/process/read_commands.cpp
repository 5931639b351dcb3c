#include "config/build_menus.h"
#include "config/menu_table.h"
#include "frame/process/text_process.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/command_strings.h"
#include "frame/window/text_window.h"
#include "macro/run_macro_command.h"
#include "search/window_commands.h"
#include "text/edit/cursor_placing.h"
#include "text/record/text_record.h"

int ReadCommands(TextRecord* record, MsgPort* port)
{
    int leave = 0;
    while (Message* received = GetMsg(port)) {
        auto* message = reinterpret_cast<CommandMessage*>(received);
        switch (message->Code & CMD_CODE_MASK) {
        case CMD_ASK_CLOSE:
            leave = LeaveAsk;
            break;
        case CMD_CLOSE_NOW:
            leave = LeaveNow;
            break;
        case CMD_SHOW_TEXT:
            RaiseTextWindow(record);
            break;
        case CMD_GOTO_BOOKMARK: {
            const Bookmark mark{static_cast<int32_t>(message->Argument), message->Spare, 0, record};
            GotoPosition(record, &mark);
            break;
        }
        case CMD_RUN_MACRO:
            RunMacroCommand(record, reinterpret_cast<char*>(message->Argument));
            break;
        case CMD_MENUS_REBUILD:
            BuildMenus(record);
            break;
        case CMD_FIND_PREV:
        case CMD_FIND_NEXT:
        case CMD_REPLACE_PREV:
        case CMD_REPLACE_NEXT:
        case CMD_RESTORE_LINE:
            RunWindowCommand(record, message->Code & CMD_CODE_MASK, reinterpret_cast<const char*>(message->Argument));
            break;
        case CMD_SET_CASE:
            if (message->Argument)
                record->Options |= IgnoreCase;
            else
                record->Options &= ~IgnoreCase;
            SetMenuCheck(record, IgnoreCaseItem, message->Argument != 0);
            break;
        default:
            break;
        }
        FreeCommandMessage(message);
    }
    return leave;
}

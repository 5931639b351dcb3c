#include "config/build_menus.h"
#include "config/menu_table.h"
#include "frame/app_globals.h"
#include "frame/command_message.h"
#include "frame/command_strings.h"
#include "frame/text_process.h"
#include "frame/text_window.h"
#include "text/cursor_placing.h"
#include "text/text_record.h"

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
        case CMD_GOTO_BOOKMARK:
            GotoPosition(record, reinterpret_cast<const Bookmark*>(message->Argument));
            break;
        case CMD_MENUS_REBUILD:
            BuildMenus(record);
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

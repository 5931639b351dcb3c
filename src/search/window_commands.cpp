#include "search/window_commands.h"

#include "frame/protocol/command_message.h"
#include "search/search_commands.h"
#include "text/edit/line_operations.h"

#include <cstring>

void RunWindowCommand(TextRecord* record, int code, const char* strings)
{
    if (code == CMD_RESTORE_LINE) {
        UndoLine(record);
        return;
    }
    if (!strings)
        return;
    const char* replacement = strings + std::strlen(strings) + 1;
    switch (code) {
    case CMD_FIND_PREV:
        FindPrevious(record, strings);
        break;
    case CMD_FIND_NEXT:
        FindNext(record, strings);
        break;
    case CMD_REPLACE_PREV:
        ReplacePrevious(record, strings, replacement);
        break;
    case CMD_REPLACE_NEXT:
        ReplaceNext(record, strings, replacement);
        break;
    default:
        break;
    }
}

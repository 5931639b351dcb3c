#include "frame/protocol/last_edit.h"

#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "text/record/text_record.h"

void NoteLastEdit(TextRecord* record)
{
    NoteLastEditAt(record, record->CursorLine, record->CursorColumn);
}

void NoteLastEditAt(TextRecord* record, int32_t line, int32_t column)
{
    record->LastEditLine = line;
    record->LastEditColumn = column;
    if (!record->MainPort)
        return;
    // Main copies the record while this process waits.
    Bookmark bookmark{line, column, ReturnBookmarkSlot, record};
    SendToMainWait(record, CMD_SET_BOOKMARK, reinterpret_cast<intptr_t>(&bookmark));
}

#include "frame/protocol/last_edit.h"

#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "text/record/text_record.h"

void NoteLastEdit(TextRecord* record)
{
    record->LastEditLine = record->CursorLine;
    record->LastEditColumn = record->CursorColumn;
    if (!record->MainPort)
        return;
    // Main copies the record while this process waits.
    Bookmark bookmark{record->LastEditLine, record->LastEditColumn, ReturnBookmarkSlot, record};
    SendToMainWait(record, CMD_SET_BOOKMARK, reinterpret_cast<intptr_t>(&bookmark));
}

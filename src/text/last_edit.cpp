#include "text/last_edit.h"

#include "text/text_record.h"

void NoteLastEdit(TextRecord* record)
{
    record->LastEditLine = record->CursorLine;
    record->LastEditColumn = record->CursorColumn;
}

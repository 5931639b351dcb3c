// The tab key never stores a tab character: it moves, or types spaces, to
// the stops at the multiples of TabSize.
#include "text/edit/cursor_motion.h"
#include "text/edit/edit_current_line.h"
#include "text/record/text_record.h"

void TabForward(TextRecord* record, bool moveOnly)
{
    const int32_t size = record->TabSize;
    for (int32_t steps = size - record->CursorColumn % size; steps > 0; --steps) {
        if (moveOnly)
            CursorRight(record);
        else if (InsertText(record, " ") == 0)
            break;
    }
}

void TabBack(TextRecord* record, bool moveOnly)
{
    const int32_t size = record->TabSize;
    const int32_t remainder = record->CursorColumn % size;
    for (int32_t steps = remainder ? remainder : size; steps > 0 && record->CursorColumn > 0; --steps) {
        if (moveOnly)
            CursorLeft(record);
        else
            DeleteBack(record);
    }
}

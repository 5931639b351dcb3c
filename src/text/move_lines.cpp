#include "text/edit_line.h"
#include "text/line_operations.h"
#include "text/line_table.h"
#include "text/render.h"
#include "text/text_record.h"
#include "text/viewport.h"

void MoveLines(TextRecord* record, int32_t first, int32_t last)
{
    if (!FlushEditLine(record) || !EnsureLineRoom(record, InsertLineRoom))
        return;
    const int32_t line = record->CursorLine;
    RotateLines(record, line, first, last + 1);
    record->Modified = 1;
    LoadEditLine(record, LineIndex(line), ColumnIndex(record->CursorColumn));
    if (!FollowCursor(record, false))
        RefreshAll(record);
}

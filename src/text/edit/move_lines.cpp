#include "frame/window/refresh.h"
#include "text/edit/line_operations.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

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

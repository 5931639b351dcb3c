// The two memories of a line: the RecallLine, filled by deleting a line,
// and the table entry of the cursor's line, which holds the line as it was
// before the edits not yet flushed.
#include "frame/window/refresh.h"
#include "text/edit/block_marking.h"
#include "text/edit/line_operations.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <cstring>

void RecallKilledLine(TextRecord* record)
{
    UnmarkBlock(record);
    if (!InsertLineBefore(record))
        return;
    LoadEditLine(record, LineIndex(record->CursorLine), ColumnIndex(record->CursorColumn));
    std::strcpy(record->EditLine, record->RecallLine);
    record->EditLength = static_cast<int32_t>(std::strlen(record->EditLine));
    PadEditLine(record);
    FlushEditLine(record);
    RefreshCursorLine(record);
    FollowCursor(record, true);
}

void UndoLine(TextRecord* record)
{
    UnmarkBlock(record);
    LoadEditLine(record, LineIndex(record->CursorLine), ColumnIndex(record->CursorColumn));
    FollowCursor(record, true);
    RefreshCursorLine(record);
}

#include "frame/protocol/bookmark_requests.h"
#include "frame/protocol/last_edit.h"
#include "frame/window/refresh.h"
#include "text/edit/block_marking.h"
#include "text/edit/cursor_motion.h"
#include "text/edit/line_operations.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/record/line_strings.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"
#include "text/render/render.h"
#include "text/render/row_scroll.h"

#include <algorithm>
#include <cstring>

bool InsertLineBefore(TextRecord* record)
{
    if (!FlushEditLine(record) || !EnsureLineRoom(record, InsertLineRoom))
        return false;
    UnmarkBlock(record);
    const int32_t line = record->CursorLine;
    InsertEmptyLine(record, line);
    record->Modified = 1;
    ShiftBookmarks(record, line, +1);
    LoadEditLine(record, LineIndex(line), ColumnIndex(record->CursorColumn));
    if (!(record->TextState & Batch)) {
        ScrollRowsFrom(record, line - record->TopLine, -1);
        RefreshRows(record, line, 1);
    }
    NoteLastEdit(record);
    return true;
}

namespace {

// An empty line below the cursor's, and the cursor on it in its column.
// False when the line can't be stored or no room is left, with the cursor
// where it was.
bool OpenLineBelow(TextRecord* record)
{
    // Room first: once the cursor has gone down, a failure could no longer
    // leave it where it was.
    if (!FlushEditLine(record) || !EnsureLineRoom(record, InsertLineRoom))
        return false;
    if (record->CursorLine < record->LineCount - 1) {
        CursorDownFlushed(record);
        InsertLineBefore(record);
    } else {
        // An empty line at the very end moves nothing: the block stays and
        // the text doesn't count as changed.
        InsertEmptyLine(record, record->LineCount);
        CursorDownFlushed(record);
    }
    NoteLastEdit(record);
    return true;
}

} // namespace

bool InsertLineAfter(TextRecord* record)
{
    const int32_t column = record->CursorColumn;
    CursorFirstNonBlank(record);
    if (OpenLineBelow(record))
        return true;
    record->CursorColumn = column;
    PadEditLine(record);
    return false;
}

bool SplitLine(TextRecord* record, bool indent)
{
    const int32_t indentation = IndentOf(record->EditLine);
    UnmarkBlock(record);
    PadEditLine(record);
    const int32_t column = record->CursorColumn;
    std::strcpy(record->WorkLine, record->EditLine + column);
    const auto tailLength = static_cast<int32_t>(std::strlen(record->WorkLine));
    record->EditLength = column;
    PadEditLine(record);
    RefreshCursorLine(record);

    if (!OpenLineBelow(record)) {
        // The tail goes back behind the head, on the line it came from.
        std::strcpy(record->EditLine + column, record->WorkLine);
        record->EditLength = column + tailLength;
        record->CursorColumn = column;
        PadEditLine(record);
        RefreshCursorLine(record);
        return false;
    }

    // The indentation gives way to the tail, so the line stays within
    // MaxLineLength and the cursor within the line's columns.
    const int32_t max = record->MaxLineLength;
    const int32_t spaces = indent ? std::min({indentation, max - tailLength, max - 1}) : 0;
    std::memset(record->EditLine, ' ', static_cast<size_t>(spaces));
    std::memcpy(record->EditLine + spaces, record->WorkLine, static_cast<size_t>(tailLength) + 1);
    record->EditLength = spaces + tailLength;
    record->CursorColumn = spaces;
    PadEditLine(record);
    // The new line is empty in the table: only a tail or an indentation
    // has to go there.
    if (record->EditLength > 0)
        FlushEditLine(record);
    FollowCursor(record, true);
    RefreshRows(record, record->CursorLine, 1);
    return true;
}

#include "frame/protocol/bookmark_requests.h"
#include "frame/protocol/last_edit.h"
#include "frame/window/refresh.h"
#include "frame/window/status.h"
#include "text/edit/block_marking.h"
#include "text/edit/block_operations.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/edit_current_line.h"
#include "text/edit/line_operations.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/record/block_span.h"
#include "text/record/line_access.h"
#include "text/record/line_strings.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <cstring>

namespace {

// Keeps only the EditLine's text from `column` on.
void KeepFromColumn(TextRecord* record, int32_t column)
{
    char* line = record->EditLine;
    std::memmove(line, line + column, static_cast<size_t>(record->EditLength - column) + 1);
    record->EditLength -= column;
    record->CursorColumn = 0;
    PadEditLine(record);
}

} // namespace

bool DeleteBlock(TextRecord* record)
{
    if (BlockLineCount(record, true) == 0)
        return false;
    BlockSpan span;
    const int32_t lines = GetBlock(record, &span);
    // The typed line goes to the table first; when it can't, nothing is deleted.
    if ((lines > 1 || TestInBlock(record, record->CursorLine, record->CursorColumn) <= 0) && !FlushEditLine(record))
        return false;
    ShowBusyPointer(record);
    // The cursor's trip to the block's end stays off the screen.
    const bool wasBatch = (record->TextState & Batch) != 0;
    record->TextState |= Batch;
    SetCursor(record, ColumnIndex(span.LastColumn), LineIndex(ClampLine(record, span.LastLine)));

    // Text behind the block on its last line stays; else that line's
    // newline is in the block.
    const bool keepTail = record->CursorColumn < VisibleLength(record->EditLine);
    if (!keepTail) {
        record->EditLength = record->CursorColumn;
        PadEditLine(record);
    }
    if (lines > 1) {
        if (keepTail)
            KeepFromColumn(record, record->CursorColumn + 1);
        FlushEditLine(record);
        LoadEditLine(record, LineIndex(span.FirstLine), ColumnIndex(record->CursorColumn));
    }
    record->CursorColumn = span.FirstColumn;
    record->TextState &= static_cast<uint16_t>(~BlockMarked);
    if (!wasBatch)
        record->TextState &= static_cast<uint16_t>(~Batch);

    if (lines == 1) {
        char* line = record->EditLine;
        if (keepTail) {
            std::memmove(line + span.FirstColumn, line + span.LastColumn + 1,
                static_cast<size_t>(record->EditLength - span.LastColumn));
            record->EditLength -= span.LastColumn - span.FirstColumn + 1;
            PadEditLine(record);
        } else {
            record->EditLength = span.FirstColumn;
            PadEditLine(record);
            JoinNextLine(record);
        }
        if (!FollowCursor(record, true))
            RefreshCursorLine(record);
        return true;
    }

    // The lines wholly inside the block go at once; the first line's head
    // and the tail (now the line after it) are then joined.
    const int32_t whole = (keepTail ? lines : lines + 1) - 2;
    if (whole > 0) {
        RemoveLines(record, span.FirstLine + 1, whole);
        ShiftBookmarks(record, span.FirstLine + 1, -whole);
        if (!FollowCursor(record, true) && !FitTopToText(record))
            RefreshRows(record, span.FirstLine, record->VisibleRows);
        if (record->TopLine + record->VisibleRows > record->LineCount)
            ClearRows(record, record->LineCount, record->VisibleRows);
    }
    DeleteToLineEnd(record);
    // A refused join ("Line too long") leaves two lines: the tail's row was
    // changed while nothing was drawn, and the cursor may stand outside the
    // view. Both rows show what they hold, and the view follows the cursor.
    if (!JoinNextLine(record) && !FollowCursor(record, true))
        RefreshRows(record, record->CursorLine, 2);
    NoteLastEdit(record);
    return true;
}

bool DeleteBlockIfCursorInside(TextRecord* record)
{
    if (TestInBlock(record, record->CursorLine, record->CursorColumn) <= 0)
        return false;
    DeleteBlock(record);
    return true;
}

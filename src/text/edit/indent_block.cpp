#include "frame/window/refresh.h"
#include "requesters/file_reports.h"
#include "text/edit/block_marking.h"
#include "text/edit/block_operations.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/record/block_span.h"
#include "text/record/line_strings.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <algorithm>
#include <cstring>

namespace {

// TabSize spaces in front of the EditLine, unless that would reach
// MaxLineLength. False when the line had to stay.
bool IndentRight(TextRecord* record)
{
    const int32_t size = record->TabSize;
    record->EditLength = TrimLineEnd(record->EditLine);
    if (record->EditLength + size >= record->MaxLineLength)
        return false;
    char* line = record->EditLine;
    std::memmove(line + size, line, static_cast<size_t>(record->EditLength) + 1);
    std::memset(line, ' ', static_cast<size_t>(size));
    record->EditLength += size;
    return true;
}

// Takes up to TabSize leading spaces away; gives how many.
int32_t IndentLeft(TextRecord* record)
{
    const int32_t count = std::min<int32_t>(IndentOf(record->EditLine), record->TabSize);
    char* line = record->EditLine;
    std::memmove(line, line + count, static_cast<size_t>(record->EditLength - count) + 1);
    record->EditLength -= count;
    PadEditLine(record);
    return count;
}

} // namespace

void IndentBlock(TextRecord* record, int32_t direction)
{
    BlockSpan span;
    const int32_t lines = GetBlock(record, &span);
    if (lines == 0) {
        ErrorRequester(record, MessageId::NoBlockMarked);
        return;
    }
    const bool several = lines > 1;
    if (several && !FlushEditLine(record))
        return;
    if (TestInBlock(record, record->CursorLine, record->CursorColumn) <= 0)
        SetCursor(record, ColumnIndex(record->CursorColumn), LineIndex(span.FirstLine));
    const int32_t cursorLine = record->CursorLine;
    int32_t cursorColumn = record->CursorColumn;

    for (int32_t line = span.FirstLine; line <= span.LastLine; ++line) {
        record->CursorLine = line;
        if (several)
            LoadEditLine(record, LineIndex(line), ColumnIndex(record->LeftColumn));
        if (direction > 0) {
            record->CursorColumn = 0;
            if (IndentRight(record)) {
                const int32_t size = record->TabSize;
                if (line == span.FirstLine && span.FirstColumn != 0)
                    span.FirstColumn += size;
                if (line == span.LastLine)
                    span.LastColumn += size;
                if (line == cursorLine)
                    cursorColumn += size;
            } else {
                ErrorRequester(record, MessageId::LineTooLong);
            }
        } else {
            // The cursor on the old indentation keeps the line padded over
            // the spaces that go.
            record->CursorColumn = IndentOf(record->EditLine);
            const int32_t removed = IndentLeft(record);
            if (line == span.FirstLine)
                span.FirstColumn = std::max(span.FirstColumn - removed, 0);
            if (line == span.LastLine)
                span.LastColumn = std::max(span.LastColumn - removed, 0);
            if (line == cursorLine)
                cursorColumn = std::max(cursorColumn - removed, 0);
        }
        if (several)
            FlushEditLine(record);
        record->BlockStartLine = span.FirstLine;
        record->BlockStartColumn = span.FirstColumn;
        record->BlockEndLine = span.LastLine;
        record->BlockEndColumn = span.LastColumn;
        if (line >= record->TopLine && line < record->TopLine + record->VisibleRows)
            RefreshCursorLine(record);
    }
    record->CursorLine = cursorLine;
    if (several)
        LoadEditLine(record, LineIndex(cursorLine), ColumnIndex(cursorColumn));
    FollowCursor(record, true);
}

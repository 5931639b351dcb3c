#include "frame/protocol/bookmark_requests.h"
#include "frame/protocol/last_edit.h"
#include "frame/window/refresh.h"
#include "requesters/file_reports.h"
#include "text/edit/block_marking.h"
#include "text/edit/cursor_motion.h"
#include "text/edit/edit_current_line.h"
#include "text/edit/line_operations.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/record/line_access.h"
#include "text/record/line_strings.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"
#include "text/render/render.h"
#include "text/render/row_scroll.h"

#include <algorithm>
#include <cstring>

void DeleteLine(TextRecord* record)
{
    UnmarkBlock(record);
    if (!IsBlankText(record->EditLine))
        std::strcpy(record->RecallLine, record->EditLine);
    if (record->LineCount == 1) {
        CursorFirstNonBlank(record);
        DeleteToLineEnd(record);
        FlushEditLine(record);
        record->Modified = 0;
        return;
    }
    record->Modified = 1;
    FollowCursor(record, true);
    const int32_t line = record->CursorLine;
    DropLines(record, line, 1);
    KillBookmarksOnLine(record, line);
    ShiftBookmarks(record, line, -1);
    if (line == record->LineCount) {
        LoadEditLine(record, LineIndex(line - 1), ColumnIndex(record->CursorColumn));
        if (record->CursorLine < record->TopLine) {
            record->TopLine = std::max(0, record->CursorLine - record->VisibleRows / 2);
            RefreshAll(record);
            return;
        }
    }
    LoadEditLine(record, LineIndex(record->CursorLine), ColumnIndex(record->CursorColumn));
    if (!(record->TextState & Batch)) {
        ScrollRowsFrom(record, line - record->TopLine, +1);
        RefreshRows(record, record->TopLine + record->VisibleRows - 1, 1);
        FollowCursor(record, true);
    }
    NoteLastEdit(record);
}

void KillLine(TextRecord* record)
{
    // DeleteLine keeps the line in the RecallLine already.
    DeleteLine(record);
}

bool JoinNextLine(TextRecord* record)
{
    if (record->CursorLine >= record->LineCount - 1)
        return true;
    UnmarkBlock(record);
    // Spaces up to the cursor stay, so the next line lands at the cursor.
    PadEditLine(record);
    int32_t length = record->EditLength;
    while (length > record->CursorColumn && record->EditLine[length - 1] == ' ')
        record->EditLine[--length] = '\0';
    record->EditLength = length;

    const char* next = StoredLineText(record, record->CursorLine + 1);
    const auto nextLength = static_cast<int32_t>(std::strlen(next));
    if (length + nextLength > record->MaxLineLength) {
        ErrorRequester(record, MessageId::LineTooLong);
        return false;
    }
    std::memcpy(record->EditLine + length, next, static_cast<size_t>(nextLength) + 1);
    record->EditLength = length + nextLength;
    if (!FlushEditLine(record))
        return false;

    const int32_t column = record->CursorColumn;
    RefreshRows(record, record->CursorLine, 1);
    const bool nextIsLast = record->CursorLine + 1 == record->LineCount - 1;
    CursorDown(record);
    DeleteLine(record);
    record->CursorColumn = column;
    if (!nextIsLast)
        CursorUp(record);
    FollowCursor(record, true);
    return true;
}

void RemoveLines(TextRecord* record, int32_t first, int32_t count)
{
    count = std::min(count, record->LineCount - first);
    DropLines(record, first, count);
    if (record->LineCount == 0)
        InsertEmptyLine(record, 0);
    record->Modified = 1;
    for (int32_t line = first; line < first + count; ++line)
        KillBookmarksOnLine(record, line);
}

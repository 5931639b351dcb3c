#include "text/edit/cursor_placing.h"

#include "frame/protocol/app_globals.h"
#include "frame/window/text_window.h"
#include "platform/display/intuition.h"
#include "requesters/file_reports.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/record/block_span.h"
#include "text/record/line_access.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

void SetCursor(TextRecord* record, ColumnIndex column, LineIndex line)
{
    if (line.value != record->CursorLine) {
        // A line that can't be stored keeps the cursor rather than be lost.
        if (!FlushEditLine(record))
            return;
        LoadEditLine(record, line, column);
        FollowCursor(record, false);
        return;
    }
    record->CursorColumn = ClampColumn(record, column.value);
    if (record->CursorColumn > record->EditLength)
        PadEditLine(record);
}

bool SetCursorOnRow(TextRecord* record, int32_t column, int32_t row)
{
    int32_t line = ClampLine(record, record->TopLine + row);
    int32_t textColumn = ClampColumn(record, record->LeftColumn + column);
    if (line == record->CursorLine) {
        record->CursorColumn = textColumn;
        PadEditLine(record);
    } else {
        if (!FlushEditLine(record))
            return false;
        LoadEditLine(record, LineIndex{line}, ColumnIndex{textColumn});
    }
    return FollowCursor(record, false);
}

bool GotoPosition(TextRecord* record, const Bookmark* bookmark)
{
    if (!bookmark || bookmark->Owner != record)
        return false;
    if (!EnsureWindow(record))
        return false;
    // An open window comes to the front and becomes the active one.
    RaiseTextWindow(record);
    DrawCursor(record, false);
    SetCursor(record, ColumnIndex{bookmark->Column}, LineIndex{ClampLine(record, bookmark->Line)});
    FollowCursor(record, true);
    return true;
}

void GotoBlockEnd(TextRecord* record, bool start)
{
    if (!(record->TextState & BlockMarked)) {
        ErrorRequester(record, MessageId::NoBlockMarked);
        return;
    }
    Bookmark end;
    end.Owner = record;
    end.Line = start ? record->BlockStartLine : record->BlockEndLine;
    end.Column = start ? record->BlockStartColumn : record->BlockEndColumn;
    GotoPosition(record, &end);
}

MouseCell CellOfPosition(const TextRecord* record, int32_t x, int32_t y)
{
    const Window* window = record->Window;
    const TextFont* font = window->RPort->Font;
    int32_t dx = x - window->BorderLeft;
    int32_t dy = y - window->BorderTop;
    return {dx < 0 ? -1 : dx / font->tf_XSize, dy < 0 ? -1 : dy / (font->tf_YSize + 1)};
}

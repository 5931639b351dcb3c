#include "frame/window/text_window.h"
#include "platform/display/graphics.h"
#include "requesters/file_reports.h"
#include "text/edit/block_marking.h"
#include "text/edit/block_operations.h"
#include "text/edit/cursor_motion.h"
#include "text/edit/edit_current_line.h"
#include "text/edit/line_operations.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/record/line_strings.h"
#include "text/record/text_record.h"
#include "text/render/render.h"
#include "text/render/render_support.h"

#include <algorithm>
#include <cstring>

namespace {

// Draws the first `count` characters of `text` at the cursor's cell, as
// far as the window reaches, in the colours of the cursor's place.
void DrawAtCursor(TextRecord* record, const char* text, int32_t count)
{
    RastPort* port = DrawingPort(record);
    const int32_t row = record->CursorLine - record->TopLine;
    const int32_t cell = record->CursorColumn - record->LeftColumn;
    if (!port || row < 0 || row >= record->VisibleRows || cell < 0 || cell >= record->VisibleColumns)
        return;
    PaintRun(record, record->EditLine + record->CursorColumn, LineIndex(record->CursorLine),
        ColumnIndex(record->CursorColumn), VisibleLength(record->EditLine));
    Move(port, ColumnToX(record, cell), RowBaseline(record, row));
    Text(port, text, std::min(count, record->VisibleColumns - cell));
    SetPlainPens(record, port);
}

} // namespace

int32_t InsertText(TextRecord* record, const char* text)
{
    auto n = static_cast<int32_t>(std::strlen(text));
    if (!EnsureWindow(record))
        return 0;
    if (!DeleteBlockIfCursorInside(record))
        UnmarkBlock(record);
    PadEditLine(record);

    const int32_t max = record->MaxLineLength;
    const int32_t column = record->CursorColumn;
    bool cut = false;
    if (column + n > max) {
        n = max - column;
        cut = true;
    }
    char* line = record->EditLine;
    if (record->Options & InsertMode) {
        if (record->EditLength + n > max) {
            // Trailing spaces give way before any typed character does.
            record->EditLength = TrimLineEnd(line);
            PadEditLine(record);
            if (record->EditLength + n > max) {
                n = max - record->EditLength;
                cut = true;
            }
        }
        if (cut && n < 1) {
            ErrorRequester(record, MessageId::LineTooLong);
            return 0;
        }
        std::memmove(line + column + n, line + column, static_cast<size_t>(record->EditLength - column) + 1);
        std::memcpy(line + column, text, static_cast<size_t>(n));
        record->EditLength += n;
        if (!(record->TextState & Batch) && record->LeftColumn + record->VisibleColumns - column > n)
            ScrollRowRight(record, n);
    } else {
        std::memcpy(line + column, text, static_cast<size_t>(n));
        record->EditLength = std::max(record->EditLength, column + n);
        line[record->EditLength] = '\0';
    }
    DrawAtCursor(record, text, n);
    record->CursorColumn = std::min(column + n, max - 1);
    FollowCursor(record, false);
    if (cut)
        ErrorRequester(record, MessageId::LineTooLong);
    return n;
}

int32_t InsertTextLines(TextRecord* record, char* text, bool countLines)
{
    int32_t taken = 0, lines = 0;
    for (char* piece = text;;) {
        char* newline = std::strchr(piece, '\n');
        if (newline) {
            *newline = '\0';
            ++lines;
            // An empty piece types nothing, yet a block around the cursor
            // is still replaced by the line break.
            if (*piece == '\0')
                DeleteBlockIfCursorInside(record);
        }
        if (*piece != '\0') {
            const auto length = static_cast<int32_t>(std::strlen(piece));
            const int32_t inserted = InsertText(record, piece);
            taken += inserted;
            if (inserted < length)
                break;
        }
        if (!newline)
            break;
        if (record->Options & InsertMode) {
            // A full line keeps the cursor on its last character; the
            // break comes behind it.
            if (record->CursorColumn == record->MaxLineLength - 1)
                record->CursorColumn = record->MaxLineLength;
            if (!SplitLine(record, false))
                break;
            ++taken;
        } else {
            DeleteToLineEnd(record);
            CursorDown(record);
        }
        record->CursorColumn = 0;
        piece = newline + 1;
    }
    return countLines ? lines : taken;
}

void ToggleInsertMode(TextRecord* record)
{
    record->Options ^= InsertMode;
}

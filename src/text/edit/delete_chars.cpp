#include "frame/window/refresh.h"
#include "text/edit/block_marking.h"
#include "text/edit/block_operations.h"
#include "text/edit/cursor_motion.h"
#include "text/edit/edit_current_line.h"
#include "text/edit/line_operations.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/record/char_class.h"
#include "text/record/line_strings.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <cstring>

namespace {

// After the cursor's row moved one cell left: the character that comes in
// at the window's right edge, when the line reaches that far.
void DrawIncomingColumn(TextRecord* record)
{
    const int32_t last = record->LeftColumn + record->VisibleColumns - 1;
    if (record->EditLength > last && !(record->TextState & Batch))
        PaintCells(record, LineIndex(record->CursorLine), ColumnIndex(last), ColumnIndex(last), false);
}

// The character at `offset` from the cursor, 0 on or behind the terminator.
unsigned char CharAt(const TextRecord* record, int32_t offset)
{
    const int32_t column = record->CursorColumn + offset;
    return column < record->EditLength ? static_cast<unsigned char>(record->EditLine[column]) : 0;
}

} // namespace

void DeleteChar(TextRecord* record)
{
    if (DeleteBlockIfCursorInside(record))
        return;
    UnmarkBlock(record);
    const int32_t column = record->CursorColumn;
    if (column >= VisibleLength(record->EditLine)) {
        JoinNextLine(record);
        return;
    }
    char* line = record->EditLine;
    std::memmove(line + column, line + column + 1, static_cast<size_t>(record->EditLength - column));
    --record->EditLength;
    ScrollRowLeft(record);
    DrawIncomingColumn(record);
}

void DeleteBack(TextRecord* record)
{
    UnmarkBlock(record);
    const int32_t column = record->CursorColumn;
    if (column > 0) {
        PadEditLine(record);
        char* line = record->EditLine;
        std::memmove(line + column - 1, line + column, static_cast<size_t>(record->EditLength - column) + 1);
        --record->CursorColumn;
        --record->EditLength;
        if (record->CursorColumn < record->LeftColumn) {
            FollowCursor(record, true);
            return;
        }
        ScrollRowLeft(record);
        DrawIncomingColumn(record);
    } else if (record->CursorLine > 0) {
        CursorUp(record);
        CursorLineEnd(record);
        JoinNextLine(record);
    }
}

void DeleteWordBack(TextRecord* record)
{
    if (record->CursorColumn == 0)
        return;
    PadEditLine(record);
    const unsigned char c = CharAt(record, -1);
    // Each step keeps the cursor above column 0, so no step joins lines.
    auto deleteWhile = [&](auto keepGoing) {
        while (record->CursorColumn > 0 && keepGoing(CharAt(record, -1)))
            DeleteBack(record);
    };
    if (c == ' ')
        deleteWhile([](unsigned char x) { return x == ' '; });
    else if (IsWordChar(c))
        deleteWhile([](unsigned char x) { return IsWordChar(x); });
    else
        deleteWhile([](unsigned char x) { return x != ' ' && !IsWordChar(x); });
}

void DeleteWordForward(TextRecord* record)
{
    const unsigned char c = CharAt(record, 0);
    if (c == ' ') {
        DeleteSpacesForward(record);
    } else if (IsWordChar(c)) {
        while (IsWordChar(CharAt(record, 0)))
            DeleteChar(record);
    } else {
        for (unsigned char x = c; x != 0 && x != ' ' && !IsWordChar(x); x = CharAt(record, 0))
            DeleteChar(record);
    }
}

void DeleteSpacesForward(TextRecord* record)
{
    // Behind the end of the last line the spaces are padding that no
    // deletion takes away: the join finds no line to pull up.
    while (CharAt(record, 0) == ' ') {
        const int32_t length = record->EditLength;
        const int32_t lines = record->LineCount;
        DeleteChar(record);
        if (record->EditLength == length && record->LineCount == lines)
            return;
    }
}

void DeleteToLineEnd(TextRecord* record)
{
    UnmarkBlock(record);
    PadEditLine(record);
    record->EditLength = record->CursorColumn;
    PadEditLine(record);
    RefreshCursorLine(record);
}

void DeleteToLineStart(TextRecord* record)
{
    const int32_t column = record->CursorColumn;
    if (column == 0)
        return;
    UnmarkBlock(record);
    PadEditLine(record);
    char* line = record->EditLine;
    std::memmove(line, line + column, static_cast<size_t>(record->EditLength - column) + 1);
    record->EditLength -= column;
    record->CursorColumn = 0;
    PadEditLine(record);
    if (!FollowCursor(record, true))
        RefreshCursorLine(record);
}

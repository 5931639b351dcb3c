#include "text/edit/cursor_motion.h"

#include "frame/window/refresh.h"
#include "text/edit/viewport.h"
#include "text/edit/viewport_support.h"
#include "text/lines/edit_line.h"
#include "text/record/char_class.h"
#include "text/record/line_strings.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <algorithm>

namespace {

// Moving by word steps over letters and digits only.
bool IsMoveWordChar(char c)
{
    return (CharClass[static_cast<unsigned char>(c)] & (CharUpper | CharLower | CharDigit)) != 0;
}

// A line that can't be stored (no memory) keeps the cursor, so the typed
// line stays in the EditLine instead of being dropped.
void MoveToLine(TextRecord* record, int32_t line)
{
    if (!FlushEditLine(record))
        return;
    LoadEditLine(record, LineIndex{line}, ColumnIndex{record->CursorColumn});
}

} // namespace

void CursorUp(TextRecord* record)
{
    if (record->CursorLine == 0)
        return;
    MoveToLine(record, record->CursorLine - 1);
    if (record->TextState & Batch)
        return;
    // One step past the top edge scrolls one line; a cursor that was out of
    // view already is left to FollowCursor.
    if (record->CursorLine == record->TopLine - 1) {
        ScrollRows(record, -RowPitch(record));
        record->TopLine -= 1;
        RefreshCursorLine(record);
    }
    FollowCursor(record, false);
}

void CursorDown(TextRecord* record)
{
    if (record->CursorLine >= record->LineCount - 1 || !FlushEditLine(record))
        return;
    CursorDownFlushed(record);
}

void CursorDownFlushed(TextRecord* record)
{
    if (record->CursorLine >= record->LineCount - 1)
        return;
    LoadEditLine(record, LineIndex{record->CursorLine + 1}, ColumnIndex{record->CursorColumn});
    if (record->TextState & Batch)
        return;
    if (record->CursorLine == record->TopLine + record->VisibleRows) {
        ScrollRows(record, RowPitch(record));
        record->TopLine += 1;
        RefreshCursorLine(record);
    }
    FollowCursor(record, true);
}

void CursorLeft(TextRecord* record)
{
    if (record->CursorColumn == 0)
        return;
    record->CursorColumn -= 1;
    FollowCursor(record, false);
}

void CursorRight(TextRecord* record)
{
    if (record->CursorColumn >= record->MaxLineLength - 1)
        return;
    PadEditLine(record);
    if (record->CursorColumn == record->EditLength) {
        record->EditLine[record->EditLength++] = ' ';
        record->EditLine[record->EditLength] = '\0';
    }
    record->CursorColumn += 1;
    FollowCursor(record, false);
}

void CursorLineStart(TextRecord* record)
{
    record->CursorColumn = 0;
    FollowCursor(record, false);
}

void CursorFirstNonBlank(TextRecord* record)
{
    record->CursorColumn = std::min(IndentOf(record->EditLine), record->MaxLineLength - 1);
    FollowCursor(record, false);
}

void CursorLineEnd(TextRecord* record)
{
    record->EditLength = TrimLineEnd(record->EditLine);
    record->CursorColumn = std::min(record->EditLength, record->MaxLineLength - 1);
    FollowCursor(record, false);
}

void CursorPrevLineEnd(TextRecord* record)
{
    if (record->CursorLine == 0 || !FlushEditLine(record))
        return;
    LoadEditLine(record, LineIndex{record->CursorLine - 1}, ColumnIndex{0});
    record->CursorColumn = std::min(record->EditLength, record->MaxLineLength - 1);
    FollowCursor(record, false);
}

void CursorNextLineStart(TextRecord* record)
{
    if (record->CursorLine >= record->LineCount - 1 || !FlushEditLine(record))
        return;
    CursorLineStart(record);
    CursorDown(record);
}

void CursorWordLeft(TextRecord* record)
{
    const char* line = record->EditLine;
    int32_t column = record->CursorColumn;
    if (IndentOf(line) >= column) {
        CursorPrevLineEnd(record);
        return;
    }
    int32_t i = column - 1;
    while (i > 0 && !IsMoveWordChar(line[i]))
        --i;
    if (i == 0 || column == 1) {
        if (line[0] == ' ') {
            CursorFirstNonBlank(record);
            return;
        }
        record->CursorColumn = 0;
    } else {
        while (i > 0 && IsMoveWordChar(line[i]))
            --i;
        record->CursorColumn = i == 0 ? 0 : i + 1;
    }
    FollowCursor(record, false);
}

void CursorWordRight(TextRecord* record)
{
    const char* line = record->EditLine;
    int32_t length = record->EditLength;
    int32_t i = record->CursorColumn;
    if (i < length) {
        while (i < length && IsMoveWordChar(line[i]))
            ++i;
        while (i < length && !IsMoveWordChar(line[i]))
            ++i;
    }
    if (i < length) {
        record->CursorColumn = i;
        FollowCursor(record, false);
        return;
    }
    CursorNextLineStart(record);
    CursorFirstNonBlank(record);
}

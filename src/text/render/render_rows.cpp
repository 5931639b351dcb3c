#include "platform/display/intuition.h"
#include "text/record/line_access.h"
#include "text/record/line_strings.h"
#include "text/record/text_record.h"
#include "text/render/render.h"
#include "text/render/render_support.h"

#include <algorithm>
#include <cstring>

namespace {

bool LineInView(const TextRecord* record, int32_t line)
{
    return line >= record->TopLine && line < record->TopLine + record->VisibleRows && line < record->LineCount;
}

// The line's text in the RenderLine, filled with spaces up to MaxLineLength
// so that a row drawn from it covers every old cell. Gives the length
// without trailing spaces.
int32_t BuildRenderLine(TextRecord* record, int32_t line)
{
    const char* text = GetLineText(record, line);
    auto length = static_cast<int32_t>(strnlen(text, static_cast<size_t>(record->MaxLineLength)));
    std::memcpy(record->RenderLine, text, static_cast<size_t>(length));
    // Measured before the padding: scanning back over a whole line of
    // spaces for every row drawn took a fifth of the time of writing lines.
    record->RenderLine[length] = '\0';
    const int32_t visible = VisibleLength(record->RenderLine);
    std::memset(record->RenderLine + length, ' ', static_cast<size_t>(record->MaxLineLength - length));
    record->RenderLine[record->MaxLineLength] = '\0';
    return visible;
}

void DrawRow(TextRecord* record, RastPort* port, int32_t line)
{
    int32_t visible = BuildRenderLine(record, line);
    int32_t left = std::min(record->MaxLineLength - record->LeftColumn, record->VisibleColumns);
    const char* text = record->RenderLine + std::max(record->LeftColumn, 0);
    int32_t baseline = RowBaseline(record, line - record->TopLine);
    for (int32_t offset = 0; left > 0;) {
        int32_t count = PaintRun(record, text, LineIndex{line}, ColumnIndex{record->LeftColumn + offset}, visible);
        if (count < 1)
            break;
        count = std::min(count, left);
        Move(port, ColumnToX(record, offset), baseline);
        Text(port, text, count);
        offset += count;
        text += count;
        left -= count;
    }
}

} // namespace

void DrawRows(TextRecord* record, int32_t first, int32_t count)
{
    RastPort* port = DrawingPort(record);
    if (!port)
        return;
    for (int32_t line = first; line < first + count && LineInView(record, line); ++line)
        DrawRow(record, port, line);
    SetPlainPens(record, port);
}

void PaintCells(TextRecord* record, LineIndex line, ColumnIndex from, ColumnIndex to, bool highlight)
{
    RastPort* port = DrawingPort(record);
    if (!port || !LineInView(record, line.value))
        return;
    int32_t first = std::max(from.value, record->LeftColumn);
    int32_t last = std::min({to.value, record->LeftColumn + record->VisibleColumns - 1, record->MaxLineLength - 1});
    if (first > last)
        return;
    const char* text = GetLineText(record, line.value);
    auto length = static_cast<int32_t>(strnlen(text, static_cast<size_t>(record->MaxLineLength)));
    int32_t count = last - first + 1;
    for (int32_t i = 0; i < count; ++i)
        record->RenderLine[i] = first + i < length ? text[first + i] : ' ';
    record->RenderLine[count] = '\0';
    if (highlight)
        SetBlockPens(record, port);
    else
        SetPlainPens(record, port);
    Move(port, ColumnToX(record, first - record->LeftColumn), RowBaseline(record, line.value - record->TopLine));
    Text(port, record->RenderLine, count);
    SetPlainPens(record, port);
}

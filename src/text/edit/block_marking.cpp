#include "text/edit/block_marking.h"

#include "frame/window/refresh.h"
#include "requesters/file_reports.h"
#include "text/record/block_span.h"
#include "text/record/line_access.h"
#include "text/record/line_strings.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

// A column beyond every line: a stretch that reaches the line's newline is
// coloured to the window's edge.
constexpr int32_t RowEnd = 1 << 30;

struct BlockEnds {
    int32_t StartLine, StartColumn, EndLine, EndColumn;
};

// Columns first .. last of a row; empty when first > last.
struct Stretch {
    int32_t First, Last;
};

// The stretch of a line's row that a block colours, as PaintRun colours it.
Stretch BlockStretch(const BlockEnds* block, int32_t line, int32_t visible)
{
    if (!block)
        return {1, 0};
    const bool startFirst = block->StartLine < block->EndLine || (block->StartLine == block->EndLine && block->StartColumn <= block->EndColumn);
    const int32_t firstLine = startFirst ? block->StartLine : block->EndLine;
    const int32_t lastLine = startFirst ? block->EndLine : block->StartLine;
    const int32_t firstColumn = startFirst ? block->StartColumn : block->EndColumn;
    const int32_t lastColumn = startFirst ? block->EndColumn : block->StartColumn;
    if (line < firstLine || line > lastLine)
        return {1, 0};
    const int32_t from = line == firstLine ? firstColumn : 0;
    if (line != lastLine || lastColumn >= visible)
        return {from, RowEnd};
    return {from, lastColumn};
}

// Paints the cells of `paint` that are not in `keep`.
void PaintDifference(TextRecord* record, int32_t line, Stretch paint, Stretch keep, bool highlight)
{
    auto draw = [&](int32_t from, int32_t to) {
        if (from <= to)
            PaintCells(record, LineIndex(line), ColumnIndex(from), ColumnIndex(to), highlight);
    };
    if (keep.First > keep.Last) {
        draw(paint.First, paint.Last);
        return;
    }
    draw(paint.First, std::min(paint.Last, keep.First - 1));
    draw(std::max(paint.First, keep.Last + 1), paint.Last);
}

// Repaints, on the visible lines `first` .. `last`, the cells whose colour
// differs between the block `before` and the block `after` (null: none).
void RepaintBlockChange(TextRecord* record, const BlockEnds* before, const BlockEnds* after, int32_t first,
    int32_t last)
{
    first = std::max(first, record->TopLine);
    last = std::min({last, record->TopLine + record->VisibleRows - 1, record->LineCount - 1});
    for (int32_t line = first; line <= last; ++line) {
        const int32_t visible = VisibleLength(GetLineText(record, line));
        const Stretch old = BlockStretch(before, line, visible);
        const Stretch now = BlockStretch(after, line, visible);
        PaintDifference(record, line, now, old, true);
        PaintDifference(record, line, old, now, false);
    }
}

// The column a block end takes at the cursor: a cursor at or behind the
// line's visible length stands on its newline.
int32_t CursorBlockColumn(const TextRecord* record)
{
    return std::min(record->CursorColumn, VisibleLength(record->EditLine));
}

// Marks the block on the cursor's line from `from` to `to` and paints it.
void MarkOnCursorLine(TextRecord* record, int32_t from, int32_t to)
{
    const int32_t line = record->CursorLine;
    record->BlockStartLine = record->BlockEndLine = line;
    record->BlockStartColumn = from;
    record->BlockEndColumn = to;
    record->TextState |= BlockMarked;
    const BlockEnds block{line, from, line, to};
    RepaintBlockChange(record, nullptr, &block, line, line);
}

} // namespace

void MarkBlockStart(TextRecord* record)
{
    if (record->TextState & BlockMarked)
        return;
    const int32_t column = CursorBlockColumn(record);
    MarkOnCursorLine(record, column, column);
}

void ExtendBlock(TextRecord* record)
{
    if (!(record->TextState & BlockMarked))
        return;
    const BlockEnds before{record->BlockStartLine, record->BlockStartColumn, record->BlockEndLine,
        record->BlockEndColumn};
    record->BlockEndLine = record->CursorLine;
    record->BlockEndColumn = CursorBlockColumn(record);
    const BlockEnds after{record->BlockStartLine, record->BlockStartColumn, record->BlockEndLine,
        record->BlockEndColumn};
    // Only the lines between the old end and the new one change colour;
    // the start line among them when the end crossed it.
    RepaintBlockChange(record, &before, &after, std::min(before.EndLine, after.EndLine),
        std::max(before.EndLine, after.EndLine));
}

void MarkText(TextRecord* record, const char* text)
{
    UnmarkBlock(record);
    const auto length = static_cast<int32_t>(std::strlen(text));
    if (length > 0)
        MarkOnCursorLine(record, record->CursorColumn, record->CursorColumn + length - 1);
}

void MarkLine(TextRecord* record)
{
    UnmarkBlock(record);
    MarkOnCursorLine(record, 0, VisibleLength(record->EditLine));
}

void UnmarkBlock(TextRecord* record)
{
    BlockSpan span;
    if (GetBlock(record, &span) == 0)
        return;
    record->TextState &= static_cast<uint16_t>(~BlockMarked);
    const int32_t first = std::max(span.FirstLine, record->TopLine);
    if ((record->TextState & WindowOpen) && span.LastLine >= first && first < record->TopLine + record->VisibleRows)
        RefreshRows(record, first, span.LastLine - first + 1);
}

int32_t BlockLineCount(TextRecord* record, bool report)
{
    if (record->TextState & BlockMarked)
        return std::abs(record->BlockEndLine - record->BlockStartLine) + 1;
    if (report)
        ErrorRequester(record, MessageId::NoBlockMarked);
    return 0;
}

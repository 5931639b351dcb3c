#include "platform/display/intuition.h"
#include "text/record/block_span.h"
#include "text/record/text_record.h"
#include "text/render/render.h"
#include "text/render/render_support.h"

#include <cstring>

namespace {

// How far the colour chosen at `column` reaches, and which it is.
struct Run {
    bool block;
    int32_t length; // characters from `column`; `rest` means all of them
};

Run ChooseRun(const TextRecord* record, int32_t line, int32_t column, int32_t visible, int32_t rest)
{
    BlockSpan span;
    if (GetBlock(record, &span) == 0 || line < span.FirstLine || line > span.LastLine)
        return {false, rest};
    if (line > span.FirstLine && line < span.LastLine)
        return {true, rest};
    // On the first line of the block, or the only one: plain up to its start.
    if (line == span.FirstLine && column < span.FirstColumn)
        return {false, span.FirstColumn - column};
    if (line != span.LastLine)
        return {true, rest};
    // On the last line: a block holding the line's end runs to the window's
    // edge; else it stops after LastColumn.
    if (span.LastColumn >= visible)
        return {true, rest};
    if (column <= span.LastColumn)
        return {true, span.LastColumn - column + 1};
    return {false, rest};
}

} // namespace

int32_t PaintRun(TextRecord* record, const char* text, LineIndex line, ColumnIndex column, int32_t visible)
{
    auto rest = static_cast<int32_t>(std::strlen(text));
    Run run = ChooseRun(record, line.value, column.value, visible, rest);
    if (RastPort* port = record->Window ? record->Window->RPort : nullptr) {
        if (run.block)
            SetBlockPens(record, port);
        else
            SetPlainPens(record, port);
    }
    return run.length < rest ? run.length : rest;
}

#include "text/record/block_span.h"

#include "text/record/line_access.h"
#include "text/record/line_strings.h"
#include "text/record/text_record.h"

#include <algorithm>

int32_t GetBlock(const TextRecord* record, BlockSpan* span)
{
    if (!(record->TextState & BlockMarked))
        return 0;
    int32_t startLine = record->BlockStartLine, startColumn = record->BlockStartColumn;
    int32_t endLine = record->BlockEndLine, endColumn = record->BlockEndColumn;
    if (startLine == endLine) {
        *span = {startLine, startLine, std::min(startColumn, endColumn), std::max(startColumn, endColumn)};
        return 1;
    }
    if (startLine < endLine)
        *span = {startLine, endLine, startColumn, endColumn};
    else
        *span = {endLine, startLine, endColumn, startColumn};
    return span->LastLine - span->FirstLine + 1;
}

int32_t TestInBlock(const TextRecord* record, int32_t line, int32_t column)
{
    BlockSpan span;
    if (GetBlock(record, &span) == 0)
        return -1;
    if (line < span.FirstLine || line > span.LastLine)
        return 0;
    if (line == span.FirstLine && column < span.FirstColumn)
        return 0;
    if (line != span.LastLine)
        return 1;
    if (span.LastColumn >= VisibleLength(GetLineText(record, line)))
        return 1;
    return column <= span.LastColumn ? 1 : 0;
}

#include "text/edit/block_operations.h"
#include "text/record/block_span.h"
#include "text/record/line_access.h"
#include "text/record/line_strings.h"
#include "text/record/text_record.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

// Calls `take(text, count, newline)` for each line of the block in order:
// `count` characters from `text`, then a newline when the block holds the
// line's end. Columns are cut at the line's visible length, so a block
// whose columns went stale never reaches past a terminator; trailing
// spaces of the EditLine are padding, not text.
template <typename Take>
void ForEachBlockPiece(const TextRecord* record, Take take)
{
    BlockSpan span;
    if (GetBlock(record, &span) == 0)
        return;
    const int32_t lastLine = ClampLine(record, span.LastLine);
    for (int32_t line = ClampLine(record, span.FirstLine); line <= lastLine; ++line) {
        const char* text = GetLineText(record, line);
        const int32_t length = VisibleLength(text);
        const int32_t from = line == span.FirstLine ? std::min(span.FirstColumn, length) : 0;
        const bool newline = line != lastLine || span.LastColumn >= length;
        const int32_t to = newline ? length : span.LastColumn + 1;
        take(text + from, std::max(to - from, 0), newline);
    }
}

} // namespace

int32_t BlockTextLength(const TextRecord* record)
{
    int32_t length = 0;
    ForEachBlockPiece(record, [&](const char*, int32_t count, bool newline) { length += count + newline; });
    return length;
}

void CopyBlockText(const TextRecord* record, char* buffer, int32_t length)
{
    char* end = buffer + length;
    ForEachBlockPiece(record, [&](const char* text, int32_t count, bool newline) {
        const auto n = std::min<std::ptrdiff_t>(count, end - buffer);
        std::memcpy(buffer, text, static_cast<size_t>(n));
        buffer += n;
        if (newline && buffer < end)
            *buffer++ = '\n';
    });
}

#pragma once
// The block in sorted form. The record keeps the block as the end where
// marking began and the moving end, in either order; these give it sorted.
#include <cstdint>

struct TextRecord;

// Both columns are inclusive. LastColumn at or beyond the visible length of
// LastLine means the block holds that line's newline.
struct BlockSpan {
    int32_t FirstLine;
    int32_t LastLine;
    int32_t FirstColumn;
    int32_t LastColumn;
};

// Sorts the ends by line; on one line the columns are sorted too. Gives the
// number of lines of the block, 0 (and `span` untouched) without a block.
int32_t GetBlock(const TextRecord* record, BlockSpan* span);

// -1 without a block, 1 when the character at `line`, `column` is in the
// block, else 0. Any column of the last line counts as inside when the
// block holds that line's newline.
int32_t TestInBlock(const TextRecord* record, int32_t line, int32_t column);

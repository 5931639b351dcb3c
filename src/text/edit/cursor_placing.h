#pragma once
// Putting the cursor at a position: absolute, by a cell of the viewport,
// at a bookmark (possibly of another text), or at an end of the block.
#include "text/record/text_position.h"

#include <cstdint>

struct TextRecord;
struct Bookmark;

// On another line: flush, load (line and column clamped) and follow. On
// the same line only the column changes (the line is padded up to it) and
// the viewport does not move, so the cursor may stay out of view until
// the next FollowCursor. `line` must be a line of the text.
void SetCursor(TextRecord* record, ColumnIndex column, LineIndex line);

// The cursor to the cell `column`, `row` of the viewport, clamped to the
// text; cells outside the window are allowed and make the viewport follow
// (by the left button's rules while it is held). True when it repainted.
bool SetCursorOnRow(TextRecord* record, int32_t column, int32_t row);

// A text-area cell from window pixels; -1 for a position left of or above
// the area. Needs a window.
struct MouseCell {
    int32_t Column;
    int32_t Row;
};
MouseCell CellOfPosition(const TextRecord* record, int32_t x, int32_t y);

// To a bookmark of this text: the window comes back and to the front if
// needed, the cursor goes to the clamped position and is brought into
// view. False for another text's bookmark or when no window can be had.
bool GotoPosition(TextRecord* record, const Bookmark* bookmark);

// To the block's start (`start`) or its moving end, by GotoPosition.
// Without a block: "No block is marked".
void GotoBlockEnd(TextRecord* record, bool start);

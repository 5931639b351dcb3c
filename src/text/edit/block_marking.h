#pragma once
// Marking the block and painting its changes. The block is a run of
// characters between two ends, across line ends; the moving end follows
// the cursor and may lie before the start (GetBlock sorts them, see
// block_span.h). A block is never empty: it holds at least the character
// at its start, or that line's newline. A cursor at or behind the visible
// length of its line counts as standing on the line's newline.
#include <cstdint>

struct TextRecord;

// Starts a block at the cursor, both ends on its cell; nothing when a
// block is marked already, so marking goes on.
void MarkBlockStart(TextRecord* record);
// After the cursor moved: the moving end goes to the cursor and only the
// cells whose colour changed are repainted.
void ExtendBlock(TextRecord* record);
// The block covers `text` at the cursor (what a search found, a double
// clicked word). Nothing but unmarking for an empty text.
void MarkText(TextRecord* record, const char* text);
// The block is the cursor's line with its newline.
void MarkLine(TextRecord* record);
// Drops the block and repaints its visible rows. Nothing without a block.
void UnmarkBlock(TextRecord* record);

// Lines in the block, 0 without one; then with `report` "No block is
// marked" is shown first.
int32_t BlockLineCount(TextRecord* record, bool report);

#pragma once
// What is done with a marked block: its text, deleting, writing to a file,
// indenting and changing case. Without a block each command shows "No
// block is marked" and changes nothing.
#include <cstdint>

struct TextRecord;

// Bytes of the block with a newline for each line end it holds; at least
// 1. Stops at a line's end when the block's columns have gone stale.
int32_t BlockTextLength(const TextRecord* record);
// The block's bytes into `buffer` (`length` from BlockTextLength), without
// a terminator. The EditLine counts for the cursor's line.
void CopyBlockText(const TextRecord* record, char* buffer, int32_t length);

// Removes the block's text; the text after it joins at its start, where
// the cursor goes. False without a block. When the two halves together
// exceed MaxLineLength they stay two lines after "Line too long".
bool DeleteBlock(TextRecord* record);
// DeleteBlock when the cursor is inside the block; true when it ran.
bool DeleteBlockIfCursorInside(TextRecord* record);

// Writes the block's bytes as they are to the file `name`, replacing it.
// False after the report of what failed; the block stays marked.
bool WriteBlockToFile(TextRecord* record, const char* name);

// Shifts every line of the block by TabSize columns, right (`direction`
// above 0) by inserting leading spaces, left by removing at most TabSize of
// them. The block stays on the same characters. A line that would exceed
// MaxLineLength stays as it is after "Line too long".
void IndentBlock(TextRecord* record, int32_t direction);

// In a block: the case of every character of the block changes; the block
// stays. Else the character under the cursor changes and the cursor stays.
void ChangeCase(TextRecord* record, bool upper);

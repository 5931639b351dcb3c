#pragma once
// The buffered writer of a save: whole lines gathered in the record's file
// block (FileBuffer, FileLimit its size, FileCursor where the next line
// goes, FilePosition bytes waiting), one write for each filled block.
#include <cstdint>

struct TextRecord;

// Adds `length` bytes of `text` and a newline. When they don't fit behind
// the waiting bytes, those are written out first. A line longer than the
// whole block is written straight from `text` in one piece, its newline
// gathered after it. False when a write fails (IoErr tells why); what was
// waiting is then lost.
bool PutLine(TextRecord* record, int fd, const char* text, int32_t length);

// Room at FileCursor for a line of up to `length` bytes and its newline,
// the waiting bytes written out first when they leave less; `length` + 1
// must fit the block. The caller puts the line there and counts it with
// LineAdded: so a line can be made in the block itself rather than copied
// in. Null when the write fails (IoErr tells why).
char* LineRoom(TextRecord* record, int fd, int32_t length);
// Counts a line of `length` bytes just put at FileCursor and adds its
// newline.
void LineAdded(TextRecord* record, int32_t length);

// Writes the waiting bytes out; false when that fails.
bool FlushFileBlock(TextRecord* record, int fd);

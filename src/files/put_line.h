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

// Writes the waiting bytes out; false when that fails.
bool FlushFileBlock(TextRecord* record, int fd);

#pragma once
// The buffered writer of a save: whole lines gathered in the record's file
// block (FileBuffer, FileLimit its size, FileCursor where the next line
// goes, FilePosition bytes waiting), one write for each filled block.
#include "text/record/text_record.h"

#include <cstdint>

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
// in. Null when the write fails (IoErr tells why). Inline, as a save calls
// it for every line.
inline char* LineRoom(TextRecord* record, int fd, int32_t length);
// Counts a line of `length` bytes just put at FileCursor and adds its
// newline.
inline void LineAdded(TextRecord* record, int32_t length);

// Writes the waiting bytes out; false when that fails.
bool FlushFileBlock(TextRecord* record, int fd);

inline char* LineRoom(TextRecord* record, int fd, int32_t length)
{
    if (record->FilePosition + length + 1 > record->FileLimit && !FlushFileBlock(record, fd))
        return nullptr;
    return record->FileCursor;
}

inline void LineAdded(TextRecord* record, int32_t length)
{
    record->FileCursor += length;
    *record->FileCursor++ = '\n';
    record->FilePosition += length + 1;
}

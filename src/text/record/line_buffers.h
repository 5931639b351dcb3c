#pragma once
// The four line buffers of a text and the longest line they hold.
#include <cstdint>

struct TextRecord;

enum class LineLengthChange {
    Raised,       // new buffers in place, MaxLineLength is the new value
    Unchanged,    // the same value: nothing to do
    CannotReduce, // a smaller value: refused, the caller says so
    NoMemory,     // refused after ReportNoMemory
};

// A larger value gets a new, cleared block of the four line buffers; the
// EditLine and the RecallLine move into it (WorkLine and RenderLine are
// scratch), and the old block is freed. Only this text changes.
LineLengthChange SetMaxLineLength(TextRecord* record, int32_t length);

// Allocates the cleared block of the four line buffers for `length`
// characters each and points the record's buffers into it; the old block
// is the caller's. False without a report when it can't be had (also when
// `length` is below 1 or too large to address).
bool AllocLineBuffers(TextRecord* record, int32_t length);

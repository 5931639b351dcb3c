#pragma once
// Helpers of the text tests: a fresh record per test, texts built line by
// line, the record's invariants, and allocation failures on demand.
#include "text/text_record.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

struct RecordFree {
    void operator()(TextRecord* record) const;
};
using RecordPtr = std::unique_ptr<TextRecord, RecordFree>;

// A record as a new text gets it, in the directory "/texts".
RecordPtr NewRecord();

// Replaces the text by `lines` as a load would (stored one by one) and puts
// the cursor at 0/0. The text must be fresh or reset.
void FillLines(TextRecord* record, std::initializer_list<const char*> lines);

// The stored entries in use; a null entry shows as "<null>".
std::vector<std::string> StoredLines(const TextRecord* record);

// Everything a waiting text must satisfy: line counts, stored strings
// (non-empty, no trailing space, no newline, not longer than the limit),
// cursor bounds, EditLength and the zeroed tail of the EditLine, the
// layout of the four buffers.
testing::AssertionResult CheckInvariants(const TextRecord* record);

// After `count` more successful allocations every allocation fails, until
// the guard goes.
class FailAllocationsAfter {
public:
    explicit FailAllocationsAfter(long count);
    ~FailAllocationsAfter();
    FailAllocationsAfter(const FailAllocationsAfter&) = delete;
    FailAllocationsAfter& operator=(const FailAllocationsAfter&) = delete;
};

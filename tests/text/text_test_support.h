#pragma once
// Helpers of the text tests: a fresh record per test, texts stored line by
// line, the record's invariants, and allocation failures on demand.
#include "text/record/text_record.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

struct RecordFree {
    void operator()(TextRecord* record) const;
};
using RecordPtr = std::unique_ptr<TextRecord, RecordFree>;
using Lines = std::vector<std::string>;

// A record as a new text gets it, in the directory "/texts".
RecordPtr NewRecord();
// Stores `lines` as a load does and puts the cursor at 0/0.
void FillLines(TextRecord* record, const Lines& lines);
// The stored lines, empty ones as "".
Lines StoredLines(const TextRecord* record);
// Everything a waiting text must satisfy: line counts, stored strings,
// cursor bounds, EditLength, the zeroed tail of the EditLine, the buffers.
testing::AssertionResult CheckInvariants(const TextRecord* record);

// The reports shown while the guard lives, by message id, in place of
// their requesters.
struct ReportsCaught {
    ReportsCaught();
    ~ReportsCaught();
    ReportsCaught(const ReportsCaught&) = delete;
    ReportsCaught& operator=(const ReportsCaught&) = delete;
    std::vector<int> Ids() const;
};

// After `count` more successful allocations every allocation fails, until
// the guard goes.
struct FailAllocationsAfter {
    explicit FailAllocationsAfter(long count);
    ~FailAllocationsAfter();
};

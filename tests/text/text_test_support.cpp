#include "text_test_support.h"

#include "platform/exec/memory.h"
#include "text/create_text_record.h"
#include "text/edit_line.h"
#include "text/line_table.h"

#include <cstring>

void RecordFree::operator()(TextRecord* record) const
{
    FreeTextRecord(record);
}

RecordPtr NewRecord()
{
    RecordPtr record(CreateTextRecord("/texts"));
    EXPECT_NE(record, nullptr);
    return record;
}

void FillLines(TextRecord* record, std::initializer_list<const char*> lines)
{
    record->LineCount = 0;
    for (const char* line : lines) {
        std::strcpy(record->WorkLine, line);
        ASSERT_TRUE(StoreLine(record, record->WorkLine, record->LineCount));
        ++record->LineCount;
    }
    LoadEditLine(record, LineIndex(0), ColumnIndex(0));
}

std::vector<std::string> StoredLines(const TextRecord* record)
{
    std::vector<std::string> lines;
    for (int32_t i = 0; i < record->LineCount; ++i) {
        const char* text = record->LineTable[i];
        lines.emplace_back(text != nullptr ? text : "<null>");
    }
    return lines;
}

testing::AssertionResult CheckInvariants(const TextRecord* record)
{
    const int32_t max = record->MaxLineLength;
    if (record->LineCount < 1 || record->LineCount > record->LineCapacity) {
        return testing::AssertionFailure() << "LineCount " << record->LineCount << " of " << record->LineCapacity;
    }
    for (int32_t i = 0; i < record->LineCount; ++i) {
        const char* text = record->LineTable[i];
        if (text == nullptr) {
            continue;
        }
        const size_t length = std::strlen(text);
        if (length == 0 || text[length - 1] == ' ' || std::strchr(text, '\n') != nullptr ||
            length > static_cast<size_t>(max)) {
            return testing::AssertionFailure() << "line " << i << " stored as \"" << text << "\"";
        }
    }
    if (record->CursorLine < 0 || record->CursorLine >= record->LineCount || record->CursorColumn < 0 ||
        record->CursorColumn >= max) {
        return testing::AssertionFailure() << "cursor at " << record->CursorColumn << "/" << record->CursorLine;
    }
    if (record->EditLength < 0 || record->EditLength > max ||
        static_cast<size_t>(record->EditLength) != std::strlen(record->EditLine)) {
        return testing::AssertionFailure() << "EditLength " << record->EditLength << " for \"" << record->EditLine
                                           << "\"";
    }
    for (int32_t i = record->EditLength; i <= max; ++i) {
        if (record->EditLine[i] != '\0') {
            return testing::AssertionFailure() << "EditLine byte " << i << " behind the terminator is not 0";
        }
    }
    const char* buffers[] = {record->EditLine, record->RecallLine, record->WorkLine, record->RenderLine};
    for (int i = 1; i < 4; ++i) {
        if (buffers[i] != buffers[0] + i * (max + 1)) {
            return testing::AssertionFailure() << "line buffer " << i << " out of place";
        }
    }
    if (std::strlen(record->RecallLine) > static_cast<size_t>(max)) {
        return testing::AssertionFailure() << "RecallLine longer than the limit";
    }
    return testing::AssertionSuccess();
}

FailAllocationsAfter::FailAllocationsAfter(long count)
{
    SetAllocationFailureCountdown(count);
}

FailAllocationsAfter::~FailAllocationsAfter()
{
    SetAllocationFailureCountdown(-1);
}

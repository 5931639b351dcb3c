#include "text_test_support.h"

#include "platform/exec/memory.h"
#include "requesters/file_reports.h"
#include "requesters/no_memory.h"
#include "text/lines/edit_line.h"
#include "text/record/create_text_record.h"
#include "text/record/line_access.h"
#include "text/record/line_table.h"
#include "text/record/no_memory_report.h"

#include <cstring>

namespace {

std::vector<int> Caught;

void CatchReport(TextRecord*, MessageId message, const char*) { Caught.push_back(static_cast<int>(message)); }
int RefuseQuestion(TextRecord*, MessageId) { return -1; }
int CancelFile(TextRecord*, MessageId, const char*, const char*, char*) { return 0; }

constexpr FileDialogs Catching{CatchReport, RefuseQuestion, CancelFile};

} // namespace

ReportsCaught::ReportsCaught()
{
    Caught.clear();
    SetFileDialogs(&Catching);
    // The record reports through the hook the program fills at start.
    SetNoMemoryReport(NoMemoryRequester);
}

ReportsCaught::~ReportsCaught()
{
    SetNoMemoryReport(nullptr);
    SetFileDialogs(nullptr);
}

std::vector<int> ReportsCaught::Ids() const
{
    return Caught;
}

void RecordFree::operator()(TextRecord* record) const { FreeTextRecord(record); }

RecordPtr NewRecord()
{
    RecordPtr record(CreateTextRecord("/texts"));
    EXPECT_NE(record, nullptr);
    return record;
}

void FillLines(TextRecord* record, const Lines& lines)
{
    for (EmptyLineTable(record); const std::string& line : lines) {
        std::strcpy(record->WorkLine, line.c_str());
        ASSERT_TRUE(StoreLine(record, record->WorkLine, record->LineCount));
    }
    LoadEditLine(record, LineIndex(0), ColumnIndex(0));
}

Lines StoredLines(const TextRecord* record)
{
    Lines lines;
    for (int32_t i = 0; i < record->LineCount; ++i) {
        lines.emplace_back(StoredLineText(record, i));
    }
    return lines;
}

testing::AssertionResult CheckInvariants(const TextRecord* r)
{
    const int32_t max = r->MaxLineLength;
    if (r->LineCount < 1 || r->RunCount < 1 || r->RunCount > r->RunCapacity) {
        return testing::AssertionFailure() << "LineCount " << r->LineCount << " in " << r->RunCount << " runs of "
                                           << r->RunCapacity;
    }
    // Runs follow one another without a gap or an overlap, and together
    // hold LineCount lines.
    for (int32_t run = 0, line = 0; run < r->RunCount; line += r->LineTable[run++].Count) {
        const LineRun& here = r->LineTable[run];
        if (here.FirstLine != line || here.Count < 1 || (run == r->RunCount - 1 && line + here.Count != r->LineCount)) {
            return testing::AssertionFailure() << "run " << run << " at line " << here.FirstLine << " of "
                                               << here.Count << " where line " << line << " was due";
        }
    }
    for (int32_t i = 0; i < r->LineCount; ++i) {
        const char* text = StoredLineText(r, i);
        const size_t length = std::strlen(text);
        if (length > size_t(max) || (length > 0 && text[length - 1] == ' ') || std::strchr(text, '\n')) {
            return testing::AssertionFailure() << "line " << i << " stored as \"" << text << "\"";
        }
    }
    if (r->CursorLine < 0 || r->CursorLine >= r->LineCount || r->CursorColumn < 0 || r->CursorColumn >= max) {
        return testing::AssertionFailure() << "cursor at " << r->CursorColumn << "/" << r->CursorLine;
    }
    if (r->EditLength < 0 || r->EditLength > max || size_t(r->EditLength) != std::strlen(r->EditLine)) {
        return testing::AssertionFailure() << "EditLength " << r->EditLength << " of \"" << r->EditLine << "\"";
    }
    for (int32_t i = r->EditLength; i <= max; ++i) {
        if (r->EditLine[i] != '\0') {
            return testing::AssertionFailure() << "EditLine byte " << i << " behind the terminator is not 0";
        }
    }
    const size_t part = size_t(max) + 1;
    if (r->RecallLine != r->EditLine + part || r->WorkLine != r->RecallLine + part ||
        r->RenderLine != r->WorkLine + part || std::strlen(r->RecallLine) > size_t(max)) {
        return testing::AssertionFailure() << "line buffers out of place";
    }
    return testing::AssertionSuccess();
}

FailAllocationsAfter::FailAllocationsAfter(long count) { SetAllocationFailureCountdown(count); }
FailAllocationsAfter::~FailAllocationsAfter() { SetAllocationFailureCountdown(-1); }

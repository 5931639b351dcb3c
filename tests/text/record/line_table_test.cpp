#include "../text_test_support.h"

#include "text/lines/edit_line.h"
#include "text/record/line_access.h"
#include "text/record/line_table.h"

#include <algorithm>
#include <cstring>
#include <random>

namespace {

// Appends `text` as a new last line, as a load does.
bool AppendLine(TextRecord* record, const std::string& text)
{
    std::strcpy(record->WorkLine, text.c_str());
    return StoreLine(record, record->WorkLine, record->LineCount);
}

bool ReplaceLine(TextRecord* record, int32_t line, const std::string& text)
{
    std::strcpy(record->WorkLine, text.c_str());
    return StoreLine(record, record->WorkLine, line);
}

Lines Numbered(int from, int to)
{
    Lines lines;
    for (int i = from; i < to; ++i)
        lines.push_back("line " + std::to_string(i) + std::string(static_cast<size_t>(i % 5), 'x'));
    return lines;
}

RecordPtr Loaded(const Lines& lines)
{
    RecordPtr record = NewRecord();
    EmptyLineTable(record.get());
    for (const std::string& line : lines)
        EXPECT_TRUE(AppendLine(record.get(), line));
    return record;
}

} // namespace

TEST(LineTable, LoadedLinesShareRunsAndReadBackInAnyOrder)
{
    const Lines lines = Numbered(0, 100);
    RecordPtr record = Loaded(lines);
    EXPECT_EQ(record->RunCount, 4);   // 32 + 32 + 32 + 4 lines
    EXPECT_EQ(StoredLines(record.get()), lines);
    for (int32_t line : {99, 0, 64, 63, 31, 32, 7, 6, 98}) {
        EXPECT_EQ(StoredLineText(record.get(), line), lines[static_cast<size_t>(line)]) << line;
    }
    EXPECT_TRUE(CheckInvariants(record.get()));
}

// Every change of the table against a plain list of strings, at random
// places: inside runs, at their edges and across them, with lookups in
// between that the next change must not trust.
TEST(LineTable, ChangesMatchAListOfStrings)
{
    Lines model = Numbered(0, 300);
    model[17] = "";
    model[40] = "";
    RecordPtr record = Loaded(model);
    TextRecord* text = record.get();
    std::mt19937 random(11);
    auto below = [&](int32_t n) { return static_cast<int32_t>(random() % static_cast<uint32_t>(n)); };
    for (int step = 0; step < 3000; ++step) {
        SCOPED_TRACE(step);
        const auto count = static_cast<int32_t>(model.size());
        StoredLineText(text, below(count));   // a lookup to go stale
        switch (below(8)) {
        case 0: {
            const int32_t line = below(count);
            const std::string value = below(4) == 0 ? "" : "changed " + std::to_string(step);
            ASSERT_TRUE(ReplaceLine(text, line, value + "  "));
            model[static_cast<size_t>(line)] = value;
            break;
        }
        case 1: {
            const int32_t at = below(count + 1);
            ASSERT_TRUE(EnsureLineRoom(text, InsertLineRoom));
            InsertEmptyLine(text, at);
            model.insert(model.begin() + at, "");
            break;
        }
        case 2: {
            if (count < 3)
                break;
            const int32_t first = below(count - 1);
            const int32_t n = 1 + below(std::min(count - 1 - first, 40));
            DropLines(text, first, n);
            model.erase(model.begin() + first, model.begin() + first + n);
            break;
        }
        case 3: {
            const int32_t first = below(count);
            const int32_t middle = first + below(count - first + 1);
            const int32_t end = middle + below(count - middle + 1);
            ASSERT_TRUE(EnsureLineRoom(text, InsertLineRoom));
            RotateLines(text, first, middle, end);
            std::rotate(model.begin() + first, model.begin() + middle, model.begin() + end);
            break;
        }
        case 4: {
            const int32_t first = below(count);
            const int32_t n = 1 + below(std::min(count - first, 50));
            std::vector<char*> strings(static_cast<size_t>(n));
            GetLineStrings(text, first, n, strings.data());
            std::reverse(strings.begin(), strings.end());
            ASSERT_TRUE(PutLineStrings(text, first, n, strings.data()));
            std::reverse(model.begin() + first, model.begin() + first + n);
            break;
        }
        case 5: {
            // Written at the end as a typist does: an empty line first,
            // then its text.
            const std::string value = "written " + std::to_string(step);
            ASSERT_TRUE(EnsureLineRoom(text, InsertLineRoom));
            InsertEmptyLine(text, count);
            ASSERT_TRUE(ReplaceLine(text, count, value));
            model.push_back(value);
            break;
        }
        default: {
            const std::string value = "appended " + std::to_string(step);
            ASSERT_TRUE(AppendLine(text, value));
            model.push_back(value);
            break;
        }
        }
        ASSERT_EQ(StoredLines(text), model);
        ASSERT_TRUE(CheckInvariants(text));
    }
}

TEST(LineTable, DroppingInsideARunKeepsItsNeighbours)
{
    RecordPtr record = Loaded(Numbered(0, 32));
    DropLines(record.get(), 5, 10);
    DropLines(record.get(), 0, 2);
    DropLines(record.get(), 18, 2);
    Lines expected = Numbered(2, 5);
    for (const std::string& line : Numbered(15, 30))
        expected.push_back(line);
    EXPECT_EQ(StoredLines(record.get()), expected);
    EXPECT_EQ(record->RunCount, 1);
    ASSERT_TRUE(AppendLine(record.get(), "behind"));
    EXPECT_EQ(StoredLineText(record.get(), record->LineCount - 1), std::string("behind"));
}

// Writes `text` into the empty line that `InsertEmptyLine` adds at the
// end, and adds the next one, as a line break at the end of a text does.
void WriteAtEnd(TextRecord* record, const std::string& text)
{
    ASSERT_TRUE(ReplaceLine(record, record->LineCount - 1, text));
    ASSERT_TRUE(EnsureLineRoom(record, InsertLineRoom));
    InsertEmptyLine(record, record->LineCount);
}

size_t LoadedBytesUsed(const TextRecord* record)
{
    return record->LoadedText ? record->LoadedText->Used : 0;
}

TEST(LineTable, LinesWrittenAtTheEndJoinTheLoadedText)
{
    RecordPtr record = NewRecord();
    const Lines lines = Numbered(0, 100);
    for (const std::string& line : lines)
        WriteAtEnd(record.get(), line);
    Lines expected = lines;
    expected.push_back("");
    EXPECT_EQ(StoredLines(record.get()), expected);
    EXPECT_EQ(record->RunCount, 5) << "four runs of loaded lines and the empty last line";
    EXPECT_TRUE(CheckInvariants(record.get()));
}

// The last line written, changed or deleted and written again: the bytes
// of its old copy go back each time, so the loaded text doesn't grow.
TEST(LineTable, TheLastLoadedCopyGoesBackWhenItsLineChangesOrGoes)
{
    RecordPtr record = NewRecord();
    TextRecord* text = record.get();
    for (const std::string& line : Numbered(0, 40))
        WriteAtEnd(text, line);
    const size_t used = LoadedBytesUsed(text);
    for (int round = 0; round < 50; ++round) {
        SCOPED_TRACE(round);
        const int32_t written = text->LineCount - 2;
        switch (round % 3) {
        case 0:   // the line deleted
            DropLines(text, written, 1);
            break;
        case 1:   // the line and the empty one behind it, over two runs
            DropLines(text, written, 2);
            InsertEmptyLine(text, text->LineCount);
            break;
        default:   // the line changed to another length
            ASSERT_TRUE(ReplaceLine(text, written, "changed"));
            DropLines(text, written, 1);
            break;
        }
        WriteAtEnd(text, "line 39xxxx");
        ASSERT_EQ(LoadedBytesUsed(text), used);
    }
    Lines expected = Numbered(0, 40);
    expected.push_back("");
    EXPECT_EQ(StoredLines(text), expected);
    EXPECT_TRUE(CheckInvariants(text));
}

TEST(LineTable, NoLineLeftGivesTheLoadedTextBack)
{
    RecordPtr record = Loaded(Numbered(0, 70));
    ASSERT_TRUE(ReplaceLine(record.get(), 3, "own string"));
    ASSERT_NE(record->LoadedText, nullptr);
    DropLines(record.get(), 0, record->LineCount);
    EXPECT_EQ(record->LoadedText, nullptr);
    EXPECT_EQ(record->RunCount, 0);
    InsertEmptyLine(record.get(), 0);
    EXPECT_EQ(StoredLines(record.get()), Lines{""});
}

TEST(LineTable, LoadOutgrowingItsBlockStartsAnother)
{
    RecordPtr record = NewRecord();
    EmptyLineTable(record.get());
    ASSERT_TRUE(ReserveLoadedText(record.get(), 20));
    const Lines lines = Numbered(0, 10);
    for (const std::string& line : lines)
        ASSERT_TRUE(AppendLine(record.get(), line));
    EXPECT_NE(record->LoadedText->Next, nullptr);
    EXPECT_EQ(StoredLines(record.get()), lines);
    EXPECT_TRUE(CheckInvariants(record.get()));
}

TEST(StoreLine, NoMemoryLeavesTheTextUnchanged)
{
    RecordPtr record = Loaded(Numbered(0, 40));
    LoadEditLine(record.get(), LineIndex(0), ColumnIndex(0));
    std::string text = "z";
    // Replacing lines in the middle of runs uses up the spare runs.
    for (int32_t line = 1; record->RunCount + LineChangeRuns <= record->RunCapacity; line += 2)
        ASSERT_TRUE(ReplaceLine(record.get(), line, "own " + std::to_string(line)));
    const Lines before = StoredLines(record.get());
    const LineRun* table = record->LineTable;
    ReportsCaught reports;
    {
        FailAllocationsAfter noMemory(0);
        EXPECT_FALSE(ReplaceLine(record.get(), 30, text));
        EXPECT_FALSE(AppendLine(record.get(), text));
    }
    EXPECT_EQ(reports.Ids(), (std::vector<int>{218, 218})) << "Not enough memory, twice";
    EXPECT_EQ(record->LineTable, table);
    EXPECT_EQ(StoredLines(record.get()), before);
    EXPECT_TRUE(CheckInvariants(record.get()));
    ASSERT_TRUE(EnsureLineRoom(record.get(), InsertLineRoom));
    EXPECT_GE(record->RunCapacity, record->RunCount + LineChangeRuns + InsertLineRoom);
}

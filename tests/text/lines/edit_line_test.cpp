#include "../text_test_support.h"

#include "text/lines/edit_line.h"
#include "text/record/line_access.h"
#include "text/record/line_strings.h"

#include <cstring>

namespace {

// Types `text` at the cursor the way line editing does: pad, then write.
void TypeAtCursor(TextRecord* record, const char* text)
{
    PadEditLine(record);
    for (const char* c = text; *c != '\0'; ++c) {
        record->EditLine[record->CursorColumn++] = *c;
        record->EditLength = std::max(record->EditLength, record->CursorColumn);
    }
}

} // namespace

TEST(FlushEditLine, UnchangedLineCostsNothing)
{
    RecordPtr record = NewRecord();
    const std::string full(255, 'm');
    FillLines(record.get(), {"alpha", "", full.c_str()});
    const int32_t visits[][2] = {{0, 5}, {0, 40}, {1, 0}, {1, 12}, {2, 300}};
    for (const auto& visit : visits) {
        LoadEditLine(record.get(), LineIndex(visit[0]), ColumnIndex(visit[1]));
        // Spaces typed behind the text vanish in the flush and change nothing;
        // on a full line the cursor rests on the last character.
        TypeAtCursor(record.get(), visit[0] == 2 ? "" : "   ");
        FailAllocationsAfter noMemory(0);
        EXPECT_TRUE(FlushEditLine(record.get())) << "line " << visit[0];
        EXPECT_TRUE(CheckInvariants(record.get()));
    }
    EXPECT_EQ(record->CursorColumn, 254);
    EXPECT_EQ(record->Modified, 0);
    EXPECT_EQ(StoredLines(record.get()), (Lines{"alpha", "", full}));
}

TEST(FlushEditLine, ChangedLineIsStoredTrimmed)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"alpha", "beta", "  gone"});
    LoadEditLine(record.get(), LineIndex(1), ColumnIndex(8));
    TypeAtCursor(record.get(), "x  ");
    ASSERT_TRUE(FlushEditLine(record.get()));
    EXPECT_STREQ(record->EditLine, "beta    x");
    EXPECT_EQ(record->CursorColumn, 11);   // behind the text after a flush
    EXPECT_TRUE(CheckInvariants(record.get()));
    EXPECT_EQ(record->Modified, 1);
    EXPECT_EQ(record->LastEditColumn, 11);

    TypeAtCursor(record.get(), "y");   // pads first: lands at the cursor
    ASSERT_TRUE(FlushEditLine(record.get()));
    // A line blanked out is stored as null, never as an empty string.
    LoadEditLine(record.get(), LineIndex(2), ColumnIndex(0));
    std::memset(record->EditLine, ' ', static_cast<size_t>(record->EditLength));
    ASSERT_TRUE(FlushEditLine(record.get()));
    EXPECT_EQ(StoredLines(record.get()), (Lines{"alpha", "beta    x  y", ""}));
    EXPECT_TRUE(CheckInvariants(record.get()));
}

TEST(FlushEditLine, NoMemoryKeepsTheOldEntry)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"old"});
    TypeAtCursor(record.get(), "news");
    ReportsCaught reports;
    {
        FailAllocationsAfter noMemory(0);
        EXPECT_FALSE(FlushEditLine(record.get()));
    }
    EXPECT_EQ(reports.Ids(), std::vector<int>{218}) << "Not enough memory";
    EXPECT_EQ(StoredLines(record.get()), Lines{"old"});
    EXPECT_STREQ(record->EditLine, "news");
    EXPECT_EQ(record->Modified, 0);
    EXPECT_TRUE(CheckInvariants(record.get()));
}

// A line that keeps its length needs no memory: it is overwritten where
// it lies, and the table keeps its runs.
TEST(FlushEditLine, SameLengthIsStoredInPlace)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"old", "two"});
    const int32_t runs = record->RunCount;
    TypeAtCursor(record.get(), "n");
    {
        FailAllocationsAfter noMemory(0);
        EXPECT_TRUE(FlushEditLine(record.get()));
    }
    EXPECT_EQ(StoredLines(record.get()), (Lines{"nld", "two"}));
    EXPECT_EQ(record->RunCount, runs);
    EXPECT_EQ(record->Modified, 1);
    EXPECT_TRUE(CheckInvariants(record.get()));
}

// Each load follows the previous one, so a shorter line after a longer or
// padded one proves that the old bytes behind the terminator are cleared.
TEST(LoadEditLine, ClampsAndPads)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"one", "a much longer line", "three"});
    const std::string padded = "one" + std::string(251, ' ');
    struct {
        int32_t line, column, cursorLine, cursorColumn;
        std::string edit;
    } const cases[] = {
        {1, 0, 1, 0, "a much longer line"}, {-5, -5, 0, 0, "one"},
        {2, 8, 2, 8, "three   "},           {99, 3, 2, 3, "three"},
        {0, 1000, 0, 254, padded},          {INT32_MIN, INT32_MAX, 0, 254, padded},
        {INT32_MAX, 1, 2, 1, "three"},
    };
    for (const auto& c : cases) {
        LoadEditLine(record.get(), LineIndex(c.line), ColumnIndex(c.column));
        EXPECT_EQ(record->CursorLine, c.cursorLine);
        EXPECT_EQ(record->CursorColumn, c.cursorColumn);
        EXPECT_EQ(std::string(record->EditLine), c.edit);
        EXPECT_TRUE(CheckInvariants(record.get())) << "line " << c.line << " column " << c.column;
    }
    EXPECT_STREQ(GetLineText(record.get(), 0), "one");
}

TEST(LineStrings, OnlySpacesCount)
{
    EXPECT_EQ(VisibleLength(" a\t "), 3);
    EXPECT_EQ(VisibleLength("a \xA0"), 3);
    EXPECT_EQ(IndentOf("  \ta"), 2);
    EXPECT_TRUE(IsBlankText(""));
    EXPECT_TRUE(IsBlankText("   "));
    EXPECT_FALSE(IsBlankText("  \t"));
}

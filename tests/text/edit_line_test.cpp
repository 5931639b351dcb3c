#include "text_test_support.h"

#include "text/edit_line.h"
#include "text/line_access.h"

#include <cstring>
#include <string>

using Lines = std::vector<std::string>;

namespace {

// Types `text` at the cursor the way line editing does: pad, then write.
void TypeAtCursor(TextRecord* record, const char* text)
{
    PadEditLine(record);
    for (const char* c = text; *c != '\0'; ++c) {
        record->EditLine[record->CursorColumn++] = *c;
        if (record->CursorColumn > record->EditLength) {
            record->EditLength = record->CursorColumn;
        }
    }
}

} // namespace

TEST(FlushEditLine, UnchangedLineCostsNothing)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"alpha", "", "gamma"});
    struct {
        int32_t line;
        int32_t column;
    } const visits[] = {{0, 5}, {0, 40}, {1, 0}, {1, 12}, {2, 5}};
    for (const auto& visit : visits) {
        LoadEditLine(record.get(), LineIndex(visit.line), ColumnIndex(visit.column));
        // Spaces typed behind the text vanish in the flush and change nothing.
        TypeAtCursor(record.get(), "   ");
        FailAllocationsAfter noMemory(0);
        EXPECT_TRUE(FlushEditLine(record.get())) << "line " << visit.line;
        EXPECT_TRUE(CheckInvariants(record.get()));
    }
    EXPECT_EQ(record->Modified, 0);
    EXPECT_EQ(record->LastEditLine, 0);
    EXPECT_EQ(record->LastEditColumn, 0);
    EXPECT_EQ(StoredLines(record.get()), (Lines{"alpha", "<null>", "gamma"}));
}

TEST(FlushEditLine, ChangedLineIsStoredTrimmed)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"alpha", "beta"});
    LoadEditLine(record.get(), LineIndex(1), ColumnIndex(8));
    TypeAtCursor(record.get(), "x  ");
    EXPECT_STREQ(record->EditLine, "beta    x  ");

    ASSERT_TRUE(FlushEditLine(record.get()));
    EXPECT_STREQ(record->EditLine, "beta    x");
    EXPECT_EQ(record->EditLength, 9);
    EXPECT_EQ(record->CursorColumn, 11);   // behind the text after a flush
    EXPECT_TRUE(CheckInvariants(record.get()));
    EXPECT_EQ(StoredLines(record.get()), (Lines{"alpha", "beta    x"}));
    EXPECT_NE(record->LineTable[1], record->EditLine);
    EXPECT_EQ(record->Modified, 1);
    EXPECT_EQ(record->LastEditLine, 1);
    EXPECT_EQ(record->LastEditColumn, 11);

    // Writing again pads first, so the next character lands at the cursor.
    TypeAtCursor(record.get(), "y");
    EXPECT_STREQ(record->EditLine, "beta    x  y");
    ASSERT_TRUE(FlushEditLine(record.get()));
    EXPECT_EQ(StoredLines(record.get()), (Lines{"alpha", "beta    x  y"}));
}

TEST(FlushEditLine, LineEmptiedBecomesNull)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"  gone"});
    std::strcpy(record->EditLine, "      ");
    record->EditLength = 6;
    ASSERT_TRUE(FlushEditLine(record.get()));
    EXPECT_EQ(record->LineTable[0], nullptr);
    EXPECT_EQ(record->EditLength, 0);
    EXPECT_EQ(record->Modified, 1);
    EXPECT_TRUE(CheckInvariants(record.get()));
}

TEST(FlushEditLine, NoMemoryKeepsTheOldEntry)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"old"});
    const char* old = record->LineTable[0];
    TypeAtCursor(record.get(), "n");
    testing::internal::CaptureStderr();
    {
        FailAllocationsAfter noMemory(0);
        EXPECT_FALSE(FlushEditLine(record.get()));
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Not enough memory\n");
    EXPECT_EQ(record->LineTable[0], old);
    EXPECT_STREQ(old, "old");
    EXPECT_STREQ(record->EditLine, "nld");
    EXPECT_EQ(record->Modified, 0);
    EXPECT_TRUE(CheckInvariants(record.get()));

    ASSERT_TRUE(FlushEditLine(record.get()));
    EXPECT_EQ(StoredLines(record.get()), (Lines{"nld"}));
}

TEST(LoadEditLine, ClampsAndPads)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"one", "two", "three"});
    struct {
        int32_t line, column;
        int32_t cursorLine, cursorColumn;
        const char* edit;
    } const cases[] = {
        {-5, -5, 0, 0, "one"},
        {1, 2, 1, 2, "two"},
        {2, 8, 2, 8, "three   "},
        {99, 3, 2, 3, "three"},
        {1, 1000, 1, 254, nullptr},   // padded to the last column
    };
    for (const auto& c : cases) {
        LoadEditLine(record.get(), LineIndex(c.line), ColumnIndex(c.column));
        EXPECT_EQ(record->CursorLine, c.cursorLine);
        EXPECT_EQ(record->CursorColumn, c.cursorColumn);
        const std::string expected = c.edit != nullptr ? c.edit : "two" + std::string(251, ' ');
        EXPECT_EQ(std::string(record->EditLine), expected);
        EXPECT_TRUE(CheckInvariants(record.get())) << "line " << c.line << " column " << c.column;
    }
}

// A long line leaves bytes behind a shorter one loaded later; they must be
// zeroed, or a later write behind the text would uncover them.
TEST(LoadEditLine, ShorterLineLeavesNoOldBytes)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"a much longer line here", "ab"});
    LoadEditLine(record.get(), LineIndex(1), ColumnIndex(0));
    EXPECT_TRUE(CheckInvariants(record.get()));
}

TEST(EditLine, FullLineSurvivesLoadAndFlush)
{
    RecordPtr record = NewRecord();
    const std::string full(255, 'm');
    FillLines(record.get(), {"x", full.c_str()});
    LoadEditLine(record.get(), LineIndex(1), ColumnIndex(300));
    EXPECT_EQ(record->CursorColumn, 254);   // on the last character, never behind it
    EXPECT_EQ(record->EditLength, 255);
    EXPECT_TRUE(CheckInvariants(record.get()));
    {
        FailAllocationsAfter noMemory(0);
        EXPECT_TRUE(FlushEditLine(record.get()));
    }
    EXPECT_EQ(std::string(GetLineText(record.get(), 1)), full);
    EXPECT_EQ(record->Modified, 0);
}

TEST(GetLineText, CursorLineComesFromTheEditLine)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"first", "second"});
    LoadEditLine(record.get(), LineIndex(1), ColumnIndex(0));
    TypeAtCursor(record.get(), "S");
    EXPECT_STREQ(GetLineText(record.get(), 1), "Second");
    EXPECT_STREQ(StoredLineText(record.get(), 1), "second");
    EXPECT_STREQ(GetLineText(record.get(), 0), "first");
    EXPECT_EQ(StoredLineLength(record.get(), 0), 5);
}

TEST(ClampLine, AnyNumberGivesAValidLine)
{
    RecordPtr record = NewRecord();
    const int32_t extremes[] = {INT32_MIN, -1, 0, 1, 2, INT32_MAX};
    for (int32_t line : extremes) {
        EXPECT_EQ(ClampLine(record.get(), line), 0) << line;
    }
    FillLines(record.get(), {"a", "b", "c"});
    EXPECT_EQ(ClampLine(record.get(), INT32_MIN), 0);
    EXPECT_EQ(ClampLine(record.get(), 1), 1);
    EXPECT_EQ(ClampLine(record.get(), 3), 2);
    EXPECT_EQ(ClampLine(record.get(), INT32_MAX), 2);
    EXPECT_EQ(ClampColumn(record.get(), INT32_MIN), 0);
    EXPECT_EQ(ClampColumn(record.get(), 254), 254);
    EXPECT_EQ(ClampColumn(record.get(), 255), 254);
}

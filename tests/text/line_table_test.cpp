#include "text_test_support.h"

#include "text/edit_line.h"
#include "text/line_table.h"
#include "text/settings.h"

#include <cstring>
#include <string>

using Lines = std::vector<std::string>;

namespace {

// Appends `text` as a new last line, as a load does.
bool AppendLine(TextRecord* record, const char* text)
{
    std::strcpy(record->WorkLine, text);
    if (!StoreLine(record, record->WorkLine, record->LineCount)) {
        return false;
    }
    ++record->LineCount;
    return true;
}

} // namespace

TEST(StoreLine, TableGrowsInStepsAndKeepsEveryLine)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"line 0"});
    for (int i = 1; i < 600; ++i) {
        ASSERT_TRUE(AppendLine(record.get(), ("line " + std::to_string(i) + "   ").c_str()));
        // Full at 32, then 32 + 256, then 288 + 256.
        const int32_t expected = record->LineCount <= 32 ? 32 : record->LineCount <= 288 ? 288 : 544;
        if (i < 544) {
            ASSERT_EQ(record->LineCapacity, expected) << "after line " << i;
        }
    }
    EXPECT_EQ(record->LineCapacity, 544 + 256);
    ASSERT_TRUE(CheckInvariants(record.get()));
    const Lines lines = StoredLines(record.get());
    for (int i = 0; i < 600; ++i) {
        ASSERT_EQ(lines[static_cast<size_t>(i)], "line " + std::to_string(i));
    }
}

TEST(StoreLine, TrimsTheCallersBufferAndStoresBlankAsNull)
{
    RecordPtr record = NewRecord();
    char text[] = "  indented  ";
    ASSERT_TRUE(StoreLine(record.get(), text, 0));
    EXPECT_STREQ(text, "  indented");
    EXPECT_STREQ(record->LineTable[0], "  indented");
    EXPECT_NE(record->LineTable[0], text);

    char blank[] = "    ";
    ASSERT_TRUE(StoreLine(record.get(), blank, 0));
    EXPECT_EQ(record->LineTable[0], nullptr);
    EXPECT_STREQ(blank, "");
}

// Lines above the pool's threshold get blocks of their own; replacing them
// must free those blocks as it frees short strings.
TEST(StoreLine, LongLinesOutsideThePuddles)
{
    const SettingsRecord saved = Settings;
    Settings.MaxLineLength = 5000;
    RecordPtr record = NewRecord();
    Settings = saved;
    const std::string longLine(4000, 'L');
    FillLines(record.get(), {longLine.c_str(), "short"});
    for (int round = 0; round < 3; ++round) {
        LoadEditLine(record.get(), LineIndex(round % 2), ColumnIndex(4500));
        record->EditLine[record->CursorColumn] = static_cast<char>('a' + round);
        record->EditLength = record->CursorColumn + 1;
        ASSERT_TRUE(FlushEditLine(record.get()));
        ASSERT_TRUE(CheckInvariants(record.get()));
    }
    const Lines lines = StoredLines(record.get());
    EXPECT_EQ(lines[0], longLine + std::string(500, ' ') + "c");
    EXPECT_EQ(lines[1], "short" + std::string(4495, ' ') + "b");
}

TEST(StoreLine, NoMemoryLeavesTheTextUnchanged)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"a", "b"});
    const Lines before = StoredLines(record.get());
    char text[] = "new";

    testing::internal::CaptureStderr();
    {
        FailAllocationsAfter noMemory(0);
        EXPECT_FALSE(StoreLine(record.get(), text, 1));   // the string
        EXPECT_FALSE(StoreLine(record.get(), text, 2));   // the string of an appended line
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Not enough memory\nNot enough memory\n");
    EXPECT_EQ(StoredLines(record.get()), before);
    EXPECT_EQ(record->LineCapacity, 32);
    EXPECT_TRUE(CheckInvariants(record.get()));
}

TEST(EnsureLineRoom, NoMemoryKeepsTheOldTable)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"x"});
    while (record->LineCount < record->LineCapacity) {
        ASSERT_TRUE(AppendLine(record.get(), "y"));
    }
    char** table = record->LineTable;
    const Lines before = StoredLines(record.get());
    char text[] = "z";

    testing::internal::CaptureStderr();
    {
        FailAllocationsAfter noMemory(0);
        EXPECT_FALSE(EnsureLineRoom(record.get(), InsertLineRoom));
        EXPECT_FALSE(StoreLine(record.get(), text, record->LineCount));
        // Growth comes first even when an entry in use is replaced.
        EXPECT_FALSE(StoreLine(record.get(), text, 0));
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Not enough memory\nNot enough memory\nNot enough memory\n");
    EXPECT_EQ(record->LineTable, table);
    EXPECT_EQ(record->LineCapacity, 32);
    EXPECT_EQ(StoredLines(record.get()), before);
    EXPECT_TRUE(CheckInvariants(record.get()));

    ASSERT_TRUE(EnsureLineRoom(record.get(), InsertLineRoom));
    EXPECT_EQ(record->LineCapacity, 64);
    EXPECT_EQ(StoredLines(record.get()), before);
}

TEST(EnsureLineRoom, FreeSlotCostsNothing)
{
    RecordPtr record = NewRecord();
    FailAllocationsAfter noMemory(0);
    EXPECT_TRUE(EnsureLineRoom(record.get(), StoreLineRoom));
    EXPECT_EQ(record->LineCapacity, 32);
}

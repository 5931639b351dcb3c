#include "text_test_support.h"

#include "text/line_table.h"

#include <cstring>

namespace {

// Appends `text` as a new last line, as a load does.
bool AppendLine(TextRecord* record, const char* text)
{
    std::strcpy(record->WorkLine, text);
    return StoreLine(record, record->WorkLine, record->LineCount) && ++record->LineCount;
}

} // namespace

TEST(StoreLine, TableGrowsInStepsAndKeepsEveryLine)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"line 0"});
    Lines expected{"line 0"};
    for (int i = 1; i < 600; ++i) {
        expected.push_back("line " + std::to_string(i));
        ASSERT_TRUE(AppendLine(record.get(), (expected.back() + "   ").c_str()));
        if (i == 31 || i == 32 || i == 288) {
            EXPECT_EQ(record->LineCapacity, i == 31 ? 32 : i == 32 ? 288 : 544) << "after line " << i;
        }
    }
    EXPECT_TRUE(CheckInvariants(record.get()));
    EXPECT_EQ(StoredLines(record.get()), expected);
}

TEST(StoreLine, NoMemoryLeavesTheTextUnchanged)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"x"});
    char text[] = "z";
    {
        FailAllocationsAfter noMemory(0);
        EXPECT_TRUE(EnsureLineRoom(record.get(), StoreLineRoom));   // a free slot costs nothing
    }
    const auto failBoth = [&] {
        const Lines before = StoredLines(record.get());
        char** table = record->LineTable;
        testing::internal::CaptureStderr();
        {
            FailAllocationsAfter noMemory(0);
            EXPECT_FALSE(StoreLine(record.get(), text, 0));
            EXPECT_FALSE(StoreLine(record.get(), text, record->LineCount));
        }
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "Not enough memory\nNot enough memory\n");
        EXPECT_EQ(record->LineTable, table);
        EXPECT_EQ(record->LineCapacity, 32);
        EXPECT_EQ(StoredLines(record.get()), before);
        EXPECT_TRUE(CheckInvariants(record.get()));
    };
    failBoth();   // the string can't be had
    while (record->LineCount < record->LineCapacity) {
        ASSERT_TRUE(AppendLine(record.get(), "y"));
    }
    failBoth();   // the table can't grow, even to replace an entry in use
    ASSERT_TRUE(EnsureLineRoom(record.get(), InsertLineRoom));
    EXPECT_EQ(record->LineCapacity, 64);
}

#include "text_test_support.h"

#include "text/edit_line.h"
#include "text/line_table.h"
#include "text/reset_text.h"
#include "text/text_file_name.h"

#include <cstring>
#include <string>

using Lines = std::vector<std::string>;

TEST(ResetText, DropsEveryLineAndKeepsTheTable)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"a", "b", "c"});
    for (int i = 0; i < 40; ++i) {
        std::strcpy(record->WorkLine, "more");
        ASSERT_TRUE(StoreLine(record.get(), record->WorkLine, record->LineCount));
        ++record->LineCount;
    }
    LoadEditLine(record.get(), LineIndex(20), ColumnIndex(3));
    record->TopLine = 10;
    record->LeftColumn = 2;
    record->Modified = 1;
    record->TextState = BlockMarked | WindowOpen;
    MemPool* oldPool = record->LinePool;
    const int32_t capacity = record->LineCapacity;

    ASSERT_TRUE(ResetText(record.get(), "/home/u/notes.txt"));
    EXPECT_NE(record->LinePool, oldPool);
    EXPECT_EQ(record->LineCount, 0);
    EXPECT_EQ(record->LineCapacity, capacity);
    EXPECT_EQ(record->TopLine, 0);
    EXPECT_EQ(record->LeftColumn, 0);
    EXPECT_EQ(record->CursorLine, 0);
    EXPECT_EQ(record->CursorColumn, 0);
    EXPECT_EQ(record->TextState, WindowOpen);
    EXPECT_EQ(record->Modified, 1);
    EXPECT_STREQ(record->FileDirectory, "/home/u");
    EXPECT_STREQ(record->FileName, "notes.txt");

    // The loader appends from line 0 into the new pool.
    FillLines(record.get(), {"loaded"});
    EXPECT_TRUE(CheckInvariants(record.get()));
    EXPECT_EQ(StoredLines(record.get()), (Lines{"loaded"}));
}

TEST(ResetText, NoNewPoolKeepsTheOldLines)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"kept", "too"});
    record->TextState = BlockMarked;
    MemPool* oldPool = record->LinePool;

    testing::internal::CaptureStderr();
    bool reset = true;
    {
        FailAllocationsAfter noMemory(0);
        reset = ResetText(record.get(), "S:other");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Not enough memory\n");
    EXPECT_FALSE(reset);
    EXPECT_EQ(record->LinePool, oldPool);
    EXPECT_EQ(StoredLines(record.get()), (Lines{"kept", "too"}));
    EXPECT_TRUE(CheckInvariants(record.get()));
    EXPECT_EQ(record->TextState, 0);
    EXPECT_STREQ(record->FileDirectory, "S:");
    EXPECT_STREQ(record->FileName, "other");
}

TEST(SetTextFileName, SplitsDirectoryAndFile)
{
    struct {
        const char* name;
        const char* directory;
        const char* file;
    } const cases[] = {
        {"/home/u/a.txt", "/home/u", "a.txt"},
        {"/a.txt", "/", "a.txt"},
        {"a.txt", "", "a.txt"},
        {"S:Tavrel.prefs", "S:", "Tavrel.prefs"},
        {"T:dir/x", "T:dir", "x"},
        {"dir/", "dir", ""},
        {"", "", ""},
    };
    RecordPtr record = NewRecord();
    for (const auto& c : cases) {
        SetTextFileName(record.get(), c.name);
        EXPECT_STREQ(record->FileDirectory, c.directory) << c.name;
        EXPECT_STREQ(record->FileName, c.file) << c.name;
    }

    const std::string longFile(300, 'f');
    const std::string longDirectory(300, 'd');
    SetTextFileName(record.get(), (longDirectory + "/" + longFile).c_str());
    EXPECT_EQ(std::string(record->FileDirectory), longDirectory.substr(0, 256));
    EXPECT_EQ(std::string(record->FileName), longFile.substr(0, 255));
}

#include "../text_test_support.h"

#include "text/record/line_table.h"
#include "text/lines/edit_line.h"
#include "text/record/line_buffers.h"
#include "text/edit/reset_text.h"

#include <cstring>

TEST(ResetText, DropsEveryLineAndKeepsTheTable)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"a", "b", "c"});
    LoadEditLine(record.get(), LineIndex(2), ColumnIndex(3));
    record->TopLine = 1;
    record->LeftColumn = 2;
    record->Modified = 1;
    record->TextState = BlockMarked | WindowOpen;

    ASSERT_TRUE(ResetText(record.get(), "/home/u/notes.txt"));
    EXPECT_EQ(record->LineCount, 0);
    EXPECT_EQ(record->RunCapacity, InitialRunCapacity);
    EXPECT_EQ(record->TopLine + record->LeftColumn + record->CursorLine + record->CursorColumn, 0);
    EXPECT_EQ(record->TextState, WindowOpen);
    EXPECT_EQ(record->Modified, 1);
    EXPECT_STREQ(record->FileDirectory, "/home/u");
    EXPECT_STREQ(record->FileName, "notes.txt");
    FillLines(record.get(), {"loaded"});   // the loader appends from line 0
    EXPECT_TRUE(CheckInvariants(record.get()));

    // Without a new pool the old lines stay, but the name is taken.
    ReportsCaught reports;
    {
        FailAllocationsAfter noMemory(0);
        EXPECT_FALSE(ResetText(record.get(), "S:other"));
    }
    EXPECT_EQ(reports.Ids(), std::vector<int>{218}) << "Not enough memory";
    EXPECT_EQ(StoredLines(record.get()), Lines{"loaded"});
    EXPECT_STREQ(record->FileDirectory, "S:");
    EXPECT_STREQ(record->FileName, "other");
}

TEST(SetMaxLineLength, RaisesOnlyAndKeepsTheLines)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"hello"});
    LoadEditLine(record.get(), LineIndex(0), ColumnIndex(7));
    std::strcpy(record->RecallLine, "killed");
    EXPECT_EQ(SetMaxLineLength(record.get(), 255), LineLengthChange::Unchanged);
    EXPECT_EQ(SetMaxLineLength(record.get(), 254), LineLengthChange::CannotReduce);
    ReportsCaught reports;
    {
        FailAllocationsAfter noMemory(0);
        EXPECT_EQ(SetMaxLineLength(record.get(), 500), LineLengthChange::NoMemory);
    }
    EXPECT_EQ(reports.Ids(), std::vector<int>{218}) << "Not enough memory";
    EXPECT_EQ(record->MaxLineLength, 255);

    ASSERT_EQ(SetMaxLineLength(record.get(), 1000), LineLengthChange::Raised);
    EXPECT_STREQ(record->EditLine, "hello  ");
    EXPECT_STREQ(record->RecallLine, "killed");
    EXPECT_TRUE(CheckInvariants(record.get()));
    LoadEditLine(record.get(), LineIndex(0), ColumnIndex(999));
    EXPECT_EQ(record->EditLength, 999);
    EXPECT_TRUE(CheckInvariants(record.get()));
}

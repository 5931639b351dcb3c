#include "text_test_support.h"

#include "text/edit_line.h"
#include "text/line_buffers.h"
#include "text/tab_size.h"

#include <cstring>
#include <string>

TEST(SetMaxLineLength, RaisingMovesEditAndRecallLines)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"hello"});
    LoadEditLine(record.get(), LineIndex(0), ColumnIndex(7));
    std::strcpy(record->RecallLine, "killed");

    ASSERT_EQ(SetMaxLineLength(record.get(), 1000), LineLengthChange::Raised);
    EXPECT_EQ(record->MaxLineLength, 1000);
    EXPECT_STREQ(record->EditLine, "hello  ");
    EXPECT_EQ(record->EditLength, 7);
    EXPECT_STREQ(record->RecallLine, "killed");
    EXPECT_TRUE(CheckInvariants(record.get()));

    // The new room is usable at once.
    LoadEditLine(record.get(), LineIndex(0), ColumnIndex(999));
    EXPECT_EQ(record->CursorColumn, 999);
    EXPECT_EQ(record->EditLength, 999);
    EXPECT_TRUE(CheckInvariants(record.get()));
}

TEST(SetMaxLineLength, RefusalsChangeNothing)
{
    RecordPtr record = NewRecord();
    FillLines(record.get(), {"text"});
    char* block = record->EditLine;
    EXPECT_EQ(SetMaxLineLength(record.get(), 255), LineLengthChange::Unchanged);
    EXPECT_EQ(SetMaxLineLength(record.get(), 254), LineLengthChange::CannotReduce);

    testing::internal::CaptureStderr();
    LineLengthChange change = LineLengthChange::Raised;
    {
        FailAllocationsAfter noMemory(0);
        change = SetMaxLineLength(record.get(), 500);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Not enough memory\n");
    EXPECT_EQ(change, LineLengthChange::NoMemory);
    EXPECT_EQ(record->EditLine, block);
    EXPECT_EQ(record->MaxLineLength, 255);
    EXPECT_STREQ(record->EditLine, "text");
    EXPECT_TRUE(CheckInvariants(record.get()));
}

TEST(SetTabSize, LabelFollowsTheSize)
{
    RecordPtr record = NewRecord();
    SetTabSize(record.get(), 1);
    EXPECT_STREQ(record->TabLabel, "Tabulations = 1");
    SetTabSize(record.get(), 40);
    EXPECT_EQ(record->TabSize, 40);
    EXPECT_STREQ(record->TabLabel, "Tabulations = 40");
}

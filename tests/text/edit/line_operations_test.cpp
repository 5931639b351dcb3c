// Lines going in, out, apart and together on a headless window: the text
// as a dump, the cursor, and the window compared with a full redraw.
#include "../editing_test_support.h"
#include "text/record/line_table.h"
#include "text/edit/cursor_motion.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/edit_current_line.h"
#include "text/edit/line_operations.h"

#include <cstring>

namespace {

using LineOperationsTest = EditTest;

TEST_F(LineOperationsTest, ReturnOpensAnEmptyLineAtTheIndentationAndNeverBreaks)
{
    Start({"  first line", "second"}, 0, 5);
    ASSERT_TRUE(InsertLineAfter(text_));
    EXPECT_EQ(Dump(), "  first line\n\nsecond");
    EXPECT_EQ(Cursor(), "1/2");
    EXPECT_TRUE(PaintedAsFullRedraw());
    // Leaving the new line again stores nothing.
    CursorUp(text_);
    EXPECT_EQ(StoredLines(text_), (Lines{"  first line", "", "second"}));

    text_->Modified = 0;
    SetCursor(text_, ColumnIndex(3), LineIndex(2));
    ASSERT_TRUE(InsertLineAfter(text_));
    EXPECT_EQ(Dump(), "  first line\n\nsecond\n");
    EXPECT_EQ(Cursor(), "3/0");
    EXPECT_EQ(text_->Modified, 0) << "an empty line at the end changes nothing";
    EXPECT_TRUE(CheckInvariants(text_));
}

TEST_F(LineOperationsTest, SplitKeepsTheIndentationWithinTheMaximum)
{
    LimitLines(12);
    Start({"      abcdef", "    ab cd"}, 0, 2);
    ASSERT_TRUE(SplitLine(text_, true));
    // The tail is 4 spaces and 6 letters: only 2 of the 6 spaces of
    // indentation fit in front of it.
    EXPECT_EQ(Dump(), "\n      abcdef\n    ab cd");
    EXPECT_EQ(Cursor(), "1/2");
    SetCursor(text_, ColumnIndex(7), LineIndex(2));
    ASSERT_TRUE(SplitLine(text_, false));
    EXPECT_EQ(Dump(), "\n      abcdef\n    ab\ncd");
    EXPECT_EQ(Cursor(), "3/0");
    EXPECT_TRUE(CheckInvariants(text_));
    EXPECT_TRUE(PaintedAsFullRedraw());
}

// The table is full, so the new line needs a new table. The head differs
// from the stored line (its flush needs the table too, then a string) or
// not (only the new line's room is asked for).
TEST_F(LineOperationsTest, FailedSplitKeepsTheWholeLine)
{
    const struct {
        const char* stored;
        long countdown;
    } cases[] = {{"one", 0}, {"two", 0}, {"two", 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.stored) + " " + std::to_string(c.countdown));
        Start({c.stored}, 0, 0);
        while (text_->RunCount + LineChangeRuns <= text_->RunCapacity)
            InsertLineAfter(text_);
        SetCursor(text_, ColumnIndex(3), LineIndex(0));
        std::strcpy(text_->EditLine, "one two");
        text_->EditLength = 7;
        const int32_t lines = text_->LineCount;
        bool split;
        {
            FailAllocationsAfter failing(c.countdown);
            split = SplitLine(text_, true);
        }
        EXPECT_FALSE(split);
        EXPECT_EQ(LineText(0), "one two");
        EXPECT_EQ(Cursor(), "0/3");
        EXPECT_EQ(text_->LineCount, lines);
        EXPECT_TRUE(CheckInvariants(text_));
        EXPECT_TRUE(PaintedAsFullRedraw());
    }
}

TEST_F(LineOperationsTest, KillRecallAndUndo)
{
    Start({"alpha", "beta", "gamma"}, 1, 2);
    KillLine(text_);
    EXPECT_EQ(Dump(), "alpha\ngamma");
    EXPECT_EQ(Cursor(), "1/2");
    EXPECT_TRUE(PaintedAsFullRedraw());
    RecallKilledLine(text_);
    RecallKilledLine(text_);
    EXPECT_EQ(Dump(), "alpha\nbeta\nbeta\ngamma");
    EXPECT_TRUE(PaintedAsFullRedraw());

    // Killing a blank line keeps the recalled one.
    InsertLineBefore(text_);
    KillLine(text_);
    EXPECT_STREQ(text_->RecallLine, "beta");

    // Undo brings back the stored line, but only until it is flushed.
    InsertText(text_, "XX");
    EXPECT_EQ(LineText(1), "beXXta");
    UndoLine(text_);
    EXPECT_EQ(LineText(1), "beta");
    InsertText(text_, "YY");
    CursorDown(text_);
    CursorUp(text_);
    UndoLine(text_);
    EXPECT_EQ(LineText(1), "betaYY");
    EXPECT_TRUE(CheckInvariants(text_));
}

TEST_F(LineOperationsTest, DeletingTheLastOrTheOnlyLine)
{
    Start({"a", "b", "c"}, 2, 0);
    DeleteLine(text_);
    EXPECT_EQ(Dump(), "a\nb");
    EXPECT_EQ(Cursor(), "1/0");
    EXPECT_TRUE(PaintedAsFullRedraw());
    // The only line leaves its indentation, and no change.
    Start({"   words"}, 0, 6);
    text_->Modified = 1;
    DeleteLine(text_);
    EXPECT_EQ(Dump(), "");
    EXPECT_EQ(Cursor(), "0/3");
    EXPECT_EQ(text_->Modified, 0);
    EXPECT_STREQ(text_->RecallLine, "   words");
}

TEST_F(LineOperationsTest, JoinUpToExactlyTheMaximum)
{
    LimitLines(10);
    Start({"abcd", "efghij", "k"}, 0, 4);
    ASSERT_TRUE(JoinNextLine(text_));
    EXPECT_EQ(Dump(), "abcdefghij\nk");
    EXPECT_EQ(Cursor(), "0/4");
    EXPECT_STREQ(text_->RecallLine, "efghij");
    EXPECT_TRUE(PaintedAsFullRedraw());

    EXPECT_FALSE(JoinNextLine(text_));
    EXPECT_EQ(Dump(), "abcdefghij\nk");
    EXPECT_EQ(Reports(), std::vector<MessageId>{MessageId::LineTooLong});
}

TEST_F(LineOperationsTest, SortLinesByBytesOrIgnoringCase)
{
    const struct {
        const char* name;
        uint32_t options;
        int direction;
        const char* expected;
    } cases[] = {
        {"bytes upward", 0, 1, "B\nC\na\nb\n\xE9t\xE9"},
        {"ignoring case upward", IgnoreCase, 1, "a\nb\nB\nC\n\xE9t\xE9"},
        {"ignoring case downward", IgnoreCase, -1, "\xE9t\xE9\nC\nb\nB\na"},
        {"no direction", IgnoreCase, 0, "b\nC\n\xE9t\xE9\na\nB"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Start({"head", "b", "C", "\xE9t\xE9", "a", "B", "tail"}, 6, 0);
        text_->Options = c.options;
        const int32_t swaps = SortLines(text_, 1, 5, c.direction);
        EXPECT_EQ(Dump(), std::string("head\n") + c.expected + "\ntail");
        EXPECT_EQ(swaps > 0, c.direction != 0);
        EXPECT_TRUE(PaintedAsFullRedraw());
    }
    // Lines equal but for case never swap.
    Start({"a", "A", "a"}, 0, 0);
    text_->Options = IgnoreCase;
    EXPECT_EQ(SortLines(text_, 0, 2, 1), 0);
    EXPECT_EQ(SortLines(text_, 0, 2, -1), 0);
    EXPECT_EQ(text_->Modified, 0);
}

TEST_F(LineOperationsTest, MoveRemoveAndClearLines)
{
    Start({"one", "two", "three", "new 1", "new 2"}, 1, 0);
    MoveLines(text_, 3, 4);
    EXPECT_EQ(Dump(), "one\nnew 1\nnew 2\ntwo\nthree");
    EXPECT_EQ(Cursor(), "1/0");
    EXPECT_TRUE(PaintedAsFullRedraw());

    // Removing every line leaves one empty line.
    RemoveLines(text_, 0, 5);
    EXPECT_EQ(StoredLines(text_), (Lines{""}));

    Start({"a", "b"}, 1, 1);
    ClearText(text_);
    EXPECT_EQ(Dump(), "");
    EXPECT_EQ(Cursor(), "0/0");
    EXPECT_EQ(text_->Modified, 0);
    EXPECT_TRUE(CheckInvariants(text_));
    EXPECT_TRUE(PaintedAsFullRedraw());
}

} // namespace

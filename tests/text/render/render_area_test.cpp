// Clearing and scrolling the text area, and keeping the window full when
// lines go away.
#include "../render_test_support.h"
#include "frame/window/refresh.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/render/render.h"
#include "text/record/text_record.h"

namespace {

constexpr int RowHeight = HeadlessDisplay::kFontHeight + 1;

TEST_F(RenderTest, ScrollRowsMovesTheAreaAndExposesBackground)
{
    Open(6, 4, {"a", "b", "c", "d", "e"});
    Mark(0, 0, 4, 0);
    RefreshAll(text_);
    ScrollRows(text_, RowHeight);
    EXPECT_EQ(Row(0), "b");
    EXPECT_EQ(Row(2), "d");
    EXPECT_EQ(Row(3), "");
    EXPECT_EQ(Backgrounds(3), "bbbbbb") << "what comes in is background, not the block";

    // From a row down only, the other way: rows above stay.
    ScrollRows(text_, -RowHeight, 1);
    EXPECT_EQ(Row(0), "b");
    EXPECT_EQ(Row(1), "");
    EXPECT_EQ(Row(2), "c");
    EXPECT_EQ(Row(3), "d");
}

TEST_F(RenderTest, CursorRowScrollsRightOfTheCursor)
{
    Open(8, 2, {"abcdefg", "xyz"});
    RefreshAll(text_);
    LoadEditLine(text_, LineIndex{0}, ColumnIndex{2});
    ScrollRowLeft(text_);
    EXPECT_EQ(Row(0), "abdefg");
    EXPECT_EQ(Row(1), "xyz");
    ScrollRowRight(text_, 3);
    EXPECT_EQ(Row(0), "ab   def");
    EXPECT_EQ(Backgrounds(0), "bbbbbbbb");
}

TEST_F(RenderTest, ClearRowsIsClippedToTheViewport)
{
    Open(5, 3, {"l0", "l1", "l2", "l3", "l4"});
    text_->TopLine = 1;
    RefreshAll(text_);
    ClearRows(text_, 0, 2);   // lines 0 and 1: only line 1 is shown
    EXPECT_EQ(Row(0), "");
    EXPECT_EQ(Row(1), "l2");
    ClearRows(text_, 3, 10);
    EXPECT_EQ(Row(1), "l2");
    EXPECT_EQ(Row(2), "");
    EXPECT_EQ(Backgrounds(2), "bbbbb");
}

TEST_F(RenderTest, FitTopToTextKeepsTheWindowFull)
{
    Open(5, 3, {"l0", "l1", "l2", "l3"});
    text_->TopLine = 1;
    EXPECT_FALSE(FitTopToText(text_)) << "lines 1 to 3 fill the window";

    text_->TopLine = 3;
    EXPECT_TRUE(FitTopToText(text_));
    EXPECT_EQ(text_->TopLine, 1);
    EXPECT_EQ(Row(0), "l1");
    EXPECT_EQ(Row(2), "l3");

    // Fewer lines than rows: from the top, with the rows below cleared.
    text_->LineCount = 2;
    EXPECT_TRUE(FitTopToText(text_));
    EXPECT_EQ(text_->TopLine, 0);
    EXPECT_EQ(Row(1), "l1");
    EXPECT_EQ(Row(2), "");
}

} // namespace

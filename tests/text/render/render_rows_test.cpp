// Rows drawn from the record and read back from the headless grid: the
// colour runs of the block, the padding to the window's edge, scrolled
// views and cell stretches.
#include "../render_test_support.h"
#include "frame/window/refresh.h"
#include "text/lines/edit_line.h"
#include "text/render/render.h"
#include "text/record/text_record.h"

#include <string>

namespace {

// "alpha beta" (10), "" (0), "gamma" (5), "delta" (5) in 12 columns. Block
// cells are white on black, plain ones black on grey.
TEST_F(RenderTest, BlockRunsOfEachRow)
{
    const struct {
        const char* name;
        int startLine, startColumn, endLine, endColumn;   // startLine -1: no block
        int leftColumn;
        int row;
        const char* backgrounds;
    } cases[] = {
        {"no block", -1, 0, 0, 0, 0, 0, "bbbbbbbbbbbb"},
        {"first line of several, from its start column", 0, 6, 3, 2, 0, 0, "bbbbbbtttttt"},
        {"empty line inside reaches the edge", 0, 6, 3, 2, 0, 1, "tttttttttttt"},
        {"line strictly inside", 0, 6, 3, 2, 0, 2, "tttttttttttt"},
        {"last line up to its end column", 0, 6, 3, 2, 0, 3, "tttbbbbbbbbb"},
        {"ends given in reverse", 3, 2, 0, 6, 0, 3, "tttbbbbbbbbb"},
        {"last line holding its newline", 0, 6, 2, 5, 0, 2, "tttttttttttt"},
        {"line after the block", 0, 6, 2, 5, 0, 3, "bbbbbbbbbbbb"},
        {"one line, columns reversed", 0, 8, 0, 2, 0, 0, "bbtttttttbbb"},
        {"one line reaching its end", 2, 1, 2, 5, 0, 2, "bttttttttttt"},
        {"scrolled right into the block", 0, 6, 0, 7, 4, 0, "bbttbbbbbbbb"},
        {"scrolled past the line's end", 2, 0, 2, 1, 6, 2, "bbbbbbbbbbbb"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Open(12, 4, {"alpha beta", "", "gamma", "delta"});
        if (c.startLine >= 0)
            Mark(c.startLine, c.startColumn, c.endLine, c.endColumn);
        text_->LeftColumn = c.leftColumn;
        RefreshAll(text_);
        EXPECT_EQ(Backgrounds(c.row), c.backgrounds);
        std::string foregrounds = c.backgrounds;
        for (char& letter : foregrounds)
            letter = letter == 't' ? 'w' : 't';
        EXPECT_EQ(Foregrounds(c.row), foregrounds);
    }
}

TEST_F(RenderTest, RowsCoverOldCellsAndStopAtTheViewport)
{
    Open(12, 3, {"one", "two\tx", "three", "four"});
    text_->TopLine = 1;
    RefreshAll(text_);
    EXPECT_EQ(Row(0), "two\tx") << "a control byte takes one cell";
    EXPECT_EQ(Row(2), "four");

    // A shorter text drawn over a longer one leaves nothing behind.
    text_->EditLine[0] = '\0';
    text_->EditLength = 0;
    text_->CursorLine = 1;
    RefreshCursorLine(text_);
    EXPECT_EQ(Row(0), "");

    // Lines past the end and above the viewport draw nothing.
    RefreshRows(text_, 0, 10);
    EXPECT_EQ(Row(1), "three");
    EXPECT_EQ(Row(2), "four");
}

TEST_F(RenderTest, LongestLineScrolledToItsEndFillsTheRow)
{
    std::string longest(255, 'x');
    longest[254] = 'z';
    Open(12, 2, {longest.c_str()});
    text_->LeftColumn = text_->MaxLineLength - 12;
    RefreshAll(text_);
    EXPECT_EQ(Row(0), "xxxxxxxxxxxz");
}

TEST_F(RenderTest, NothingIsDrawnInBatchOrWithoutTheWindowState)
{
    Open(8, 2, {"text"});
    text_->TextState |= Batch;
    RefreshAll(text_);
    PaintCells(text_, LineIndex{0}, ColumnIndex{0}, ColumnIndex{3}, true);
    EXPECT_EQ(Row(0), "");
    text_->TextState &= static_cast<uint16_t>(~Batch);
    RefreshAll(text_);
    EXPECT_EQ(Row(0), "text");
}

TEST_F(RenderTest, PaintCellsDrawsAClippedStretch)
{
    Open(8, 2, {"abcdefghijkl", "xy"});
    text_->LeftColumn = 2;
    RefreshAll(text_);
    PaintCells(text_, LineIndex{0}, ColumnIndex{0}, ColumnIndex{4}, true);
    EXPECT_EQ(Backgrounds(0), "tttbbbbb") << "columns 0 and 1 are left of the view";
    PaintCells(text_, LineIndex{1}, ColumnIndex{3}, ColumnIndex{40}, true);
    EXPECT_EQ(Backgrounds(1), "bttttttt") << "padded with blanks to the edge";
    EXPECT_EQ(Row(1), "");
    PaintCells(text_, LineIndex{5}, ColumnIndex{0}, ColumnIndex{4}, true);   // no such row: nothing
}

} // namespace

// Drawing into a headless window's cell grid through the rastport calls.
#include "headless_fixture.h"

#include <string>

namespace {

class RastPortTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = OpenTextWindow();
        ASSERT_NE(window, nullptr);
        rp = window->RPort;
    }

    void Draw(int column, int row, const std::string& text, uint8_t fg, uint8_t bg)
    {
        SetAPen(rp, fg);
        SetBPen(rp, bg);
        Move(rp, ColumnX(column), RowBaseline(row));
        Text(rp, text.data(), static_cast<int>(text.size()));
    }

    std::string Row(int row, int from = 0, int count = -1)
    {
        std::string text = display.RowText(window, row);
        return count < 0 ? text.substr(static_cast<size_t>(from)) : text.substr(static_cast<size_t>(from), static_cast<size_t>(count));
    }

    Window* window = nullptr;
    RastPort* rp = nullptr;
};

TEST_F(RastPortTest, TextFillsCellsWithItsPensAndAdvances)
{
    Draw(3, 2, "Hi\tx", 5, 6);
    EXPECT_EQ(Row(2, 0, 8), "   Hi\tx ");
    EXPECT_EQ(display.CellAt(window, 4, 2), (Cell{'i', 5, 6}));
    EXPECT_EQ(display.CellAt(window, 7, 2), (Cell{}));
    EXPECT_EQ(rp->cp_x, ColumnX(7));
    EXPECT_EQ(TextLength(rp, "abc", 3), 24);
    // Rows above and below are untouched.
    EXPECT_EQ(Row(1, 3, 2), "  ");
    EXPECT_EQ(Row(3, 3, 2), "  ");
}

TEST_F(RastPortTest, TextClipsAtTheEdgesOfTheTextArea)
{
    int last = display.Columns(window) - 1;
    Draw(last - 1, 0, "abcdef", 1, 0);
    EXPECT_EQ(Row(0, last - 1), "ab");
    EXPECT_EQ(Row(1, 0, 4), "    ") << "nothing wraps";
    Draw(-2, 1, "wxyz", 1, 0);
    EXPECT_EQ(Row(1, 0, 3), "yz ");
    Draw(0, display.Rows(window), "below", 1, 0);
    Draw(0, -1, "above", 1, 0);
    EXPECT_EQ(Row(0, 0, 5), "     ");
    EXPECT_EQ(Row(display.Rows(window) - 1, 0, 5), "     ");
}

TEST_F(RastPortTest, RectFillPaintsWholeCellsWithTheAPen)
{
    Draw(0, 0, "keep", 1, 0);
    SetAPen(rp, 7);
    // Rows 1 and 2, columns 2 to 4, with a ragged right edge inside column 5.
    RectFill(rp, ColumnX(2), RowTop(1), ColumnX(5) + 3, RowTop(3) - 1);
    for (int row : {1, 2}) {
        EXPECT_EQ(display.CellAt(window, 1, row), (Cell{}));
        EXPECT_EQ(display.CellAt(window, 2, row), (Cell{' ', 7, 7}));
        EXPECT_EQ(display.CellAt(window, 5, row), (Cell{' ', 7, 7}));
        EXPECT_EQ(display.CellAt(window, 6, row), (Cell{}));
    }
    EXPECT_EQ(Row(0, 0, 4), "keep");
    EXPECT_EQ(display.CellAt(window, 2, 3), (Cell{}));
    // An empty rectangle draws nothing.
    SetAPen(rp, 9);
    RectFill(rp, ColumnX(3), RowTop(0), ColumnX(2), RowTop(1));
    EXPECT_EQ(Row(0, 0, 4), "keep");
}

TEST_F(RastPortTest, ScrollingUpFillsTheExposedRowWithTheBackground)
{
    int rows = display.Rows(window);
    int columns = display.Columns(window);
    for (int row = 0; row < rows; ++row)
        Draw(0, row, "row" + std::to_string(row), static_cast<uint8_t>(10 + row), 4);
    SetBPen(rp, 3);
    ScrollRaster(rp, 0, 9, ColumnX(0), RowTop(0), ColumnX(columns) - 1, RowTop(rows) - 1);
    for (int row = 0; row + 1 < rows; ++row) {
        EXPECT_EQ(Row(row, 0, 5), ("row" + std::to_string(row + 1) + "  ").substr(0, 5));
        // Cells keep their pens as they move.
        EXPECT_EQ(display.CellAt(window, 0, row), (Cell{'r', static_cast<uint8_t>(11 + row), 4}));
    }
    EXPECT_EQ(Row(rows - 1), std::string(static_cast<size_t>(columns), ' '));
    EXPECT_EQ(display.CellAt(window, 0, rows - 1), (Cell{' ', 3, 3}));
}

TEST_F(RastPortTest, ScrollingDownInsertsABlankRowAtTheTopOfTheRegion)
{
    for (int row = 0; row < 4; ++row)
        Draw(0, row, std::string(1, static_cast<char>('a' + row)), 1, 0);
    // Only rows 1 to 3 move, as when a line is inserted at row 1.
    ScrollRaster(rp, 0, -9, ColumnX(0), RowTop(1), ColumnX(10) - 1, RowTop(4) - 1);
    EXPECT_EQ(Row(0, 0, 1), "a");
    EXPECT_EQ(Row(1, 0, 1), " ");
    EXPECT_EQ(Row(2, 0, 1), "b");
    EXPECT_EQ(Row(3, 0, 1), "c");
    EXPECT_EQ(Row(4, 0, 1), " ");
}

TEST_F(RastPortTest, ScrollingPartOfARowSideways)
{
    int columns = display.Columns(window);
    Draw(0, 5, "0123456789", 2, 6);
    // Everything right of column 3 one cell to the left.
    ScrollRaster(rp, 8, 0, ColumnX(3), RowTop(5), ColumnX(columns) - 1, RowTop(6) - 1);
    EXPECT_EQ(Row(5, 0, 11), "012456789  ");
    EXPECT_EQ(display.CellAt(window, 3, 5), (Cell{'4', 2, 6}));
    EXPECT_EQ(display.CellAt(window, columns - 1, 5), (Cell{' ', 6, 6}));
    // Two cells to the right open a gap at column 3.
    ScrollRaster(rp, -16, 0, ColumnX(3), RowTop(5), ColumnX(columns) - 1, RowTop(6) - 1);
    EXPECT_EQ(Row(5, 0, 11), "012  456789");
    EXPECT_EQ(display.CellAt(window, 3, 5), (Cell{' ', 6, 6}));
    EXPECT_EQ(Row(4, 0, 3), "   ");
}

TEST_F(RastPortTest, ResizingKeepsTheTopLeftCells)
{
    Draw(0, 0, "corner", 1, 0);
    ASSERT_TRUE(display.Resize(300, 100));
    EXPECT_EQ(window->Width, 300);
    EXPECT_EQ(display.Columns(window), (300 - 22) / 8);
    EXPECT_EQ(display.Rows(window), (100 - 21) / 9);
    EXPECT_EQ(Row(0, 0, 6), "corner");
    ASSERT_TRUE(display.Resize(640, 200));
    EXPECT_EQ(Row(display.Rows(window) - 1), std::string(static_cast<size_t>(display.Columns(window)), ' '));
}

TEST_F(RastPortTest, FontsOpenByNameAndDrawOnTheSameGrid)
{
    TextAttr attr{"courier.font", 13, 0, 0};
    TextFont* font = OpenFont(&attr);
    ASSERT_NE(font, nullptr);
    EXPECT_STREQ(font->tf_Name, "courier.font");
    SetFont(rp, font);
    Draw(1, 1, "f", 1, 0);
    EXPECT_EQ(display.CellAt(window, 1, 1).Char, 'f');
    SetFont(rp, window->WScreen->RastPort.Font);
    CloseFont(font);
    TextAttr missing{"courier", 13, 0, 0};
    EXPECT_EQ(OpenFont(&missing), nullptr);
    SetFont(rp, nullptr);
    EXPECT_NE(rp->Font, nullptr);
}

} // namespace

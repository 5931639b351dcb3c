// Marking the block, its repaint as the moving end goes, and the block
// operations: text, deletion, writing, indenting and case.
#include "../editing_test_support.h"
#include "text/edit/block_marking.h"
#include "text/edit/block_operations.h"
#include "text/record/block_span.h"
#include "text/edit/cursor_motion.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/edit_current_line.h"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

namespace {

class BlocksTest : public EditTest {
protected:
    std::string BlockText()
    {
        std::string bytes(static_cast<size_t>(BlockTextLength(text_)), '?');
        CopyBlockText(text_, bytes.data(), static_cast<int32_t>(bytes.size()));
        return bytes;
    }
    void MoveTo(int line, int column)
    {
        SetCursor(text_, ColumnIndex(column), LineIndex(line));
        ExtendBlock(text_);
    }
};

TEST_F(BlocksTest, MarkingFromTheCursorHoldsItsCharacterOrTheNewline)
{
    Start({"abcdefgh", "ijkl", "mnop"}, 0, 3);
    MarkBlockStart(text_);
    CursorRight(text_);
    ExtendBlock(text_);
    EXPECT_EQ(BlockText(), "de");
    EXPECT_EQ(Backgrounds(0).substr(0, 10), "bbbttbbbbb");

    Start({"abcdefgh", "ijkl", "mnop"}, 0, 8);
    MarkBlockStart(text_);
    CursorDown(text_);
    ExtendBlock(text_);
    EXPECT_EQ(BlockText(), "\nijkl\n");
    EXPECT_EQ(Backgrounds(0).substr(0, 10), "bbbbbbbbtt");
    EXPECT_TRUE(PaintedAsFullRedraw());
}

// The moving end goes down, across the start and back: each step must
// paint what a full redraw paints.
TEST_F(BlocksTest, ExtendingRepaintsExactlyTheChangedCells)
{
    Start({"first line", "", "third line here", "four", "fifth"}, 2, 6, 20, 5);
    MarkBlockStart(text_);
    const int path[][2] = {{2, 9}, {3, 2}, {4, 5}, {2, 1}, {0, 3}, {1, 0}, {2, 6}, {2, 30}, {3, 4}, {0, 0}};
    for (const auto& step : path) {
        SCOPED_TRACE(std::to_string(step[0]) + "/" + std::to_string(step[1]));
        MoveTo(step[0], step[1]);
        ASSERT_TRUE(PaintedAsFullRedraw());
    }
    EXPECT_EQ(BlockText(), "first line\n\nthird l");
    UnmarkBlock(text_);
    EXPECT_EQ(Backgrounds(0), std::string(20, 'b'));
}

TEST_F(BlocksTest, MarkTextAndMarkLine)
{
    Start({"find the word", "   "}, 0, 5);
    MarkText(text_, "the");
    EXPECT_EQ(BlockText(), "the");
    SetCursor(text_, ColumnIndex(2), LineIndex(1));
    MarkLine(text_);
    EXPECT_EQ(BlockText(), "\n");
    EXPECT_EQ(TestInBlock(text_, 1, 30), 1);
    EXPECT_TRUE(PaintedAsFullRedraw());
}

TEST_F(BlocksTest, DeleteBlock)
{
    const struct {
        const char* name;
        int startLine, startColumn, endLine, endColumn;
        const char *result, *cursor;
    } cases[] = {
        {"inside a line", 0, 1, 0, 2, "0cde\n1abc\n2abc\n3abc", "0/1"},
        {"two whole lines", 1, 0, 2, 4, "0abcde\n3abc", "1/0"},
        {"ending mid line", 0, 2, 2, 1, "0abc\n3abc", "0/2"},
        {"the end of the text", 2, 2, 3, 4, "0abcde\n1abc\n2a", "2/2"},
        {"moving end first", 3, 1, 1, 3, "0abcde\n1abbc", "1/3"},
        {"a line's newline", 0, 6, 0, 6, "0abcde1abc\n2abc\n3abc", "0/6"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Start({"0abcde", "1abc", "2abc", "3abc"}, 0, 0, 20, 3);
        Mark(c.startLine, c.startColumn, c.endLine, c.endColumn);
        ASSERT_TRUE(DeleteBlock(text_));
        EXPECT_EQ(Dump(), c.result);
        EXPECT_EQ(Cursor(), c.cursor);
        EXPECT_FALSE(text_->TextState & BlockMarked);
        EXPECT_TRUE(CheckInvariants(text_));
        EXPECT_TRUE(PaintedAsFullRedraw());
    }
    ClearReports();
    EXPECT_FALSE(DeleteBlock(text_));
    EXPECT_EQ(Reports(), std::vector<MessageId>{MessageId::NoBlockMarked});
    // Del inside the block deletes it.
    Start({"one two three"}, 0, 5);
    Mark(0, 4, 0, 7);
    DeleteChar(text_);
    EXPECT_EQ(Dump(), "one three");
}

TEST_F(BlocksTest, IndentKeepsTheBlockOnItsCharacters)
{
    Start({"a", "  b", "c"}, 1, 2);
    text_->TabSize = 4;
    Mark(0, 0, 1, 2);
    IndentBlock(text_, 1);
    EXPECT_EQ(Dump(), "    a\n      b\nc");
    EXPECT_EQ(BlockText(), "    a\n      b");
    EXPECT_EQ(Cursor(), "1/6");
    EXPECT_TRUE(PaintedAsFullRedraw());

    IndentBlock(text_, -1);
    IndentBlock(text_, -1);
    EXPECT_EQ(Dump(), "a\nb\nc");
    EXPECT_EQ(BlockText(), "a\nb");
}

TEST_F(BlocksTest, ChangeCaseOfTheBlockOrOfTheCursorsCharacter)
{
    Start({"mixed Case", "other"}, 0, 1);
    Mark(0, 0, 0, 4);
    ChangeCase(text_, true);
    EXPECT_EQ(Dump(), "MIXED Case\nother");
    EXPECT_EQ(text_->Modified, 0) << "the cursor's line changes at its flush";
    SetCursor(text_, ColumnIndex(7), LineIndex(0));
    Mark(0, 6, 1, 1);
    ChangeCase(text_, true);
    EXPECT_EQ(Dump(), "MIXED CASE\nOTher");
    EXPECT_EQ(text_->Modified, 1);

    UnmarkBlock(text_);
    SetCursor(text_, ColumnIndex(1), LineIndex(1));
    ChangeCase(text_, false);
    EXPECT_EQ(Dump(), "MIXED CASE\nOther");
    EXPECT_TRUE(PaintedAsFullRedraw());
}

TEST_F(BlocksTest, WriteBlockWritesItsBytesAsTheyAre)
{
    const std::string name = testing::TempDir() + "block.txt";
    Start({"one", "two", "three"}, 0, 1);
    Mark(0, 1, 2, 1);
    ASSERT_TRUE(WriteBlockToFile(text_, name.c_str()));
    std::ifstream file(name, std::ios::binary);
    std::stringstream bytes;
    bytes << file.rdbuf();
    EXPECT_EQ(bytes.str(), "ne\ntwo\nth");
    std::remove(name.c_str());

    ClearReports();
    EXPECT_FALSE(WriteBlockToFile(text_, "/nonexistent/dir/block.txt"));
    EXPECT_EQ(Reports(), std::vector<MessageId>{MessageId{73}});
    EXPECT_TRUE(text_->TextState & BlockMarked);
}

} // namespace

// The cursor and the viewport on a headless window: where the viewport
// lands when it must follow, single steps that scroll by one line, paging,
// sideways scrolling, and the cursor's moves by column, word and line end.
#include "../render_test_support.h"
#include "frame/window/refresh.h"
#include "frame/window/text_window.h"
#include "frame/window/text_window_scrollers.h"
#include "platform/display/input_codes.h"
#include "text/edit/cursor_motion.h"
#include "text/edit/cursor_placing.h"
#include "text/lines/edit_line.h"
#include "text/record/line_table.h"
#include "text/render/render.h"
#include "text/input/scroller_gadgets.h"
#include "text/record/text_record.h"
#include "text/edit/viewport.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>

namespace {

class ViewportTest : public RenderTest {
protected:
    // A window of `columns` x `rows` on `count` lines "line 1", "line 2"...
    void OpenNumbered(int columns, int rows, int count)
    {
        Open(columns, rows, {""});
        for (EmptyLineTable(text_); text_->LineCount < count;) {
            std::snprintf(text_->WorkLine, 32, "line %d", text_->LineCount + 1);
            ASSERT_TRUE(StoreLine(text_, text_->WorkLine, text_->LineCount));
        }
        LoadEditLine(text_, LineIndex(0), ColumnIndex(0));
        RefreshAll(text_);
    }

    void Place(int line, int column) { SetCursor(text_, ColumnIndex(column), LineIndex(line)); }
    std::string Cursor() const { return std::to_string(text_->CursorLine) + "/" + std::to_string(text_->CursorColumn); }
    std::string Edit() const { return std::string(text_->EditLine, static_cast<size_t>(text_->EditLength)); }
};

// 20 rows (the headless screen shows 19 of them; the rows checked lie above).
TEST_F(ViewportTest, FollowingTheCursorDownAndUp)
{
    const struct {
        const char* name;
        int lines, targetLine;
        bool leftButton;
        int startTop, expectedTop;
    } cases[] = {
        {"far line is centred", 200, 100, false, 0, 90},
        {"near the end the last line is on the bottom row", 200, 195, false, 0, 180},
        {"short text keeps the top", 15, 14, false, 0, 0},
        {"dragging below keeps the cursor near the bottom", 200, 60, true, 0, 42},
        {"dragging above keeps it near the top", 200, 60, true, 100, 58},
        {"visible line moves nothing", 200, 110, false, 100, 100},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        OpenNumbered(40, 20, c.lines);
        text_->TopLine = c.startTop;
        RefreshAll(text_);
        text_->LastQualifier = c.leftButton ? IEQUALIFIER_LEFTBUTTON : 0;
        Place(c.targetLine, 0);
        EXPECT_EQ(text_->TopLine, c.expectedTop);
        EXPECT_EQ(Row(c.targetLine - c.expectedTop), "line " + std::to_string(c.targetLine + 1));
    }
}

TEST_F(ViewportTest, FollowingSidewaysLeavesHalfAWindowOrAQuarterWhileDragging)
{
    Open(20, 4, {"x"});
    text_->CursorColumn = 100;
    EXPECT_TRUE(FollowCursor(text_, false));
    EXPECT_EQ(text_->LeftColumn, 90);
    EXPECT_EQ(text_->EditLength, 100) << "the line is padded to the cursor";
    text_->LastQualifier = IEQUALIFIER_LEFTBUTTON;
    text_->CursorColumn = 120;
    FollowCursor(text_, false);
    EXPECT_EQ(text_->LeftColumn, 105) << "right: 10 + 5 from the left edge";
    text_->CursorColumn = 50;
    FollowCursor(text_, false);
    EXPECT_EQ(text_->LeftColumn, 45) << "left: a quarter";
    text_->LastQualifier = 0;
    text_->CursorColumn = 254;
    FollowCursor(text_, false);
    EXPECT_EQ(text_->LeftColumn, 255 - 20) << "never past the longest line";
}

TEST_F(ViewportTest, SingleStepsScrollOneLineAndStopAtBothEnds)
{
    OpenNumbered(20, 15, 100);
    Place(14, 0);
    CursorDown(text_);
    EXPECT_EQ(text_->TopLine, 1);
    EXPECT_EQ(text_->CursorLine, 15);
    EXPECT_EQ(Row(0), "line 2");
    EXPECT_EQ(Row(14), "line 16");
    for (int i = 0; i < 15; ++i)
        CursorUp(text_);
    EXPECT_EQ(text_->TopLine, 0);
    EXPECT_EQ(Row(1), "line 2");

    OpenNumbered(20, 10, 12);
    ScrollLineUp(text_);
    EXPECT_EQ(text_->TopLine, 0);
    for (int i = 0; i < 3; ++i)
        ScrollLineDown(text_);
    EXPECT_EQ(text_->TopLine, 2);
    EXPECT_EQ(text_->CursorLine, 2) << "the cursor rode along";
    EXPECT_EQ(Row(9), "line 12");
}

TEST_F(ViewportTest, SetCursorOnTheSameLineLeavesTheViewport)
{
    Open(10, 4, {"abcdefghijklmnopqrstuvwxyz"});
    CursorLineEnd(text_);
    EXPECT_EQ(text_->LeftColumn, 21);
    Place(0, 0);
    EXPECT_EQ(text_->LeftColumn, 21) << "Home doesn't scroll";
    CursorLineStart(text_);
    EXPECT_EQ(text_->LeftColumn, 0) << "moving to the start follows";
    EXPECT_EQ(Row(0), "abcdefghij");
}

TEST_F(ViewportTest, PagingKeepsTheColumnAndCarriesTheCursorOnlyWhenItLeaves)
{
    OpenNumbered(20, 10, 100);
    Place(5, 3);
    ScrollPage(text_, 1);
    EXPECT_EQ(text_->TopLine, 9);
    EXPECT_EQ(Cursor(), "14/3") << "carried with the text";
    Place(12, 3);
    ScrollPage(text_, -1);
    EXPECT_EQ(text_->TopLine, 0);
    EXPECT_EQ(text_->CursorLine, 3);
    Place(5, 3);
    ScrollToLine(text_, 2);
    EXPECT_EQ(text_->CursorLine, 5) << "still visible: stays";
    EXPECT_EQ(Row(0), "line 3");
    EXPECT_EQ(Row(9), "line 12");
    EXPECT_EQ(ScrollToLine(text_, 1000), 88) << "the last line stays on the bottom row";
}

TEST_F(ViewportTest, ScrollerValuesCoverTheFullRange)
{
    OpenNumbered(20, 10, 1000);
    ScrollToVertPot(text_, 0xFFFF);
    EXPECT_EQ(text_->TopLine, 990);
    ScrollToVertPot(text_, 0x8000);
    EXPECT_EQ(text_->TopLine, 495);
    ScrollToHorizPot(text_, 0xFFFF);
    EXPECT_EQ(text_->LeftColumn, 255 - 20);
    EXPECT_EQ(text_->CursorColumn, 235) << "the cursor is kept in view";
    EXPECT_EQ(text_->LastHorizPot, 0xFFFF);
}

TEST_F(ViewportTest, SidewaysScrollingStopsOneColumnPastTheScroller)
{
    Open(20, 4, {"abc"});
    text_->LeftColumn = 235;
    ScrollColumnRight(text_);
    EXPECT_EQ(text_->LeftColumn, 236);
    ScrollColumnRight(text_);
    EXPECT_EQ(text_->LeftColumn, 236);
    ScrollPageSideways(text_, -1, 0);
    EXPECT_EQ(text_->LeftColumn, 217);
    EXPECT_EQ(text_->CursorColumn, 236) << "still in view";
    for (int page = 0; page < 12; ++page)
        ScrollPageSideways(text_, -1, 0);
    EXPECT_EQ(text_->LeftColumn, 0);
    EXPECT_EQ(Row(0), "abc");
}

TEST_F(ViewportTest, CursorRightGrowsTheLineAndLeavingDropsTheSpaces)
{
    Open(20, 4, {"ab", "cd"});
    Place(0, 2);
    CursorRight(text_);
    CursorRight(text_);
    EXPECT_EQ(Edit(), "ab  ");
    EXPECT_EQ(text_->CursorColumn, 4);
    CursorDown(text_);
    EXPECT_EQ(StoredLines(text_), (Lines{"ab", "cd"}));
    EXPECT_EQ(text_->Modified, 0);
    Place(0, 254);
    CursorRight(text_);
    EXPECT_EQ(text_->CursorColumn, 254) << "stops at the last column";
    EXPECT_TRUE(CheckInvariants(text_));
}

// From a column of the middle line of three, Word left and Word right; on
// the text's last line Word right goes back to the line's first non-space.
TEST_F(ViewportTest, WordMovesStopAtLettersAndDigitsOnly)
{
    const struct {
        const char* line;
        int from;
        const char *left, *right;
    } cases[] = {
        {"alpha beta gamma", 8, "1/6", "1/11"}, {"alpha beta gamma", 6, "1/0", "1/11"},
        {"alpha beta gamma", 11, "1/6", "2/2"}, {"well-known, fine", 16, "1/12", "2/2"},
        {"well-known, fine", 10, "1/5", "1/12"}, {"   indented word", 3, "0/10", "1/12"},
        {"   indented word", 5, "1/3", "1/12"}, {"(x", 2, "1/0", "2/2"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.line) + " from " + std::to_string(c.from));
        Open(40, 4, {"first line", c.line, "  next"});
        Place(1, c.from);
        CursorWordLeft(text_);
        EXPECT_EQ(Cursor(), c.left);
        Place(1, c.from);
        CursorWordRight(text_);
        EXPECT_EQ(Cursor(), c.right);
    }
    Open(40, 4, {"  one two"});
    Place(0, 6);
    CursorWordRight(text_);
    EXPECT_EQ(Cursor(), "0/2");
}

TEST_F(ViewportTest, LineEndsTrimAndStayInsideTheLongestLine)
{
    Open(40, 4, {"abc", "xyz"});
    Place(1, 1);
    CursorRight(text_);
    CursorRight(text_);
    CursorRight(text_);
    CursorLineEnd(text_);
    EXPECT_EQ(text_->CursorColumn, 3);
    EXPECT_EQ(Edit(), "xyz");
    CursorPrevLineEnd(text_);
    EXPECT_EQ(Cursor(), "0/3");
    CursorNextLineStart(text_);
    EXPECT_EQ(Cursor(), "1/0");
    std::string full(255, 'w');
    std::strcpy(text_->EditLine, full.c_str());
    text_->EditLength = 255;
    CursorLineEnd(text_);
    EXPECT_EQ(text_->CursorColumn, 254);
}

TEST_F(ViewportTest, RowPlacingClampsToTheTextAndScrollsForCellsOutside)
{
    OpenNumbered(20, 10, 30);
    EXPECT_FALSE(SetCursorOnRow(text_, 3, 4));
    EXPECT_EQ(text_->CursorLine, 4);
    EXPECT_EQ(text_->EditLength, 6) << "\"line 5\" is long enough";
    EXPECT_TRUE(SetCursorOnRow(text_, -5, 12));
    EXPECT_EQ(Cursor(), "12/0");
    EXPECT_EQ(text_->TopLine, 7);
    EXPECT_TRUE(SetCursorOnRow(text_, 0, 500));
    EXPECT_EQ(text_->CursorLine, 29);
    EXPECT_EQ(text_->TopLine, 20);
}

class ScrollerTest : public ViewportTest {
protected:
    // 1000 lines in a window of 10 rows with its six gadgets, taking every
    // class a text window takes.
    void SetUp() override
    {
        ViewportTest::SetUp();
        OpenNumbered(20, 10, 1000);
        ASSERT_TRUE(AddScrollers(text_));
        ModifyIDCMP(text_->Window, TextWindowIDCMP);
        display_.Activate(text_->Window);
        UpdateVertScroller(text_);
    }
    // The gadgets go with the window, before the record; the display and
    // its pens go with the fixture.
    void TearDown() override
    {
        ScrollerBlock* scrollers = FindScrollers(text_->Window);
        CloseWindow(text_->Window);
        text_->Window = nullptr;
        FreeScrollers(text_, scrollers);
        ViewportTest::TearDown();
    }
    Gadget* Find(uint16_t id) const
    {
        for (Gadget* gadget = text_->Window->FirstGadget; gadget; gadget = gadget->NextGadget)
            if (gadget->GadgetID == id)
                return gadget;
        return nullptr;
    }
    // The user's hold of a gadget, already over when the text gets to it.
    void Work(uint16_t id, bool knob, int pot = -1)
    {
        if (pot >= 0)
            display_.MoveKnob(id, static_cast<uint16_t>(pot));
        display_.PressGadget(id, knob);
        display_.ReleaseGadget(id);
        HandleScrollerGadget(text_, Find(id));
    }
};

TEST_F(ScrollerTest, ArrowsStepAndTheKnobIsFollowedOnRelease)
{
    Work(GADGETID_ARROWDOWN, false);
    EXPECT_EQ(text_->TopLine, 1);
    Work(GADGETID_ARROWUP, false);
    EXPECT_EQ(text_->TopLine, 0);
    // The knob dragged to the end: followed while held, on each move, and
    // once more on release; a tick repeats nothing when nothing changed.
    display_.PressGadget(GADGETID_VERTSCROLLER, true);
    display_.MoveKnob(GADGETID_VERTSCROLLER, 0x8000);
    display_.Tick();
    std::thread user([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        display_.MoveKnob(GADGETID_VERTSCROLLER, 0xFFFF);
        display_.ReleaseGadget(GADGETID_VERTSCROLLER);
    });
    HandleScrollerGadget(text_, Find(GADGETID_VERTSCROLLER));
    user.join();
    EXPECT_EQ(text_->TopLine, 990);
    EXPECT_EQ(text_->LastVertPot, 0xFFFF);
    Work(GADGETID_ARROWRIGHT, false);
    EXPECT_EQ(text_->LeftColumn, 1);
}

TEST_F(ScrollerTest, ClickBesideTheKnobPagesTowardIt)
{
    Work(GADGETID_VERTSCROLLER, false, 0x4000);
    EXPECT_EQ(text_->TopLine, 9);
    EXPECT_EQ(Row(0), "line 10");
    Work(GADGETID_VERTSCROLLER, false, 0);
    EXPECT_EQ(text_->TopLine, 0);
}

} // namespace

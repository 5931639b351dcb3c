// The text window on the headless display, driven from the test thread,
// which plays the text process; a task of its own plays the main process
// and serves the screen and the title windows.
#include "frame/protocol/send.h"
#include "frame/window/text_window.h"
#include "frame/window/text_window_scrollers.h"
#include "frame/window/title_window.h"
#include "../frame_test_support.h"
#include "../main_stand_in.h"
#include "platform/display/headless/headless_display.h"
#include "text/lines/edit_line.h"
#include "text/record/line_table.h"

#include <gtest/gtest.h>

#include <cstring>

#include <memory>
#include <string>

namespace {

class TextWindowTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        SetDisplayBackend(&display_);
        ResetAppGlobals();
        main_ = std::make_unique<MainStandIn>();
        text_ = CreateTextRecord("/texts");
        text_->MainPort = Globals.MainPort;
        text_->ReplyPort = FindTask(nullptr)->pr_MsgPort;
    }

    void TearDown() override
    {
        CloseTextWindow(text_);
        // The drop port outlives the window; the text process deletes it.
        DeleteMsgPort(text_->AppWindowPort);
        FreeTextRecord(text_);
        main_.reset();
        SetDisplayBackend(nullptr);
    }

    // Everything sent to main so far has been served.
    void Settle() { SendToMainWait(text_, CMD_LOAD_TOOLBAR, 0); }

    void Store(std::initializer_list<const char*> lines)
    {
        for (EmptyLineTable(text_); const char* line : lines) {
            std::strcpy(text_->WorkLine, line);
            ASSERT_TRUE(StoreLine(text_, text_->WorkLine, text_->LineCount));
        }
        LoadEditLine(text_, LineIndex{0}, ColumnIndex{0});
    }

    HeadlessDisplay display_;
    TextRecord* text_ = nullptr;
    std::unique_ptr<MainStandIn> main_;
};

struct TitleCase {
    bool modified;
    bool fullName;
    int line, column;
    const char* expected;
};

TEST_F(TextWindowTest, TitleShowsNameChangeCharacterAndPosition)
{
    const TitleCase cases[] = {
        {true, false, 0, 0, "NoName (modified) ($20 1-1/1)"},
        {false, false, 1, 1, "NoName ($62 2-2/3)"},
        {false, false, 2, 4, "NoName ($20 5-3/3)"},   // behind the end of "z"
        {false, true, 1, 0, "/texts/NoName ($61 1-2/3)"},
    };
    ASSERT_NE(OpenTextWindow(text_), nullptr);
    for (const TitleCase& c : cases) {
        if (c.line == 0)
            Store({""});
        else
            Store({"x", "abc", "z"});
        LoadEditLine(text_, LineIndex{c.line}, ColumnIndex{c.column});
        text_->Modified = c.modified;
        text_->Options = c.fullName ? text_->Options | FullName : text_->Options & ~FullName;
        UpdateStatusTitle(text_);
        EXPECT_EQ(display_.Title(text_->Window), c.expected);
    }
    text_->TextState |= Busy;
    text_->Modified = 1;
    UpdateStatusTitle(text_);
    EXPECT_EQ(display_.Title(text_->Window), cases[3].expected) << "a running command owns the title";
}

// A full name of a 300-byte directory and a 255-byte file name: the title
// shows all of it, never a cut folder.
TEST_F(TextWindowTest, TitleShowsLongFullNameWhole)
{
    ASSERT_NE(OpenTextWindow(text_), nullptr);
    Store({""});
    const std::string directory = "/" + std::string(200, 'd') + "/" + std::string(99, 'e');
    const std::string name(255, 'n');
    std::strcpy(text_->FileDirectory, directory.c_str());
    std::strcpy(text_->FileName, name.c_str());
    text_->Modified = 0;
    text_->Options |= FullName;
    UpdateStatusTitle(text_);
    EXPECT_EQ(display_.Title(text_->Window), directory + "/" + name + " ($20 1-1/1)");
}

struct VertCase {
    int lines, top;
    uint16_t pot, body;
};

TEST_F(TextWindowTest, ScrollerPotsAndBodiesFollowTheText)
{
    ASSERT_NE(OpenTextWindow(text_), nullptr);
    ASSERT_EQ(text_->VisibleRows, 19);
    ASSERT_EQ(text_->VisibleColumns, 77);
    ScrollerBlock* scrollers = FindScrollers(text_->Window);
    ASSERT_NE(scrollers, nullptr);
    const VertCase vertical[] = {
        {5, 0, 0, 0xFFFF},        // shorter than the window: full knob
        {100, 0, 0, 12451},       // 19 of 100 lines
        {100, 40, 32362, 12451},  // 40 of 81 steps
        {100, 81, 0xFFFF, 12451}, // the last full page
        {100, 90, 0xFFFF, 6553},  // past it: pot cut, knob of the 10 lines left
    };
    for (const VertCase& c : vertical) {
        text_->LineCount = c.lines;
        text_->TopLine = c.top;
        UpdateVertScroller(text_);
        EXPECT_EQ(scrollers->VertInfo.VertPot, c.pot) << c.lines << " lines from " << c.top;
        EXPECT_EQ(scrollers->VertInfo.VertBody, c.body) << c.lines << " lines from " << c.top;
        EXPECT_EQ(scrollers->VertInfo.HorizPot, 0xFFFF);
        EXPECT_EQ(text_->LastVertPot, c.pot);
    }

    const struct {
        int longest, left;
        uint16_t pot, body;
    } horizontal[] = {
        {255, 0, 0, 19789},
        {255, 89, 32767, 19789},
        {255, 178, 0xFFFF, 19789},
        {50, 0, 0, 0xFFFF},   // the window is wider than any line
    };
    for (const auto& c : horizontal) {
        text_->MaxLineLength = c.longest;
        text_->LeftColumn = c.left;
        UpdateHorizScroller(text_);
        EXPECT_EQ(scrollers->HorizInfo.HorizPot, c.pot) << c.longest << " from " << c.left;
        EXPECT_EQ(scrollers->HorizInfo.HorizBody, c.body) << c.longest << " from " << c.left;
        EXPECT_EQ(text_->LastHorizPot, c.pot);
    }
}

TEST_F(TextWindowTest, ScrollerHeldByTheUserIsLeftAlone)
{
    ASSERT_NE(OpenTextWindow(text_), nullptr);
    ScrollerBlock* scrollers = FindScrollers(text_->Window);
    text_->LineCount = 100;
    UpdateVertScroller(text_);
    ASSERT_TRUE(display_.PressGadget(GADGETID_VERTSCROLLER, true));
    text_->TopLine = 81;
    UpdateVertScroller(text_);
    EXPECT_EQ(scrollers->VertInfo.VertPot, 0);
    ASSERT_TRUE(display_.ReleaseGadget(GADGETID_VERTSCROLLER));
    UpdateVertScroller(text_);
    EXPECT_EQ(scrollers->VertInfo.VertPot, 0xFFFF);
}

TEST_F(TextWindowTest, TitleWindowComesBackWhereItWasDragged)
{
    ASSERT_NE(OpenTextWindow(text_), nullptr);
    Store({"first line", "second"});
    text_->TextState |= BlockMarked;
    IconifyText(text_);
    ASSERT_EQ(text_->TextState, Iconified);
    Window* title = text_->Window;
    EXPECT_TRUE(display_.IsTitleWindow(title));
    EXPECT_EQ(display_.Title(title), "NoName");
    // "NoName" is 48 pixels, and a character more; one pixel apart from
    // the screen's right end less 22.
    EXPECT_EQ(title->LeftEdge, 640 - 22 - 57);
    EXPECT_EQ(title->TopEdge, 1);
    EXPECT_EQ(title->Width, 56);
    Settle();
    EXPECT_EQ(Globals.ScreenUseCount, 1) << "the screen stayed held across the switch";

    MoveWindow(title, -100, 50);
    ASSERT_EQ(RaiseTextWindow(text_), 1);
    EXPECT_EQ(text_->TextState, WindowOpen) << "the block did not survive";
    EXPECT_EQ(display_.RowText(text_->Window, 1).substr(0, 6), "second");
    EXPECT_EQ(text_->CursorShown, 1);

    IconifyText(text_);
    EXPECT_EQ(text_->Window->LeftEdge, 640 - 22 - 57 - 100);
    EXPECT_EQ(text_->Window->TopEdge, 51);
    Settle();
    EXPECT_EQ(Globals.ScreenUseCount, 1);
    EXPECT_EQ(display_.ScreenLocks(), 1);
}

TEST_F(TextWindowTest, TitleWindowsFillRowsFromTheRight)
{
    Globals.Screen = LockPubScreen(nullptr);
    Globals.IconNextLeft = 640 - 22;
    // A name of 30 characters: 240 pixels and one character more.
    std::strcpy(text_->FileName, "abcdefghijklmnopqrstuvwxyz1234");
    text_->CharWidth = 8;
    const struct {
        int16_t iconLeft, iconTop;   // where the text's title window stood
        int16_t left, top;
    } places[] = {
        {0, 0, 369, 1},
        {0, 0, 120, 1},
        {0, 0, 392, 12},   // no room left: a row lower, from the right
        {0, 0, 143, 12},
        {600, 5, 392, 5},  // a placed one stays, moved left until it fits
    };
    for (const auto& place : places) {
        text_->IconLeft = place.iconLeft;
        text_->IconTop = place.iconTop;
        NewWindow* description = PlaceTitleWindow(text_);
        ASSERT_NE(description, nullptr);
        EXPECT_EQ(description->LeftEdge, place.left);
        EXPECT_EQ(description->TopEdge, place.top);
        EXPECT_EQ(description->Width, 248);
        FreeVec(description);
    }
    EXPECT_EQ(Globals.IconNextLeft, 143) << "a placed text takes no new slot";
}

TEST_F(TextWindowTest, HiddenTextGivesUpTheScreenAndComesBackDrawn)
{
    ASSERT_NE(OpenTextWindow(text_), nullptr);
    Store({"kept"});
    HideText(text_);
    EXPECT_EQ(text_->TextState, Hidden);
    EXPECT_EQ(text_->Window, nullptr);
    Settle();
    EXPECT_EQ(Globals.ScreenUseCount, 0);
    EXPECT_EQ(Globals.Screen, nullptr);
    EXPECT_EQ(display_.ScreenLocks(), 0);

    ASSERT_TRUE(EnsureWindow(text_));
    EXPECT_EQ(text_->TextState, WindowOpen);
    EXPECT_EQ(display_.RowText(text_->Window, 0).substr(0, 4), "kept");
    Settle();
    EXPECT_EQ(Globals.ScreenUseCount, 1);
}

} // namespace

// Stopping a running loop from its text window, on the headless display.
#include "macro_test_support.h"

#include "frame/window/text_window.h"
#include "platform/display/headless/headless_display.h"
#include "platform/display/intuition.h"

#include <string>

namespace {

Window* OpenLoopWindow(Screen* screen)
{
    NewWindow description;
    description.Width = 200;
    description.Height = 100;
    description.IDCMPFlags = TextWindowIDCMP;
    description.Flags = WFLG_SIZEGADGET | WFLG_CLOSEGADGET | WFLG_ACTIVATE;
    description.Screen = screen;
    return OpenWindow(&description);
}

class LoopBreakTest : public MacroTest {
protected:
    void SetUp() override
    {
        MacroTest::SetUp();
        SetDisplayBackend(&display_);
        screen_ = LockPubScreen(nullptr);
        text_->Window = OpenLoopWindow(screen_);
        ASSERT_NE(text_->Window, nullptr);
        text_->TextState = WindowOpen;
    }
    void TearDown() override
    {
        CloseWindow(text_->Window);
        text_->Window = nullptr;
        UnlockPubScreen(nullptr, screen_);
        SetDisplayBackend(nullptr);
        MacroTest::TearDown();
    }

    HeadlessDisplay display_;
    Screen* screen_ = nullptr;
};

} // namespace

// Input that waits at the port when the loop starts is looked at on its
// first turn, so these cases need no second thread.
TEST_F(LoopBreakTest, CtrlAltEscOrTheCloseGadgetStopsALoop)
{
    const struct {
        const char* Key;        // pressed before the loop, or null for the close gadget
        const char* Expected;   // what the loop gives
        const char* Turns;      // A after it
    } rows[] = {
        {"Ctrl+Alt+Esc", "#229", "1"},
        {"Ctrl+Shift+Alt+Esc", "#229", "1"},
        {nullptr, "#229", "1"},
        {"Ctrl+Esc", "0", "20"},
        {"Alt+Esc", "0", "20"},
        {"Esc", "0", "20"},
        {"x", "0", "20"},
    };
    for (const auto& row : rows) {
        std::string error;
        ASSERT_TRUE(row.Key ? display_.PressKey(row.Key, &error) : display_.PressCloseGadget()) << error;
        EXPECT_EQ(Run("A=0:WHILE(A<20,A=A+1)"), row.Expected) << (row.Key ? row.Key : "close gadget");
        EXPECT_EQ(Run("A"), row.Turns);
        EXPECT_EQ(text_->Window->IDCMPFlags, TextWindowIDCMP);
        // Whatever came while the loop ran is gone.
        EXPECT_EQ(GetMsg(text_->Window->UserPort), nullptr);
    }
}

TEST_F(LoopBreakTest, TheWindowsEventsComeBackOnEveryPath)
{
    const LanguageRow rows[] = {
        {"WHILE(0,1)", "0"},
        {"A=0:WHILE(1,A=A+1)", "#224"},
        {"A=0:WHILE(A<3,A=A+1,1/0)", "#219"},
        {"FOR(I=0,I<3,I=I+1,WHILE(J<2,J=J+1))", "0"},
    };
    for (const LanguageRow& row : rows) {
        EXPECT_EQ(Run(row.Commands), row.Expected) << row.Commands;
        EXPECT_EQ(text_->Window->IDCMPFlags, TextWindowIDCMP) << row.Commands;
    }
    // Keys typed outside a loop stay for the text.
    ASSERT_TRUE(display_.Type("k"));
    Run("1+1");
    Message* typed = GetMsg(text_->Window->UserPort);
    EXPECT_NE(typed, nullptr);
    if (typed)
        ReplyMsg(typed);
}

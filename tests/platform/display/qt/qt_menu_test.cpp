// A window's menu strip as a menu bar of the desktop backend: the room it
// keeps, what it shows, and picks reaching the task with check marks.
#include "platform/display/display.h"
#include "platform/display/qt/display_thread.h"
#include "platform/display/qt/qt_window.h"
#include "platform/exec/exec.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr uint32_t kFlags = WFLG_CLOSEGADGET | WFLG_SIZEGADGET | WFLG_SIZEBRIGHT | WFLG_SIZEBBOTTOM |
                            WFLG_NEWLOOKMENUS;

const NewMenu kTable[] = {
    {NM_TITLE, "Project", nullptr, 0, 0, 0},
    {NM_ITEM, "Save\xA0text", "S", 0, 0, 3},
    {NM_ITEM, NM_BARLABEL, nullptr, 0, 0, 0},
    {NM_ITEM, "Q&A", "=", 0, 0, 5},
    {NM_TITLE, "Find/Replace", nullptr, 0, 0, 0},
    {NM_ITEM, "UPPER=lower", nullptr, CHECKIT | MENUTOGGLE, 0, 36},
    {},
};

Window* OpenWindowWith(uint32_t flags) {
    NewWindow description{.Width = 420, .Height = 260, .IDCMPFlags = IDCMP_MENUPICK | IDCMP_MENUHELP,
                   .Flags = flags, .Title = "menus"};
    return OpenWindow(&description);
}

QMenuBar* Bar(Window* window) { return static_cast<QtWindow*>(window->Peer)->Widget()->MenuBar(); }

// The texts of the bar's menus and their actions, once the display thread
// has shown the last change.
std::vector<std::string> Shown(Window* window) {
    std::vector<std::string> texts;
    RunOnDisplay([&] {
        for (QAction* title : Bar(window)->actions()) {
            texts.push_back(title->text().toStdString());
            for (QAction* item : title->menu()->actions())
                texts.push_back(item->isSeparator() ? "-" : "  " + item->text().toStdString());
        }
    });
    return texts;
}

void Trigger(Window* window, int menu, int item) {
    RunOnDisplay([&] { Bar(window)->actions()[menu]->menu()->actions()[item]->trigger(); });
}

std::vector<IntuiMessage> Drain(Window* window) {
    std::vector<IntuiMessage> messages;
    for (int wait = 0; wait < 5; ++wait) {
        while (Message* message = GetMsg(window->UserPort)) {
            messages.push_back(*reinterpret_cast<IntuiMessage*>(message));
            ReplyMsg(message);
        }
        Delay(1);
    }
    return messages;
}

TEST(QtMenuBar, KeptFromTheOpeningAboveTheTextArea) {
    Window* withMenus = OpenWindowWith(kFlags);
    Window* without = OpenWindowWith(kFlags & ~WFLG_NEWLOOKMENUS);
    ASSERT_NE(withMenus, nullptr);
    ASSERT_NE(without, nullptr);
    EXPECT_GT(withMenus->BorderTop, 0);
    EXPECT_EQ(without->BorderTop, 0);
    EXPECT_EQ(withMenus->BorderTop, withMenus->WScreen->WBorTop);
    EXPECT_EQ(withMenus->BorderRight, without->BorderRight);
    CloseWindow(withMenus);
    CloseWindow(without);
}

TEST(QtMenuBar, ShowsTheStripAndReportsPicks) {
    Window* window = OpenWindowWith(kFlags);
    ASSERT_NE(window, nullptr);
    Menu* strip = CreateMenus(kTable);
    ASSERT_TRUE(SetMenuStrip(window, strip));
    // Shortcuts are shown behind a tab and never bound; an '&' stays one.
    const std::vector<std::string> expected = {
        "Project", "  Save\u00A0text\tCtrl+S", "-", "  Q&&A", "Find/Replace", "  UPPER=lower"};
    EXPECT_EQ(Shown(window), expected);
    RunOnDisplay([&] {
        for (QAction* title : Bar(window)->actions())
            for (QAction* item : title->menu()->actions()) EXPECT_TRUE(item->shortcut().isEmpty());
    });

    const MenuItem* toggle = ItemAddress(strip, FULLMENUNUM(1, 0, NOSUB));
    for (bool checked : {true, false}) {
        Trigger(window, 1, 0);
        std::vector<IntuiMessage> messages = Drain(window);
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0].Class, IDCMP_MENUPICK);
        EXPECT_EQ(messages[0].Code, FULLMENUNUM(1, 0, NOSUB));
        EXPECT_EQ((toggle->Flags & CHECKED) != 0, checked);
        bool shown = false;
        RunOnDisplay([&] { shown = Bar(window)->actions()[1]->menu()->actions()[0]->isChecked(); });
        EXPECT_EQ(shown, checked);
    }

    // Without its strip the bar takes no pick, and the owner may free it.
    ClearMenuStrip(window);
    FreeMenus(strip);
    Trigger(window, 0, 0);
    EXPECT_TRUE(Drain(window).empty());
    bool enabled = true;
    RunOnDisplay([&] { enabled = Bar(window)->isEnabled(); });
    EXPECT_FALSE(enabled);
    CloseWindow(window);
}

}  // namespace

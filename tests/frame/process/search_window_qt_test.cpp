// The search window on the desktop backend (offscreen): opened by the main
// process's handler, a window of its own with every gadget, showing the
// strings and the case option, and gone when closed. The test task plays
// the main process; the dialog is read on the display thread.
#include "frame/process/dispatch.h"
#include "frame/process/search_window.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "platform/display/qt/display_thread.h"
#include "text/record/create_text_record.h"
#include "text/record/text_record.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <cstring>
#include <functional>

namespace {

constexpr const char* Title = "Tavrel Searching/Replacement";

class SearchWindowQtTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetAppGlobals();
        text_ = CreateTextRecord("/texts");
        ASSERT_NE(text_, nullptr);
    }

    void TearDown() override
    {
        CloseSearchWindow();
        FreeTextRecord(text_);
    }

    intptr_t Send(int16_t code, intptr_t argument)
    {
        CommandMessage message;
        message.Code = code;
        message.Sender = text_;
        message.Argument = argument;
        DispatchCommand(&message);
        return message.Argument;
    }

    // Runs `act` on the display thread with the visible search window, if any.
    void OnWindow(const std::function<void(QDialog*)>& act)
    {
        RunOnDisplay([&] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                auto* dialog = qobject_cast<QDialog*>(widget);
                if (dialog && dialog->isVisible() && dialog->windowTitle() == Title)
                    act(dialog);
            }
        });
    }

    int VisibleWindows()
    {
        int count = 0;
        OnWindow([&](QDialog*) { ++count; });
        return count;
    }

    TextRecord* text_ = nullptr;
};

TEST_F(SearchWindowQtTest, OpensBesideTheTextsWithEveryGadget)
{
    std::strcpy(Globals.SearchText, "gamma");
    std::strcpy(Globals.ReplaceText, "delta");
    text_->Options |= IgnoreCase;
    ASSERT_NE(Send(CMD_OPEN_SEARCH, 0), 0);

    QStringList buttons, labels, fields;
    bool modal = true, checked = false, findFocused = false;
    QString checkLabel;
    OnWindow([&](QDialog* dialog) {
        modal = dialog->windowModality() != Qt::NonModal;
        for (QPushButton* button : dialog->findChildren<QPushButton*>())
            buttons << button->text();
        for (QLabel* label : dialog->findChildren<QLabel*>())
            labels << label->text();
        for (QLineEdit* edit : dialog->findChildren<QLineEdit*>()) {
            fields << edit->text();
            if (edit->text() == "gamma")
                findFocused = edit->hasFocus();
            EXPECT_EQ(edit->maxLength(), 49);
        }
        auto* box = dialog->findChild<QCheckBox*>();
        checked = box->isChecked();
        checkLabel = box->text();
    });
    EXPECT_FALSE(modal);
    EXPECT_EQ(buttons, QStringList({"&Previous", "&Next", "Oth&er", "Pre&vious", "Ne&xt", "O&ther", "Resta&ure"}));
    EXPECT_EQ(labels, QStringList({"Sear&ch", "&Replace"}));
    EXPECT_EQ(fields, QStringList({"gamma", "delta"}));
    EXPECT_TRUE(findFocused) << "the find field has the keyboard";
    EXPECT_TRUE(checked) << "the box starts with the case option of the text that asked";
    EXPECT_EQ(checkLabel, "UPPER&=lower");

    // Asked again, the one window comes to the front.
    EXPECT_NE(Send(CMD_OPEN_SEARCH, 0), 0);
    EXPECT_EQ(VisibleWindows(), 1);
}

TEST_F(SearchWindowQtTest, FollowsTheStringsAndTheCaseOptionThenCloses)
{
    ASSERT_NE(Send(CMD_OPEN_SEARCH, 0), 0);
    char find[] = "epsilon";
    Send(CMD_SET_FIND, reinterpret_cast<intptr_t>(find));
    Send(CMD_CASE_CHANGED, 1);
    QString shown;
    bool checked = false;
    // The changes reach the dialog after the calls that made them.
    for (int tries = 0; tries < 200 && (shown != "epsilon" || !checked); ++tries) {
        OnWindow([&](QDialog* dialog) {
            shown = dialog->findChildren<QLineEdit*>().front()->text();
            checked = dialog->findChild<QCheckBox*>()->isChecked();
        });
    }
    EXPECT_EQ(shown, "epsilon");
    EXPECT_TRUE(checked);

    // Tab leaves the field without a command; Esc outside it closes.
    OnWindow([](QDialog* dialog) {
        QLineEdit* find = dialog->findChildren<QLineEdit*>().front();
        find->setFocus();
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QApplication::sendEvent(find, &tab);
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(dialog, &escape);
    });
    ASSERT_NE(SearchWindowSignal(), 0u);
    HandleSearchWindow();
    EXPECT_EQ(SearchWindowSignal(), 0u) << "Esc closed the window";
    EXPECT_EQ(VisibleWindows(), 0);
    EXPECT_STREQ(Globals.SearchText, "epsilon") << "the strings outlive the window";
}

} // namespace

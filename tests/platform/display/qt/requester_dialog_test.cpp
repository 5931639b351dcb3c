// Requester windows on the desktop: what the user does in the dialog comes
// back to the asking task as messages with gadget ids, and the values
// typed are in the gadget records.
#include "platform/display/qt/display_thread.h"
#include "platform/display/requester_window.h"
#include "../requester_gadget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

#include <functional>
#include <iterator>
#include <string>

namespace {

class RequesterDialogTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        RequesterGadget buttons = MakeGadget(GadgetKind::Horizontal, 0, "");
        buttons.Children = {MakeGadget(GadgetKind::Button, 1, "_YES"), MakeGadget(GadgetKind::Button, 0, "_NO")};
        RequesterGadget box = MakeGadget(GadgetKind::TextBox, 0, "");
        box.Rows = {"Question"};
        requester_.Title = "Asking";
        requester_.Layout.Children = {box, MakeGadget(GadgetKind::Check, 30, "Relative"), buttons};
        ASSERT_TRUE(OpenRequesterWindow(&requester_));
    }

    void TearDown() override { CloseRequesterWindow(&requester_); }

    // Runs `act` on the display thread with the requester's dialog.
    void OnDialog(const std::function<void(QDialog*)>& act)
    {
        RunOnDisplay([&] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                auto* dialog = qobject_cast<QDialog*>(widget);
                if (dialog && dialog->isVisible() && dialog->windowTitle() == "Asking")
                    act(dialog);
            }
        });
    }

    // The next message at the requester's port: its class and code.
    std::pair<uint32_t, uint16_t> Next()
    {
        WaitPort(requester_.UserPort);
        auto* message = reinterpret_cast<IntuiMessage*>(GetMsg(requester_.UserPort));
        std::pair<uint32_t, uint16_t> event{message->Class, message->Code};
        ReplyMsg(&message->ExecMessage);
        return event;
    }

    RequesterWindow requester_;
};

TEST_F(RequesterDialogTest, ButtonsKeysMouseAndCloseBecomeMessages)
{
    OnDialog([](QDialog* dialog) {
        for (QPushButton* button : dialog->findChildren<QPushButton*>())
            if (button->text() == "&NO")
                button->click();
    });
    EXPECT_EQ(Next(), std::make_pair(IDCMP_GADGETUP, uint16_t{0}));

    OnDialog([](QDialog* dialog) {
        QKeyEvent letter(QEvent::KeyPress, Qt::Key_Y, Qt::NoModifier, "y");
        QApplication::sendEvent(dialog, &letter);
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(dialog, &escape);
    });
    EXPECT_EQ(Next(), std::make_pair(IDCMP_GADGETUP, uint16_t{1})) << "the underscored letter presses its button";
    EXPECT_EQ(Next(), std::make_pair(IDCMP_RAWKEY, uint16_t{0x45}));

    OnDialog([](QDialog* dialog) {
        QMouseEvent right(QEvent::MouseButtonPress, QPointF(3, 3), QPointF(3, 3), Qt::RightButton, Qt::RightButton,
                          Qt::NoModifier);
        QApplication::sendEvent(dialog, &right);
        QCloseEvent close;
        QApplication::sendEvent(dialog, &close);
    });
    EXPECT_EQ(Next(), std::make_pair(IDCMP_MOUSEBUTTONS, IECODE_RBUTTON));
    EXPECT_EQ(Next(), std::make_pair(IDCMP_CLOSEWINDOW, uint16_t{0}));
}

TEST_F(RequesterDialogTest, CheckBoxesKeepTheirStateBothWays)
{
    OnDialog([](QDialog* dialog) { dialog->findChild<QCheckBox*>()->click(); });
    EXPECT_EQ(Next(), std::make_pair(IDCMP_GADGETUP, uint16_t{30}));
    EXPECT_EQ(RequesterNumber(&requester_, 30), 1);

    // Set by the task, shown by the dialog.
    SetRequesterNumber(&requester_, 30, 0);
    bool checked = true;
    OnDialog([&](QDialog* dialog) { checked = dialog->findChild<QCheckBox*>()->isChecked(); });
    EXPECT_FALSE(checked);
}

} // namespace

namespace {

// A modeless window's keys as the user types them: each goes to the
// widget that has the keyboard, else to the dialog.
class ModelessDialogTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        RequesterGadget field = MakeGadget(GadgetKind::String, 7, "Sear_ch");
        field.MaxChars = 50;
        window_.Title = "Beside";
        window_.Modeless = true;
        window_.Layout.Children = {field, MakeGadget(GadgetKind::Check, 5, "UPPER_=lower")};
        ASSERT_TRUE(OpenRequesterWindow(&window_));
    }

    void TearDown() override { CloseRequesterWindow(&window_); }

    void Type(Qt::Key key, const char* text)
    {
        RunOnDisplay([&] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                auto* dialog = qobject_cast<QDialog*>(widget);
                if (!dialog || !dialog->isVisible() || dialog->windowTitle() != "Beside")
                    continue;
                QWidget* target = dialog->focusWidget() ? dialog->focusWidget() : dialog;
                QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString::fromLatin1(text));
                QApplication::sendEvent(target, &press);
            }
        });
    }

    // "up ID/END" for each gadget-up queued, "key CODE" for each raw key.
    std::string Events()
    {
        std::string events;
        while (Message* message = GetMsg(window_.UserPort)) {
            const auto* event = reinterpret_cast<IntuiMessage*>(message);
            if (event->Class == IDCMP_GADGETUP)
                events += "up " + std::to_string(event->Code) + '/' + std::to_string(event->GadgetEnd) + ' ';
            else if (event->Class == IDCMP_RAWKEY)
                events += "key " + std::to_string(event->Code) + ' ';
            ReplyMsg(message);
        }
        return events;
    }

    RequesterWindow window_;
};

TEST_F(ModelessDialogTest, LettersReachFieldsAndBoxesAndFieldsTellTheKeyThatLeftThem)
{
    const struct {
        Qt::Key key;
        const char* text;
    } leaving[] = {{Qt::Key_Return, "\r"}, {Qt::Key_Tab, "\t"}, {Qt::Key_Escape, "\x1b"}};
    const char* expected[] = {"up 7/13 ", "up 7/9 ", "up 7/27 "};
    for (size_t row = 0; row < std::size(leaving); ++row) {
        Type(Qt::Key_C, "c");
        Type(Qt::Key_Z, "z");
        Type(leaving[row].key, leaving[row].text);
        EXPECT_EQ(Events(), expected[row]) << "row " << row;
    }
    EXPECT_EQ(RequesterText(&window_, 7), "z") << "the letter gave the field the keyboard, its text selected";

    Type(Qt::Key_Equal, "=");
    EXPECT_EQ(Events(), "up 5/0 ");
    EXPECT_EQ(RequesterNumber(&window_, 5), 1);
    Type(Qt::Key_Escape, "\x1b");
    EXPECT_EQ(Events(), "key 69 ") << "outside a field Esc is the window's";
}

} // namespace

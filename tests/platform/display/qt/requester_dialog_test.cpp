// Requester windows on the desktop: what the user does in the dialog comes
// back to the asking task as messages with gadget ids, and the values
// typed are in the gadget records.
#include "platform/display/qt/display_thread.h"
#include "platform/display/requester_window.h"

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

namespace {

RequesterGadget Make(GadgetKind kind, uint16_t id, const char* label)
{
    RequesterGadget gadget;
    gadget.Kind = kind;
    gadget.Id = id;
    gadget.Label = label;
    return gadget;
}

class RequesterDialogTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        RequesterGadget buttons = Make(GadgetKind::Horizontal, 0, "");
        buttons.Children = {Make(GadgetKind::Button, 1, "_YES"), Make(GadgetKind::Button, 0, "_NO")};
        RequesterGadget box = Make(GadgetKind::TextBox, 0, "");
        box.Rows = {"Question"};
        requester_.Title = "Asking";
        requester_.Layout.Children = {box, Make(GadgetKind::Check, 30, "Relative"), buttons};
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

#include "platform/display/easy_request.h"
#include "platform/display/qt/display_thread.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace {

// Once the requester is up on the display thread, presses the button with
// `label` and records the text the requester showed.
void PressWhenShown(const QString& label, QString* shownText)
{
    PostToDisplay([label, shownText] {
        auto* poll = new QTimer;
        QObject::connect(poll, &QTimer::timeout, [poll, label, shownText] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            *shownText = box->text();
            for (QAbstractButton* button : box->buttons())
                if (button->text() == label)
                    button->click();
            poll->deleteLater();
        });
        poll->start(5);
    });
}

int Ask(const char* gadgets)
{
    EasyStruct easy;
    easy.es_Title = "Tavrel error";
    easy.es_TextFormat = "Caf\xE9 100%";
    easy.es_GadgetFormat = gadgets;
    return EasyRequestArgs(nullptr, &easy);
}

}  // namespace

TEST(EasyRequest, AnswersCountFromTheLeftWithTheRightmostZero)
{
    QString shown;
    PressWhenShown("Yes", &shown);
    EXPECT_EQ(Ask("Yes|Maybe|No"), 1);
    EXPECT_EQ(shown, QString::fromUtf8("Caf\xC3\xA9 100%"));

    PressWhenShown("Maybe", &shown);
    EXPECT_EQ(Ask("Yes|Maybe|No"), 2);

    PressWhenShown("No", &shown);
    EXPECT_EQ(Ask("Yes|Maybe|No"), 0);

    PressWhenShown("OK !", &shown);
    EXPECT_EQ(Ask("OK !"), 0);
}

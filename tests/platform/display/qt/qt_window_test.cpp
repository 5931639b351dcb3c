// Windows of the desktop backend driven as the program drives them: opened
// and painted by a task, with input synthesised on the display thread and
// read back at the task's window port.
#include "platform/display/display.h"
#include "platform/display/qt/display_thread.h"
#include "platform/display/qt/qt_window.h"
#include "platform/display/qt/window_png.h"
#include "platform/exec/exec.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QScreen>
#include <QStyle>
#include <QStyleHints>
#include <QStyleOptionSlider>
#include <QUrl>

#include <gtest/gtest.h>

#include <future>
#include <string>

namespace {

constexpr uint32_t kTextWindowIDCMP = 0x014C077A;
constexpr uint32_t kTextWindowFlags = WFLG_CLOSEGADGET | WFLG_SIZEGADGET | WFLG_SIZEBRIGHT |
                                      WFLG_SIZEBBOTTOM | WFLG_DRAGBAR | WFLG_DEPTHGADGET |
                                      WFLG_ACTIVATE | WFLG_REPORTMOUSE;

Window* OpenTextWindow() {
    Screen* screen = LockPubScreen(nullptr);
    NewWindow description{.LeftEdge = 20, .TopEdge = 30, .Width = 420, .Height = 260,
                   .IDCMPFlags = kTextWindowIDCMP, .Flags = kTextWindowFlags,
                   .Title = "Tavrel test", .Screen = screen, .MinWidth = 150, .MinHeight = 54};
    Window* window = OpenWindow(&description);
    UnlockPubScreen(nullptr, screen);
    return window;
}

QtWindow* Peer(Window* window) { return static_cast<QtWindow*>(window->Peer); }

// Takes messages off the window's port, replying each, until one of class
// `cls` comes; gives up after about two seconds.
IntuiMessage NextOfClass(Window* window, uint32_t cls) {
    for (int wait = 0; wait < 100; ++wait) {
        while (Message* message = GetMsg(window->UserPort)) {
            const IntuiMessage copy = *reinterpret_cast<IntuiMessage*>(message);
            ReplyMsg(message);
            if (copy.Class == cls) return copy;
        }
        Delay(1);
    }
    ADD_FAILURE() << "no message of class 0x" << std::hex << cls;
    return IntuiMessage();
}

void SendKey(Window* window, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    RunOnDisplay([&] {
        QWidget* area = Peer(window)->Widget()->Area();
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(area, &press);
        QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
        QCoreApplication::sendEvent(area, &release);
    });
}

void SendMouse(QWidget* widget, QEvent::Type type, QPoint at, Qt::MouseButton button,
               Qt::MouseButtons held) {
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

std::string Chars(const IntuiMessage& message, int qualifier) {
    char buffer[16];
    const int count = KeyToText(&message, buffer, sizeof buffer, qualifier);
    return std::string(buffer, count);
}

TEST(QtWindow, KeysTypedInAWindowReachTheTaskThatOpenedIt) {
    struct Row {
        const char* name;
        int key;
        Qt::KeyboardModifiers modifiers;
        QString text;
        uint16_t code;
        uint16_t qualifier;
        std::string typed;   // KeyToText with the message's qualifier
        std::string plain;   // and without any
    };
    const Row rows[] = {
        {"Ctrl+q", Qt::Key_Q, Qt::ControlModifier, "\x11", 0x10, IEQUALIFIER_CONTROL, "\x11", "q"},
        {"Shift+e acute", Qt::Key_Eacute, Qt::ShiftModifier, QString(QChar(0xC9)), 0x30,
         IEQUALIFIER_LSHIFT, "\xc9", "\xe9"},
    };
    std::promise<void> done;
    // A task of its own opens, paints and reads, as a text process does.
    Task* worker = CreateNewProc("key worker", [&] {
        EXPECT_FALSE(OnDisplayThread());
        Window* window = OpenTextWindow();
        if (!window) {
            ADD_FAILURE() << "no window";
            done.set_value();
            return;
        }
        Move(window->RPort, window->BorderLeft, window->BorderTop + window->RPort->Font->tf_Baseline + 1);
        Text(window->RPort, "typed here", 10);
        for (const Row& row : rows) {
            SCOPED_TRACE(row.name);
            SendKey(window, row.key, row.modifiers, row.text);
            const IntuiMessage down = NextOfClass(window, IDCMP_RAWKEY);
            EXPECT_EQ(down.Code, row.code);
            EXPECT_EQ(down.Qualifier, row.qualifier);
            EXPECT_EQ(down.IDCMPWindow, window);
            EXPECT_EQ(Chars(down, -1), row.typed);
            EXPECT_EQ(Chars(down, 0), row.plain);
            const IntuiMessage up = NextOfClass(window, IDCMP_RAWKEY);
            EXPECT_EQ(up.Code, row.code | IECODE_UP_PREFIX);
            EXPECT_EQ(Chars(up, -1), "");
        }
        CloseWindow(window);
        done.set_value();
    });
    ASSERT_NE(worker, nullptr);
    done.get_future().wait();
}

TEST(QtWindow, PaintingIsCutToTheTextAreaAndSavedAsPng) {
    Window* window = OpenTextWindow();
    ASSERT_NE(window, nullptr);
    RastPort* rp = window->RPort;
    ColorMap* colours = window->WScreen->ColorMap;
    const long red = ObtainBestPen(colours, 0xFFFFFFFF, 0, 0);
    const long yellow = ObtainBestPen(colours, 0xFFFFFFFF, 0xFFFFFFFF, 0);
    const long black = ObtainBestPen(colours, 0, 0, 0);
    ASSERT_GE(red, 0);
    const int left = window->BorderLeft;
    const int top = window->BorderTop;
    const int right = window->Width - window->BorderRight - 1;
    const int bottom = window->Height - window->BorderBottom - 1;
    EXPECT_GT(window->BorderRight, 0);
    EXPECT_GT(window->BorderBottom, 0);

    // Red over the whole window: only the text area takes it.
    SetAPen(rp, uint8_t(red));
    RectFill(rp, 0, 0, window->Width - 1, window->Height - 1);
    // One row of text, yellow behind black, in the second row of cells.
    const TextFont* font = rp->Font;
    const int rowHeight = font->tf_YSize + 1;
    SetAPen(rp, uint8_t(black));
    SetBPen(rp, uint8_t(yellow));
    Move(rp, left, top + rowHeight + font->tf_Baseline + 1);
    Text(rp, "Tavrel", 6);
    // Scrolled up by one row: the text comes to the first row, the last row
    // is filled with the B pen.
    ScrollRaster(rp, 0, rowHeight, left, top, right, bottom);

    const std::string path = std::string(TAVREL_ARTIFACTS_DIR) + "/qt_window.png";
    QDir().mkpath(QString::fromLocal8Bit(TAVREL_ARTIFACTS_DIR));
    QFile::remove(QString::fromStdString(path));
    ASSERT_TRUE(SaveWindowPng(window, path.c_str()));
    const QImage saved(QString::fromStdString(path));
    ASSERT_FALSE(saved.isNull());
    EXPECT_EQ(saved.size(), QSize(window->Width, window->Height));

    const QRgb redPixel = qRgb(255, 0, 0);
    const QRgb yellowPixel = qRgb(255, 255, 0);
    EXPECT_EQ(saved.pixel(left + 2, top + rowHeight + 2), redPixel);
    EXPECT_NE(saved.pixel(right + 2, top + 2), redPixel) << "the scroll bar was painted over";
    EXPECT_NE(saved.pixel(left + 2, bottom + 2), redPixel) << "the bottom border was painted over";
    // The cell's top-left pixel is background: yellow, now in row 0.
    EXPECT_EQ(saved.pixel(left, top + 1), yellowPixel);
    EXPECT_EQ(saved.pixel(left + 6 * font->tf_XSize + 1, top + 1), redPixel);
    EXPECT_EQ(saved.pixel(left + 2, bottom - 1), yellowPixel);
    for (long pen : {red, yellow, black}) ReleasePen(colours, pen);
    CloseWindow(window);
}

QRect SubControl(ScrollerBar* bar, QStyle::SubControl part) {
    QStyleOptionSlider option;
    option.initFrom(bar);
    option.subControls = QStyle::SC_All;
    option.orientation = bar->orientation();
    if (bar->orientation() == Qt::Horizontal) option.state |= QStyle::State_Horizontal;
    option.minimum = bar->minimum();
    option.maximum = bar->maximum();
    option.sliderPosition = bar->sliderPosition();
    option.sliderValue = bar->value();
    option.singleStep = bar->singleStep();
    option.pageStep = bar->pageStep();
    return bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, part, bar);
}

// Press and (or) release on a part of a bar, on the display thread.
void Click(ScrollerBar* bar, QStyle::SubControl part, bool press = true, bool release = true) {
    RunOnDisplay([&] {
        const QPoint at = SubControl(bar, part).center();
        if (press) SendMouse(bar, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
        if (release) SendMouse(bar, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
    });
}

TEST(QtWindow, ScrollBarsStandForTheSixScrollerGadgets) {
    Window* window = OpenTextWindow();
    ASSERT_NE(window, nullptr);
    PropInfo vertProp, horizProp;
    vertProp.Flags = AUTOKNOB | FREEVERT | PROPBORDERLESS | PROPNEWLOOK;
    horizProp.Flags = AUTOKNOB | FREEHORIZ | PROPBORDERLESS | PROPNEWLOOK;
    Gadget gadgets[6];
    const uint16_t ids[6] = {0x10, 0x40, 0x20, 0x80, 0x04, 0x08};
    for (int i = 0; i < 6; ++i) {
        gadgets[i].GadgetID = ids[i];
        gadgets[i].GadgetType = (i % 3 == 0) ? GTYP_PROPGADGET : GTYP_BOOLGADGET;
        gadgets[i].Activation = GACT_RELVERIFY | GACT_IMMEDIATE;
        if (i < 5) gadgets[i].NextGadget = &gadgets[i + 1];
    }
    gadgets[0].SpecialInfo = &vertProp;
    gadgets[3].SpecialInfo = &horizProp;
    Gadget& knob = gadgets[0];
    Gadget& up = gadgets[1];
    Gadget& down = gadgets[2];
    Gadget& leftArrow = gadgets[4];

    ScrollerBar* vertical = Peer(window)->Widget()->Vertical();
    ScrollerBar* horizontal = Peer(window)->Widget()->Horizontal();
    bool shown = true;
    RunOnDisplay([&] { shown = vertical->isVisible(); });
    EXPECT_FALSE(shown) << "a bar shows before its gadget exists";

    AddGList(window, &gadgets[0], -1, -1, nullptr);
    NewModifyProp(&knob, window, nullptr, vertProp.Flags, MAXPOT, 0x8000, MAXBODY, 0x4000, 1);
    int value = 0, maximum = 0;
    RunOnDisplay([&] {
        shown = vertical->isVisible() && horizontal->isVisible();
        value = vertical->value();
        maximum = vertical->maximum();
    });
    EXPECT_TRUE(shown);
    EXPECT_NEAR(double(value) / maximum, 0.5, 0.01);

    // The knob: held, dragged, let go.
    Click(vertical, QStyle::SC_ScrollBarSlider, true, false);
    IntuiMessage message = NextOfClass(window, IDCMP_GADGETDOWN);
    EXPECT_EQ(message.IAddress, &knob);
    EXPECT_TRUE(knob.Flags & GFLG_SELECTED);
    EXPECT_TRUE(vertProp.Flags & KNOBHIT);
    RunOnDisplay([&] {
        const QPoint at = SubControl(vertical, QStyle::SC_ScrollBarSlider).center() + QPoint(0, 30);
        SendMouse(vertical, QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton);
        SendMouse(vertical, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
    });
    EXPECT_EQ(NextOfClass(window, IDCMP_MOUSEMOVE).IAddress, &knob);
    EXPECT_GT(vertProp.VertPot, 0x8000);
    EXPECT_EQ(NextOfClass(window, IDCMP_GADGETUP).IAddress, &knob);
    EXPECT_FALSE(knob.Flags & GFLG_SELECTED);

    // The arrows only report; the program moves the bar.
    NewModifyProp(&knob, window, nullptr, vertProp.Flags, MAXPOT, 0x8000, MAXBODY, 0x4000, 1);
    Click(vertical, QStyle::SC_ScrollBarAddLine, true, false);
    EXPECT_EQ(NextOfClass(window, IDCMP_GADGETDOWN).IAddress, &down);
    EXPECT_TRUE(down.Flags & GFLG_SELECTED);
    Click(vertical, QStyle::SC_ScrollBarAddLine, false, true);
    EXPECT_EQ(NextOfClass(window, IDCMP_GADGETUP).IAddress, &down);
    EXPECT_FALSE(down.Flags & GFLG_SELECTED);
    EXPECT_EQ(vertProp.VertPot, 0x8000);
    Click(vertical, QStyle::SC_ScrollBarSubLine);
    EXPECT_EQ(NextOfClass(window, IDCMP_GADGETDOWN).IAddress, &up);
    Click(horizontal, QStyle::SC_ScrollBarSubLine);
    EXPECT_EQ(NextOfClass(window, IDCMP_GADGETDOWN).IAddress, &leftArrow);

    // Beside the knob: one body further, not a knob hit.
    Click(vertical, QStyle::SC_ScrollBarAddPage);
    message = NextOfClass(window, IDCMP_GADGETDOWN);
    EXPECT_EQ(message.IAddress, &knob);
    EXPECT_FALSE(vertProp.Flags & KNOBHIT);
    EXPECT_NEAR(vertProp.VertPot, 0x8000 + 0x4000 * 0xFFFF / (0xFFFF - 0x4000), 8);
    CloseWindow(window);
}

TEST(QtWindow, WindowEventsBecomeMessages) {
    Window* window = OpenTextWindow();
    ASSERT_NE(window, nullptr);
    WindowWidget* widget = Peer(window)->Widget();
    const int16_t borderRight = window->BorderRight;

    // A click in the text area, in window coordinates.
    RunOnDisplay([&] {
        SendMouse(widget->Area(), QEvent::MouseButtonPress, QPoint(10, 12), Qt::LeftButton,
                  Qt::LeftButton);
        SendMouse(widget->Area(), QEvent::MouseButtonRelease, QPoint(10, 12), Qt::LeftButton,
                  Qt::NoButton);
    });
    IntuiMessage message = NextOfClass(window, IDCMP_MOUSEBUTTONS);
    EXPECT_EQ(message.Code, SELECTDOWN);
    EXPECT_EQ(message.Qualifier, IEQUALIFIER_LEFTBUTTON);
    EXPECT_EQ(message.MouseX, window->BorderLeft + 10);
    EXPECT_EQ(message.MouseY, window->BorderTop + 12);
    message = NextOfClass(window, IDCMP_MOUSEBUTTONS);
    EXPECT_EQ(message.Code, SELECTUP);
    EXPECT_EQ(message.Qualifier, 0);

    // A new size is announced after the record holds it; borders stay.
    ChangeWindowBox(window, window->LeftEdge, window->TopEdge, 500, 300);
    NextOfClass(window, IDCMP_NEWSIZE);
    EXPECT_EQ(window->Width, 500);
    EXPECT_EQ(window->Height, 300);
    EXPECT_EQ(window->BorderRight, borderRight);

    // The close button asks; the window stays open.
    bool visible = false;
    RunOnDisplay([&] {
        widget->close();
        visible = widget->isVisible();
    });
    NextOfClass(window, IDCMP_CLOSEWINDOW);
    EXPECT_TRUE(visible);

    // Activation starts the ticks.
    RunOnDisplay([&] {
        QEvent activate(QEvent::WindowActivate);
        QCoreApplication::sendEvent(widget, &activate);
    });
    NextOfClass(window, IDCMP_ACTIVEWINDOW);
    NextOfClass(window, IDCMP_INTUITICKS);

    // A dropped file arrives at the AppWindow port, split into directory
    // and name, at the drop's position.
    MsgPort* dropPort = CreateMsgPort();
    AppWindow* appWindow = AddAppWindow(1, 77, window, dropPort);
    ASSERT_NE(appWindow, nullptr);
    bool entered = false;
    RunOnDisplay([&] {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile("/tmp/some dir/notes.txt")});
        QDragEnterEvent enter(QPoint(40, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &enter);
        entered = enter.isAccepted();
        QDropEvent drop(QPointF(40, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &drop);
    });
    ASSERT_TRUE(entered) << "files are refused";
    auto* dropped = reinterpret_cast<AppMessage*>(WaitPort(dropPort));
    GetMsg(dropPort);
    EXPECT_EQ(dropped->am_UserData, 77u);
    ASSERT_EQ(dropped->am_NumArgs, 1);
    EXPECT_STREQ(dropped->am_ArgList[0].wa_Directory, "/tmp/some dir");
    EXPECT_STREQ(dropped->am_ArgList[0].wa_Name, "notes.txt");
    EXPECT_EQ(dropped->am_MouseX, 40);
    EXPECT_EQ(dropped->am_MouseY, 50);
    ReplyMsg(&dropped->am_Message);
    RemoveAppWindow(appWindow);
    CloseWindow(window);
    DeleteMsgPort(dropPort);
}

TEST(QtWindow, TitleWindowShowsItsTitleAndReportsTheRightButton) {
    NewWindow description;
    description.LeftEdge = 588;
    description.TopEdge = 1;
    description.Width = 150;
    description.Height = 1;   // the title bar height of a window that has none
    description.Flags = WFLG_DRAGBAR | WFLG_RMBTRAP | WFLG_NOCAREREFRESH;
    description.IDCMPFlags = IDCMP_ACTIVEWINDOW | IDCMP_RAWKEY | IDCMP_MOUSEBUTTONS;
    description.Title = "notes.txt";
    Window* window = OpenWindow(&description);
    ASSERT_NE(window, nullptr);
    EXPECT_GT(window->Height, 10);
    EXPECT_EQ(window->BorderLeft + window->BorderTop + window->BorderRight + window->BorderBottom, 0);
    QImage shown;
    RunOnDisplay([&] { shown = Peer(window)->Snapshot(); });
    ASSERT_EQ(shown.size(), QSize(window->Width, window->Height));
    bool inked = false;
    for (int x = 0; x < shown.width() && !inked; ++x)
        inked = shown.pixel(x, shown.height() / 2) != shown.pixel(0, 0);
    EXPECT_TRUE(inked) << "the title is not shown";

    RunOnDisplay([&] {
        QWidget* area = Peer(window)->Widget()->Area();
        SendMouse(area, QEvent::MouseButtonPress, QPoint(5, 5), Qt::RightButton, Qt::RightButton);
        SendMouse(area, QEvent::MouseButtonRelease, QPoint(5, 5), Qt::RightButton, Qt::NoButton);
    });
    EXPECT_EQ(NextOfClass(window, IDCMP_MOUSEBUTTONS).Code, MENUDOWN);
    EXPECT_EQ(NextOfClass(window, IDCMP_MOUSEBUTTONS).Code, MENUUP);
    CloseWindow(window);
}

TEST(QtWindow, ScreenIsTheDesktopAndFontsComeFromIt) {
    Screen* screen = LockPubScreen(nullptr);
    ASSERT_NE(screen, nullptr);
    QRect desktop;
    int interval = 0;
    RunOnDisplay([&] {
        desktop = QGuiApplication::primaryScreen()->availableGeometry();
        interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    });
    EXPECT_EQ(screen->Width, desktop.width());
    EXPECT_EQ(screen->Height, desktop.height());
    EXPECT_EQ(LockPubScreen("NoSuchScreen"), nullptr);
    UnlockPubScreen(nullptr, screen);

    const uint32_t micros = uint32_t(interval) * 1000;
    EXPECT_TRUE(DoubleClick(10, 0, 10, micros));
    EXPECT_FALSE(DoubleClick(10, 0, 10, micros + 1));

    TextAttr topaz{"topaz.font", 8, 0, 0};
    TextFont* fixed = OpenFont(&topaz);
    ASSERT_NE(fixed, nullptr);
    EXPECT_GT(fixed->tf_XSize, 0);
    EXPECT_GT(fixed->tf_YSize, fixed->tf_Baseline);
    TextAttr big{"DejaVu Sans Mono.font", 24, 0, 0};
    TextFont* large = OpenFont(&big);
    ASSERT_NE(large, nullptr);
    EXPECT_GE(large->tf_YSize, 24);
    EXPECT_GT(large->tf_XSize, fixed->tf_XSize);
    TextAttr missing{"NoSuchFamily.font", 8, 0, 0};
    EXPECT_EQ(OpenFont(&missing), nullptr);
    CloseFont(fixed);
    CloseFont(large);
}

}  // namespace

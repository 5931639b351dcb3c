#include "platform/display/qt/qt_backend.h"

#include "platform/display/qt/display_thread.h"
#include "platform/display/qt/menu_bar.h"
#include "platform/display/qt/qt_font.h"
#include "platform/display/qt/qt_window.h"
#include "platform/display/qt/requester_dialog.h"
#include "platform/exec/tasks.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QStyleHints>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <memory>

namespace {

constexpr const char* kScreenName = "Workbench";
constexpr int16_t kTextColumns = 80;
constexpr int16_t kTextRows = 30;

// Pens of the screen itself, as the desktop's own colours: background,
// text, shine and fill.
constexpr uint32_t kScreenPens[][3] = {
    {0xAAAAAAAA, 0xAAAAAAAA, 0xAAAAAAAA},
    {0x00000000, 0x00000000, 0x00000000},
    {0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF},
    {0x66666666, 0x88888888, 0xBBBBBBBB},
};

QtWindow* PeerOf(Window* window) {
    return window ? static_cast<QtWindow*>(window->Peer) : nullptr;
}

// Queues `work` for the window's peer. Work queued before CloseWindow runs
// before it, so the peer is still there.
template <typename Work>
void PostToPeer(Window* window, Work work) {
    QtWindow* peer = PeerOf(window);
    if (!peer) return;
    PostToDisplay([peer, work] { work(peer); });
}

}  // namespace

QtDisplayBackend::~QtDisplayBackend() = default;

int QtDisplayBackend::Run(std::function<void()> mainTask) {
    static int argc = 1;
    static char name[] = "tavrel";
    static char* argv[] = {name, nullptr};
    // The main task starts first and does what needs no display (the
    // catalog, the preferences, reading the first texts' files) while the
    // application connects to the desktop; its first display work waits
    // for the application. The application sets the user's locale; it is
    // set here already, so that every task runs in it from the start.
    std::setlocale(LC_ALL, "");
    HoldDisplayWork();
    Task* task = CreateNewProc("main", [mainTask = std::move(mainTask)] {
        mainTask();
        PostToDisplay([] { QCoreApplication::quit(); });
    });
    if (!task) {
        ReleaseDisplayWork();
        std::fputs("tavrel: cannot start the main task\n", stderr);
        return 1;
    }
    std::unique_ptr<QApplication> own;
    if (!QCoreApplication::instance()) own = std::make_unique<QApplication>(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    doubleClickMicros_ = uint32_t(QGuiApplication::styleHints()->mouseDoubleClickInterval()) * 1000;
    ReleaseDisplayWork();
    QApplication::exec();
    // The main task's thread ends after it asked the loop to quit; its
    // per-thread Qt state (font caches) goes while the application exists.
    WaitForAllTasks();
    TearDown();
    return 0;
}

void QtDisplayBackend::EnsureScreen() {
    if (defaultFont_) return;
    TextAttr attr;
    attr.ta_Name = kDefaultFontName;
    defaultFont_ = OpenQtFont(attr);
    screenFont_.ta_Name = kDefaultFontName;
    screenFont_.ta_YSize = defaultFont_->tf_YSize;

    QRect desktop(0, 0, 1024, 768);
    if (QScreen* primary = QGuiApplication::primaryScreen()) desktop = primary->availableGeometry();
    screen_.LeftEdge = int16_t(desktop.x());
    screen_.TopEdge = int16_t(desktop.y());
    screen_.Width = int16_t(std::min(desktop.width(), 0x7FFF));
    screen_.Height = int16_t(std::min(desktop.height(), 0x7FFF));
    screen_.Title = kScreenName;
    screen_.Font = &screenFont_;
    screen_.RastPort.Font = defaultFont_;
    screen_.ColorMap = GetColorMap(256);
    for (int pen = 0; pen < 4; ++pen)
        SetRGB32CM(screen_.ColorMap, pen, kScreenPens[pen][0], kScreenPens[pen][1],
                   kScreenPens[pen][2]);
    barExtent_ = QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    // A text window: its menu bar above the text, its scroll bars right and
    // below, 80 columns by 30 rows of its font unless placed otherwise.
    screen_.WBorLeft = 0;
    screen_.WBorTop = int16_t(MenuBarHeight());
    screen_.WBorRight = int16_t(barExtent_);
    screen_.WBorBottom = int16_t(barExtent_);
    screen_.TextColumns = kTextColumns;
    screen_.TextRows = kTextRows;
}

void QtDisplayBackend::TearDown() {
    // Windows closed just before the loop ended still wait for deletion.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (QtWindow* peer : windows_) {
        peer->Detach();
        delete peer->Widget();
    }
    windows_.clear();
    if (defaultFont_) {
        FreeColorMap(screen_.ColorMap);
        screen_ = Screen();
        delete defaultFont_;
        defaultFont_ = nullptr;
    }
}

Screen* QtDisplayBackend::LockPubScreen(const char* name) {
    if (name && *name && qstricmp(name, kScreenName) != 0) return nullptr;
    RunOnDisplay([this] { EnsureScreen(); });
    return &screen_;
}

void QtDisplayBackend::UnlockPubScreen(Screen*) {}

TextFont* QtDisplayBackend::OpenFont(const TextAttr& attr) {
    QtTextFont* font = nullptr;
    RunOnDisplay([&] { font = OpenQtFont(attr); });
    return font;
}

void QtDisplayBackend::CloseFont(TextFont* font) { delete static_cast<QtTextFont*>(font); }

void QtDisplayBackend::SystemImageSize(uint32_t which, int16_t height, int16_t* width,
                                       int16_t* imageHeight) {
    RunOnDisplay([this] { EnsureScreen(); });
    // Every border image is one scroll bar thick; the title bar's images
    // take the height asked for.
    const auto extent = int16_t(barExtent_);
    if (width) *width = extent;
    if (imageHeight) {
        const bool titleBar = which == DEPTHIMAGE || which == CLOSEIMAGE;
        *imageHeight = titleBar && height > 0 ? height : extent;
    }
}

bool QtDisplayBackend::OpenWindow(Window* window) {
    RunOnDisplay([&] {
        EnsureScreen();
        windows_.push_back(
            new QtWindow(window, defaultFont_, QPoint(screen_.LeftEdge, screen_.TopEdge)));
    });
    return true;
}

void QtDisplayBackend::CloseWindow(Window* window) {
    QtWindow* peer = PeerOf(window);
    if (!peer) return;
    RunOnDisplay([&] {
        windows_.erase(std::remove(windows_.begin(), windows_.end(), peer), windows_.end());
        peer->Detach();
        window->Peer = nullptr;
    });
}

void QtDisplayBackend::ChangeWindowBox(Window* window, int left, int top, int width, int height) {
    PostToPeer(window, [=](QtWindow* peer) { peer->SetBox(left, top, width, height); });
}

void QtDisplayBackend::WindowToFront(Window* window) {
    PostToPeer(window, [](QtWindow* peer) {
        if (peer->Widget()) peer->Widget()->raise();
    });
}

void QtDisplayBackend::WindowToBack(Window* window) {
    PostToPeer(window, [](QtWindow* peer) {
        if (peer->Widget()) peer->Widget()->lower();
    });
}

void QtDisplayBackend::ActivateWindow(Window* window) {
    PostToPeer(window, [](QtWindow* peer) {
        if (!peer->Widget()) return;
        peer->Widget()->raise();
        peer->Widget()->activateWindow();
    });
}

void QtDisplayBackend::SetWindowTitles(Window* window, const char* windowTitle, const char*) {
    if (!windowTitle) return;
    const QString title = QString::fromUtf8(windowTitle);
    PostToPeer(window, [title](QtWindow* peer) { peer->SetTitle(title); });
}

void QtDisplayBackend::SetBusyPointer(Window* window, bool busy, bool delay) {
    PostToPeer(window, [=](QtWindow* peer) { peer->SetBusy(busy, delay); });
}

void QtDisplayBackend::DisplayBeep(Screen*) {
    PostToDisplay([this] {
        QApplication::beep();
        // The active window flashes; with none of ours active, all do.
        bool flashed = false;
        for (QtWindow* peer : windows_) {
            if (peer->Widget() && peer->Widget()->isActiveWindow()) {
                peer->Flash();
                flashed = true;
            }
        }
        if (!flashed)
            for (QtWindow* peer : windows_) peer->Flash();
    });
}

int QtDisplayBackend::EasyRequest(Window* window, const char* title, const char* body, const char* gadgets) {
    const QString caption = QString::fromLatin1(title);
    const QString text = QString::fromLatin1(body);
    const QStringList labels = QString::fromLatin1(gadgets).split(QLatin1Char('|'));
    int answer = 0;
    RunOnDisplay([&] {
        QMessageBox box;
        box.setWindowTitle(caption);
        box.setText(text);
        if (QtWindow* peer = PeerOf(window))
            box.setParent(peer->Widget(), Qt::Dialog);
        QList<QAbstractButton*> buttons;
        for (const QString& label : labels)
            buttons.append(static_cast<QAbstractButton*>(box.addButton(label, QMessageBox::AcceptRole)));
        box.exec();
        const qsizetype chosen = buttons.indexOf(box.clickedButton());
        // The rightmost button, and a box closed without a button, answer 0.
        answer = chosen < 0 || chosen == buttons.size() - 1 ? 0 : static_cast<int>(chosen) + 1;
    });
    return answer;
}

bool QtDisplayBackend::OpenRequester(RequesterWindow* requester) {
    RunOnDisplay([&] {
        EnsureScreen();
        QtWindow* over = PeerOf(requester->RefWindow);
        new QtRequester(requester, over ? over->Widget() : nullptr, QPoint(screen_.LeftEdge, screen_.TopEdge));
    });
    return true;
}

void QtDisplayBackend::CloseRequester(RequesterWindow* requester) {
    RunOnDisplay([&] { delete static_cast<QtRequester*>(requester->Peer); });
}

void QtDisplayBackend::RequesterChanged(RequesterWindow* requester) {
    // Shown before CloseRequester, which runs after the work queued here.
    PostToDisplay([requester] {
        if (auto* peer = static_cast<QtRequester*>(requester->Peer)) peer->ShowValues();
    });
}

void QtDisplayBackend::RequesterToFront(RequesterWindow* requester) {
    PostToDisplay([requester] {
        if (auto* peer = static_cast<QtRequester*>(requester->Peer)) peer->ToFront();
    });
}

void QtDisplayBackend::GadgetsChanged(Window* window) {
    if (!PeerOf(window)) return;
    const QtWindow::Scrollers scrollers = QtWindow::ScanGadgets(window);
    PostToPeer(window, [scrollers](QtWindow* peer) { peer->ShowGadgets(scrollers); });
}

// The window takes the new strip at once, so the owner may free the old
// one on return; the menu bar follows from a picture taken here, without
// keeping the owner waiting.
void QtDisplayBackend::MenuStripChanged(Window* window) {
    QtWindow* peer = PeerOf(window);
    if (!peer) return;
    const uint64_t generation = peer->SetStrip(window->MenuStrip);
    auto picture = std::make_shared<const MenuStripPicture>(PictureOfStrip(window->MenuStrip));
    PostToPeer(window, [generation, picture](QtWindow* target) {
        target->ShowMenus(generation, *picture);
    });
}

void QtDisplayBackend::CurrentTime(uint32_t* seconds, uint32_t* micros) {
    using namespace std::chrono;
    const auto now = duration_cast<microseconds>(system_clock::now().time_since_epoch()).count();
    if (seconds) *seconds = uint32_t(now / 1000000);
    if (micros) *micros = uint32_t(now % 1000000);
}

uint32_t QtDisplayBackend::DoubleClickMicros() { return doubleClickMicros_; }

#include "platform/display/qt/window_widget.h"

#include "platform/display/qt/menu_bar.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QStyle>
#include <QUrl>

namespace {

QStringList LocalFiles(const QMimeData* data) {
    QStringList paths;
    if (!data || !data->hasUrls()) return paths;
    for (const QUrl& url : data->urls())
        if (url.isLocalFile()) paths.append(url.toLocalFile());
    return paths;
}

}  // namespace

WindowWidget::WindowWidget(WindowRaster& raster, WindowEvents& events, bool rightBorder,
                           bool bottomBorder, bool menuBar)
    : raster_(raster), events_(events) {
    setAcceptDrops(true);
    area_ = new TextArea(raster_, events_, this);
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    int top = 0;
    if (menuBar) {
        menuBar_ = new QMenuBar(this);
        // Inside the window on every desktop, so the room kept for it is
        // real; the room of a bar with titles, kept while it has none.
        menuBar_->setNativeMenuBar(false);
        top = MenuBarHeight();
    }
    borders_ = QMargins(0, top, rightBorder ? bar : 0, bottomBorder ? bar : 0);
    auto report = [this](bool vertical) {
        return [this, vertical](ScrollerPart part, ScrollerAction action, uint16_t pot,
                                uint16_t qualifier, QPoint inBar) {
            ScrollerBar* bar = vertical ? vertical_ : horizontal_;
            events_.ScrollerEvent(vertical, part, action, pot, qualifier, inBar + bar->pos());
        };
    };
    if (rightBorder) {
        vertical_ = new ScrollerBar(Qt::Vertical, report(true), this);
        vertical_->hide();
    }
    if (bottomBorder) {
        horizontal_ = new ScrollerBar(Qt::Horizontal, report(false), this);
        horizontal_->hide();
    }
    ticks_.setInterval(kTickMs);
    connect(&ticks_, &QTimer::timeout, this, [this] { events_.Tick(); });
    Layout();
    area_->setFocus();
}

void WindowWidget::Layout() {
    const QRect inner = rect().marginsRemoved(borders_);
    area_->setGeometry(inner);
    if (menuBar_) menuBar_->setGeometry(0, 0, width(), borders_.top());
    if (vertical_) vertical_->setGeometry(inner.right() + 1, inner.top(), borders_.right(), inner.height());
    if (horizontal_) horizontal_->setGeometry(inner.left(), inner.bottom() + 1, inner.width(), borders_.bottom());
}

bool WindowWidget::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        ticks_.start();
        events_.Activated(true);
    } else if (event->type() == QEvent::WindowDeactivate) {
        ticks_.stop();
        events_.Activated(false);
    }
    return QWidget::event(event);
}

void WindowWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    raster_.Resize(size());
    Layout();
    events_.Resized();
}

void WindowWidget::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    events_.Moved();
}

void WindowWidget::closeEvent(QCloseEvent* event) {
    event->ignore();
    events_.CloseRequested();
}

void WindowWidget::dragEnterEvent(QDragEnterEvent* event) {
    if (!LocalFiles(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void WindowWidget::dropEvent(QDropEvent* event) {
    const QStringList paths = LocalFiles(event->mimeData());
    if (paths.isEmpty()) return;
    event->acceptProposedAction();
    events_.FilesDropped(paths, event->position().toPoint());
}

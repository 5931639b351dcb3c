#include "platform/display/qt/qt_window.h"

#include "platform/display/qt/display_thread.h"
#include "platform/display/qt/key_translation.h"
#include "platform/display/qt/qt_font.h"
#include "platform/display/qt/raster_ops.h"

#include <QApplication>
#include <QCursor>
#include <QFile>
#include <QFileInfo>
#include <QFontMetrics>

namespace {

constexpr uint16_t kGadgetTypeMask = 0x0007;
constexpr int kBusyDelayMs = 150;
constexpr int kRepaintDelayMs = 10;

bool HasPropGadget(const Window* window, uint16_t freedom) {
    for (const Gadget* gadget = window->FirstGadget; gadget; gadget = gadget->NextGadget) {
        const auto* prop = static_cast<const PropInfo*>(gadget->SpecialInfo);
        if ((gadget->GadgetType & kGadgetTypeMask) == GTYP_PROPGADGET && prop &&
            (prop->Flags & freedom))
            return true;
    }
    return false;
}

}  // namespace

QtWindow::QtWindow(Window* window, QtTextFont* defaultFont, QPoint origin)
    : window_(window),
      origin_(origin),
      colours_(window->WScreen ? window->WScreen->ColorMap : nullptr),
      defaultFont_(defaultFont) {
    const uint32_t flags = window->Flags;
    const bool sized = flags & WFLG_SIZEGADGET;
    const bool right = HasPropGadget(window, FREEVERT) || (sized && (flags & WFLG_SIZEBRIGHT));
    const bool bottom = HasPropGadget(window, FREEHORIZ) || (sized && (flags & WFLG_SIZEBBOTTOM));
    titleOnly_ = !(flags & (WFLG_CLOSEGADGET | WFLG_SIZEGADGET)) && !window->FirstGadget;
    if (titleOnly_) {
        // The title is drawn inside: the window is made tall enough for it.
        const int height = QFontMetrics(QApplication::font()).height() + 6;
        if (window->Height < height) window->Height = int16_t(height);
    }

    raster_.fill = PenColour(0);
    raster_.Resize(QSize(window->Width, window->Height));
    const bool menuBar = !titleOnly_ && (flags & WFLG_NEWLOOKMENUS);
    widget_ = new WindowWidget(raster_, *this, right, bottom, menuBar);
    if (menuBar)
        menus_ = std::make_unique<WindowMenuBar>(
            widget_->MenuBar(), [this](MenuNumber number) { MenuPicked(number); },
            [this](MenuNumber number) { MenuHelp(number); });
    QObject::connect(widget_, &QObject::destroyed, [this] { delete this; });

    borders_ = widget_->Borders();
    window->BorderLeft = int16_t(borders_.left());
    window->BorderTop = int16_t(borders_.top());
    window->BorderRight = int16_t(borders_.right());
    window->BorderBottom = int16_t(borders_.bottom());
    if (window->MinWidth > 0 || window->MinHeight > 0)
        widget_->setMinimumSize(window->MinWidth, window->MinHeight);
    if (window->MaxWidth > 0 && window->MaxHeight > 0)
        widget_->setMaximumSize(window->MaxWidth, window->MaxHeight);
    if (!(flags & WFLG_SIZEGADGET) && window->Width > 0 && window->Height > 0)
        widget_->setFixedSize(window->Width, window->Height);

    const QString title = window->Title ? QString::fromUtf8(window->Title) : QString();
    widget_->setWindowTitle(title);
    if (titleOnly_) widget_->Area()->SetCaption(title);
    widget_->resize(window->Width, window->Height);
    widget_->move(origin_ + QPoint(window->LeftEdge, window->TopEdge));

    window->WindowPort.Surface = this;
    window->Peer = this;
    ShowGadgets(ScanGadgets(window));
    widget_->show();
    if (flags & WFLG_ACTIVATE) {
        widget_->raise();
        widget_->activateWindow();
    }
}

void QtWindow::Detach() {
    attached_ = false;
    SetStrip(nullptr);
    if (!widget_) return;
    widget_->hide();
    widget_->deleteLater();
}

void QtWindow::SetTitle(const QString& title) {
    if (!widget_) return;
    widget_->setWindowTitle(title);
    if (titleOnly_) widget_->Area()->SetCaption(title);
}

void QtWindow::SetBox(int left, int top, int width, int height) {
    if (!widget_) return;
    widget_->move(origin_ + QPoint(left, top));
    widget_->resize(width, height);
}

void QtWindow::SetBusy(bool busy, bool delay) {
    busy_ = busy;
    if (!widget_) return;
    if (!busy) {
        widget_->unsetCursor();
    } else if (!delay) {
        widget_->setCursor(Qt::BusyCursor);
    } else {
        QTimer::singleShot(kBusyDelayMs, widget_, [this] {
            if (busy_) widget_->setCursor(Qt::BusyCursor);
        });
    }
}

void QtWindow::Flash() {
    if (widget_) widget_->Area()->Flash();
}

uint64_t QtWindow::SetStrip(const Menu* strip) {
    std::lock_guard<std::mutex> hold(stripLock_);
    strip_ = strip;
    return ++stripGeneration_;
}

void QtWindow::ShowMenus(uint64_t generation, const MenuStripPicture& picture) {
    shownGeneration_ = generation;
    if (menus_ && widget_) menus_->Show(picture);
}

void QtWindow::MenuPicked(MenuNumber number) {
    const uint16_t qualifier = QualifierFromModifiers(QApplication::keyboardModifiers());
    std::lock_guard<std::mutex> hold(stripLock_);
    if (!attached_ || !strip_ || stripGeneration_ != shownGeneration_) return;
    PostMenuPick(window_, strip_, number, qualifier);
    // The action turned its own mark over; the record says what holds.
    if (const MenuItem* item = ItemAddress(strip_, number); item && (item->Flags & CHECKIT))
        menus_->SetChecked(number, item->Flags & CHECKED);
}

void QtWindow::MenuHelp(MenuNumber number) {
    const uint16_t qualifier = QualifierFromModifiers(QApplication::keyboardModifiers());
    std::lock_guard<std::mutex> hold(stripLock_);
    if (!attached_ || !strip_ || stripGeneration_ != shownGeneration_) return;
    PostMenuHelp(window_, strip_, number, qualifier);
}

QtWindow::Scrollers QtWindow::ScanGadgets(const Window* window) {
    Scrollers found;
    for (Gadget* gadget = window->FirstGadget; gadget; gadget = gadget->NextGadget) {
        const uint16_t type = gadget->GadgetType & kGadgetTypeMask;
        if (type == GTYP_PROPGADGET && gadget->SpecialInfo) {
            const auto* prop = static_cast<const PropInfo*>(gadget->SpecialInfo);
            if (prop->Flags & FREEVERT) {
                found.vertical.knob = gadget;
                found.vertical.pot = prop->VertPot;
                found.vertical.body = prop->VertBody;
            } else if (prop->Flags & FREEHORIZ) {
                found.horizontal.knob = gadget;
                found.horizontal.pot = prop->HorizPot;
                found.horizontal.body = prop->HorizBody;
            }
        } else if (type == GTYP_BOOLGADGET) {
            switch (gadget->GadgetID) {
            case GADGETID_ARROWUP: found.vertical.sub = gadget; break;
            case GADGETID_ARROWDOWN: found.vertical.add = gadget; break;
            case GADGETID_ARROWLEFT: found.horizontal.sub = gadget; break;
            case GADGETID_ARROWRIGHT: found.horizontal.add = gadget; break;
            default: break;
            }
        }
    }
    return found;
}

void QtWindow::ShowGadgets(const Scrollers& scrollers) {
    if (!attached_ || !widget_) return;
    gadgets_ = scrollers;
    auto show = [](ScrollerBar* bar, const Scroller& scroller) {
        if (!bar) return;
        bar->setVisible(scroller.knob != nullptr);
        // The user's hand wins over the program while the bar is held.
        if (scroller.knob && !bar->Held()) bar->SetPotBody(scroller.pot, scroller.body);
    };
    show(widget_->Vertical(), gadgets_.vertical);
    show(widget_->Horizontal(), gadgets_.horizontal);
}

void QtWindow::Post(uint32_t cls, uint16_t code, uint16_t qualifier, QPoint position,
                    void* address, const KeyChars* keys) {
    if (!attached_) return;
    IntuiMessage message;
    message.Class = cls;
    message.Code = code;
    message.Qualifier = qualifier;
    message.IAddress = address;
    message.MouseX = int16_t(position.x());
    message.MouseY = int16_t(position.y());
    if (keys) message.Keys = *keys;
    PostWindowMessage(window_, message);
}

QPoint QtWindow::PointerInWindow() const {
    return widget_ ? widget_->mapFromGlobal(QCursor::pos()) : QPoint();
}

void QtWindow::KeyEvent(uint16_t code, uint16_t qualifier, const KeyChars& keys) {
    Post(IDCMP_RAWKEY, code, qualifier, PointerInWindow(), nullptr, &keys);
}

void QtWindow::MouseEvent(uint32_t cls, uint16_t code, uint16_t qualifier, QPoint position) {
    Post(cls, code, qualifier, position);
}

void QtWindow::ScrollerEvent(bool vertical, ScrollerPart part, ScrollerAction action,
                             uint16_t pot, uint16_t qualifier, QPoint position) {
    if (!attached_) return;
    const Scroller& scroller = vertical ? gadgets_.vertical : gadgets_.horizontal;
    Gadget* gadget = part == ScrollerPart::SubArrow   ? scroller.sub
                     : part == ScrollerPart::AddArrow ? scroller.add
                                                      : scroller.knob;
    if (!gadget) return;
    PropInfo* prop = gadget == scroller.knob ? static_cast<PropInfo*>(gadget->SpecialInfo) : nullptr;
    if (prop) (vertical ? prop->VertPot : prop->HorizPot) = pot;
    switch (action) {
    case ScrollerAction::Down:
        // The flags are set before the message, so the program sees the
        // gadget held when it handles the press.
        if (prop) {
            if (part == ScrollerPart::Knob) prop->Flags |= KNOBHIT;
            else prop->Flags &= uint16_t(~KNOBHIT);
        }
        gadget->Flags |= GFLG_SELECTED;
        Post(IDCMP_GADGETDOWN, 0, qualifier, position, gadget);
        break;
    case ScrollerAction::Move:
        Post(IDCMP_MOUSEMOVE, 0, qualifier, position, gadget);
        break;
    case ScrollerAction::Up:
        gadget->Flags &= uint16_t(~GFLG_SELECTED);
        Post(IDCMP_GADGETUP, 0, qualifier, position, gadget);
        break;
    }
}

void QtWindow::Resized() {
    if (!attached_ || !widget_) return;
    const QSize size = widget_->size();
    if (size.width() == window_->Width && size.height() == window_->Height) return;
    window_->Width = int16_t(size.width());
    window_->Height = int16_t(size.height());
    Post(IDCMP_NEWSIZE, 0, 0, PointerInWindow());
}

void QtWindow::Moved() {
    if (!attached_ || !widget_) return;
    window_->LeftEdge = int16_t(widget_->x() - origin_.x());
    window_->TopEdge = int16_t(widget_->y() - origin_.y());
}

void QtWindow::Activated(bool active) {
    Post(active ? IDCMP_ACTIVEWINDOW : IDCMP_INACTIVEWINDOW, 0, 0, PointerInWindow());
}

void QtWindow::Tick() { Post(IDCMP_INTUITICKS, 0, 0, PointerInWindow()); }

void QtWindow::CloseRequested() { Post(IDCMP_CLOSEWINDOW, 0, 0, PointerInWindow()); }

void QtWindow::FilesDropped(const QStringList& paths, QPoint position) {
    if (!attached_) return;
    for (const QString& path : paths) {
        const QFileInfo file(path);
        PostDrop(window_, QFile::encodeName(file.absolutePath()).constData(),
                 QFile::encodeName(file.fileName()).constData(), position.x(), position.y());
    }
}

QRgb QtWindow::PenColour(uint8_t pen) const {
    if (!colours_) return pen ? qRgb(0, 0, 0) : qRgb(0xFF, 0xFF, 0xFF);
    uint32_t rgb[3] = {};
    GetRGB32(colours_, pen, 1, rgb);
    return qRgb(int(rgb[0] >> 24), int(rgb[1] >> 24), int(rgb[2] >> 24));
}

QRect QtWindow::AreaRect() const { return raster_.image.rect().marginsRemoved(borders_); }

// The repaint comes a few milliseconds after the first change, so a burst
// of drawing calls is shown at once, and a task painting fast seldom finds
// the picture locked by a repaint.
void QtWindow::RequestRepaint() {
    if (repaintPending_.exchange(true)) return;
    PostToDisplay([this] {
        if (!widget_) return;
        QTimer::singleShot(kRepaintDelayMs, widget_, [this] {
            repaintPending_ = false;
            widget_->Area()->update();
        });
    });
}

void QtWindow::DrawText(const RastPort& rp, int x, int y, const char* text, int count) {
    if (count <= 0) return;
    QtTextFont* font = rp.Font ? static_cast<QtTextFont*>(rp.Font) : defaultFont_;
    const QRgb foreground = PenColour(rp.FgPen);
    const QRgb background = PenColour(rp.BgPen);
    {
        std::lock_guard<std::mutex> hold(raster_.lock);
        font->glyphs->Draw(raster_.image, x, y - font->tf_Baseline,
                           reinterpret_cast<const uint8_t*>(text), count, foreground, background,
                           AreaRect());
    }
    RequestRepaint();
}

void QtWindow::FillRect(const RastPort&, uint8_t pen, int xMin, int yMin, int xMax, int yMax) {
    if (xMax < xMin || yMax < yMin) return;
    const QRgb colour = PenColour(pen);
    {
        std::lock_guard<std::mutex> hold(raster_.lock);
        const QRect cut = QRect(QPoint(xMin, yMin), QPoint(xMax, yMax)).intersected(AreaRect());
        if (cut.isEmpty()) return;
        ::FillRect(raster_.image, cut.left(), cut.top(), cut.right(), cut.bottom(), colour);
    }
    RequestRepaint();
}

void QtWindow::ScrollRect(const RastPort& rp, int dx, int dy, int xMin, int yMin, int xMax,
                          int yMax) {
    if (xMax < xMin || yMax < yMin) return;
    const QRgb background = PenColour(rp.BgPen);
    {
        std::lock_guard<std::mutex> hold(raster_.lock);
        const QRect cut = QRect(QPoint(xMin, yMin), QPoint(xMax, yMax)).intersected(AreaRect());
        if (cut.isEmpty()) return;
        ::ScrollRect(raster_.image, dx, dy, cut.left(), cut.top(), cut.right(), cut.bottom(),
                     background);
    }
    RequestRepaint();
}

QImage QtWindow::Snapshot() const { return widget_ ? widget_->grab().toImage() : QImage(); }

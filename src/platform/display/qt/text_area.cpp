#include "platform/display/qt/text_area.h"

#include "platform/display/input_codes.h"
#include "platform/display/qt/key_translation.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

namespace {

constexpr int kFlashMs = 120;

}  // namespace

uint16_t ButtonQualifier(Qt::MouseButtons buttons) {
    uint16_t qualifier = 0;
    if (buttons & Qt::LeftButton) qualifier |= IEQUALIFIER_LEFTBUTTON;
    if (buttons & Qt::RightButton) qualifier |= IEQUALIFIER_RBUTTON;
    if (buttons & Qt::MiddleButton) qualifier |= IEQUALIFIER_MIDBUTTON;
    return qualifier;
}

TextArea::TextArea(WindowRaster& raster, WindowEvents& events, QWidget* parent)
    : QWidget(parent), raster_(raster), events_(events) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

void TextArea::Flash() {
    flashing_ = true;
    update();
    QTimer::singleShot(kFlashMs, this, [this] {
        flashing_ = false;
        update();
    });
}

void TextArea::SetCaption(const QString& caption) {
    caption_ = caption;
    update();
}

bool TextArea::event(QEvent* event) {
    // The editor handles its own shortcuts; menus only show them.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

bool TextArea::focusNextPrevChild(bool) { return false; }

QPoint TextArea::InWindow(QPoint local) const { return local + pos(); }

void TextArea::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect area = event->rect();
    {
        std::lock_guard<std::mutex> hold(raster_.lock);
        painter.fillRect(area, QColor::fromRgb(raster_.fill));
        painter.drawImage(area.topLeft(), raster_.image, area.translated(pos()));
    }
    if (!caption_.isEmpty()) painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, caption_);
    if (flashing_) {
        painter.setCompositionMode(QPainter::CompositionMode_Difference);
        painter.fillRect(area, Qt::white);
    }
}

void TextArea::Key(QKeyEvent* event, bool up) {
    const TranslatedKey key =
        TranslateKey(event->key(), event->modifiers(), event->text(), event->isAutoRepeat());
    event->accept();
    if (!key.known) return;
    const uint16_t qualifier = key.qualifier | ButtonQualifier(QGuiApplication::mouseButtons());
    events_.KeyEvent(up ? uint16_t(key.code | IECODE_UP_PREFIX) : key.code, qualifier, key.keys);
}

void TextArea::keyPressEvent(QKeyEvent* event) { Key(event, false); }
void TextArea::keyReleaseEvent(QKeyEvent* event) { Key(event, true); }

void TextArea::Button(QMouseEvent* event, bool up) {
    uint16_t code = 0;
    switch (event->button()) {
    case Qt::LeftButton: code = SELECTDOWN; break;
    case Qt::RightButton: code = MENUDOWN; break;
    case Qt::MiddleButton: code = MIDDLEDOWN; break;
    default: return;
    }
    if (up) code |= IECODE_UP_PREFIX;
    const uint16_t qualifier =
        QualifierFromModifiers(event->modifiers()) | ButtonQualifier(event->buttons());
    events_.MouseEvent(IDCMP_MOUSEBUTTONS, code, qualifier, InWindow(event->position().toPoint()));
    event->accept();
}

// A double click arrives as a second press: the editor times clicks itself.
void TextArea::mousePressEvent(QMouseEvent* event) { Button(event, false); }
void TextArea::mouseReleaseEvent(QMouseEvent* event) { Button(event, true); }

void TextArea::mouseMoveEvent(QMouseEvent* event) {
    const uint16_t qualifier =
        QualifierFromModifiers(event->modifiers()) | ButtonQualifier(event->buttons());
    events_.MouseEvent(IDCMP_MOUSEMOVE, 0, qualifier, InWindow(event->position().toPoint()));
    event->accept();
}

// The wheel gives the raw codes of a wheel notch; the editor has no use for
// them, but a program on this layer may.
void TextArea::wheelEvent(QWheelEvent* event) {
    const int delta = event->angleDelta().y();
    if (delta == 0) return;
    const uint16_t qualifier =
        QualifierFromModifiers(event->modifiers()) | ButtonQualifier(event->buttons());
    events_.KeyEvent(delta > 0 ? RAWKEY_WHEEL_UP : RAWKEY_WHEEL_DOWN, qualifier, KeyChars());
    event->accept();
}

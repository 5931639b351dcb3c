#include "platform/display/qt/scroller_bar.h"

#include "platform/display/input_codes.h"
#include "platform/display/qt/key_translation.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionSlider>

#include <algorithm>

namespace {

constexpr int kPotRange = 0xFFFF;

}  // namespace

ScrollerBar::ScrollerBar(Qt::Orientation orientation, Report report, QWidget* parent)
    : QScrollBar(orientation, parent), report_(std::move(report)) {
    setFocusPolicy(Qt::NoFocus);
    setRange(0, 0);
    setPageStep(kPotRange);
    setSingleStep(1);
    // A drag of the knob reports every step, as a knob that follows the mouse.
    connect(this, &QScrollBar::sliderMoved, this, [this](int) {
        if (held_ && heldPart_ == ScrollerPart::Knob)
            report_(ScrollerPart::Knob, ScrollerAction::Move, Pot(),
                    QualifierFromModifiers(QGuiApplication::keyboardModifiers()) | IEQUALIFIER_LEFTBUTTON,
                    mapFromGlobal(QCursor::pos()));
    });
}

void ScrollerBar::SetPotBody(uint16_t pot, uint16_t body) {
    const int range = kPotRange - std::max<int>(body, 1);
    const QSignalBlocker quiet(this);
    setRange(0, std::max(range, 0));
    setPageStep(std::max<int>(body, 1));
    setValue(range > 0 ? int(int64_t(pot) * range / kPotRange) : 0);
}

uint16_t ScrollerBar::Pot() const {
    if (maximum() <= 0) return 0;
    return uint16_t(std::clamp<int64_t>(int64_t(value()) * kPotRange / maximum(), 0, kPotRange));
}

void ScrollerBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || held_) {
        event->ignore();
        return;
    }
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QPoint position = event->position().toPoint();
    const QStyle::SubControl hit =
        style()->hitTestComplexControl(QStyle::CC_ScrollBar, &option, position, this);
    switch (hit) {
    case QStyle::SC_ScrollBarSubLine: heldPart_ = ScrollerPart::SubArrow; break;
    case QStyle::SC_ScrollBarAddLine: heldPart_ = ScrollerPart::AddArrow; break;
    case QStyle::SC_ScrollBarSlider: heldPart_ = ScrollerPart::Knob; break;
    case QStyle::SC_ScrollBarSubPage:
    case QStyle::SC_ScrollBarFirst: heldPart_ = ScrollerPart::SubPage; break;
    case QStyle::SC_ScrollBarAddPage:
    case QStyle::SC_ScrollBarLast: heldPart_ = ScrollerPart::AddPage; break;
    default: event->ignore(); return;
    }
    held_ = true;
    if (heldPart_ == ScrollerPart::Knob) {
        QScrollBar::mousePressEvent(event);
    } else if (heldPart_ == ScrollerPart::SubPage || heldPart_ == ScrollerPart::AddPage) {
        const QSignalBlocker quiet(this);
        setValue(value() + (heldPart_ == ScrollerPart::AddPage ? pageStep() : -pageStep()));
    }
    report_(heldPart_, ScrollerAction::Down, Pot(),
            QualifierFromModifiers(event->modifiers()) | IEQUALIFIER_LEFTBUTTON, position);
    event->accept();
}

void ScrollerBar::mouseMoveEvent(QMouseEvent* event) {
    if (held_ && heldPart_ == ScrollerPart::Knob) QScrollBar::mouseMoveEvent(event);
    event->accept();
}

void ScrollerBar::mouseReleaseEvent(QMouseEvent* event) {
    if (!held_ || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    if (heldPart_ == ScrollerPart::Knob) QScrollBar::mouseReleaseEvent(event);
    held_ = false;
    report_(heldPart_, ScrollerAction::Up, Pot(), QualifierFromModifiers(event->modifiers()),
            event->position().toPoint());
    event->accept();
}

void ScrollerBar::wheelEvent(QWheelEvent* event) { event->ignore(); }

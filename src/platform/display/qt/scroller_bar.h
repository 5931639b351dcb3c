#pragma once
// A scroll bar that stands for three gadgets: its two arrows and its knob.
// It never moves by itself except under the user's hand: pressing an arrow
// only reports it (the program scrolls and sets the bar), a click beside
// the knob moves it one body (page) towards the click, and the knob follows
// a drag. Every press, drag step and release is reported to WindowEvents
// with the pot after the action.
//
// Pot and body are the gadget's values, 0 .. 0xFFFF: the bar's page step is
// the body, its range 0 .. 0xFFFF - body, so the knob's length is body /
// 0xFFFF of the trough.
#include <QScrollBar>

#include <cstdint>
#include <functional>

#include "platform/display/qt/window_events.h"

class ScrollerBar : public QScrollBar {
public:
    // `report(part, action, pot, qualifier, position in the bar)`.
    using Report = std::function<void(ScrollerPart, ScrollerAction, uint16_t, uint16_t, QPoint)>;

    ScrollerBar(Qt::Orientation orientation, Report report, QWidget* parent);

    void SetPotBody(uint16_t pot, uint16_t body);
    uint16_t Pot() const;
    // While the user holds any part of the bar.
    bool Held() const { return held_; }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    Report report_;
    bool held_ = false;
    ScrollerPart heldPart_ = ScrollerPart::Knob;
};

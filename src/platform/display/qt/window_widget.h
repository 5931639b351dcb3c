#pragma once
// The top-level desktop window of a program window: a text area, a menu bar
// above it when asked for, and in the right and bottom borders (when the window has them) a vertical and a
// horizontal scroll bar, shown once the program gives the window its
// scroller gadgets. The insets of the text area inside the window are the
// window's borders and never change while it is open, so cell positions
// computed from the borders land on the text area.
//
// The close button only reports (the program decides); activation starts
// and stops a tick of about ten a second; files dropped on the window are
// reported with the drop position. Lives on the display thread.
#include <QMargins>
#include <QMenuBar>
#include <QTimer>
#include <QWidget>

#include "platform/display/qt/scroller_bar.h"
#include "platform/display/qt/text_area.h"
#include "platform/display/qt/window_events.h"
#include "platform/display/qt/window_raster.h"

class WindowWidget : public QWidget {
public:
    // With `menuBar` the window keeps a menu bar along its top from the
    // start, so the text area never moves when the strip comes or goes.
    WindowWidget(WindowRaster& raster, WindowEvents& events, bool rightBorder, bool bottomBorder,
                 bool menuBar);

    TextArea* Area() const { return area_; }
    // Null when the window has no such border.
    ScrollerBar* Vertical() const { return vertical_; }
    ScrollerBar* Horizontal() const { return horizontal_; }
    QMenuBar* MenuBar() const { return menuBar_; }   // null without one
    // Left, top, right and bottom insets of the text area.
    QMargins Borders() const { return borders_; }

    static constexpr int kTickMs = 100;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void Layout();

    WindowRaster& raster_;
    WindowEvents& events_;
    QMargins borders_;
    TextArea* area_ = nullptr;
    ScrollerBar* vertical_ = nullptr;
    ScrollerBar* horizontal_ = nullptr;
    QMenuBar* menuBar_ = nullptr;
    QTimer ticks_;
};

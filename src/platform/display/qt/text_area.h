#pragma once
// The text area of a window: shows the part of the window's picture that
// lies under it and turns keys, buttons, pointer moves and the wheel into
// reports in the editor's terms, positions relative to the window.
//
// Every key reaches it, Tab included; desktop shortcuts never take a key
// from it.
#include <QWidget>

#include "platform/display/qt/window_events.h"
#include "platform/display/qt/window_raster.h"

class TextArea : public QWidget {
public:
    TextArea(WindowRaster& raster, WindowEvents& events, QWidget* parent);

    // A short inversion of the area, for a display beep.
    void Flash();
    // A line of text shown over the picture (a title window's title); empty
    // shows none.
    void SetCaption(const QString& caption);

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Key(QKeyEvent* event, bool up);
    void Button(QMouseEvent* event, bool up);
    // The position in the window's coordinates.
    QPoint InWindow(QPoint local) const;

    WindowRaster& raster_;
    WindowEvents& events_;
    bool flashing_ = false;
    QString caption_;
};

// Qualifier bits of the mouse buttons held.
uint16_t ButtonQualifier(Qt::MouseButtons buttons);

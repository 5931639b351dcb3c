#include "platform/display/qt/window_png.h"

#include "platform/display/qt/display_thread.h"
#include "platform/display/qt/qt_window.h"

#include <QImage>
#include <QString>

bool SaveWindowPng(Window* window, const char* path) {
    if (!window || !window->Peer || !path) return false;
    auto* peer = dynamic_cast<QtWindow*>(window->Peer);
    if (!peer) return false;
    QImage picture;
    RunOnDisplay([&] { picture = peer->Snapshot(); });
    return !picture.isNull() && picture.save(QString::fromLocal8Bit(path), "PNG");
}

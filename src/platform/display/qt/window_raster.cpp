#include "platform/display/qt/window_raster.h"

#include <QPainter>

void WindowRaster::Resize(QSize size) {
    size = size.expandedTo(QSize(1, 1));
    std::lock_guard<std::mutex> hold(lock);
    if (image.size() == size) return;
    QImage resized(size, QImage::Format_RGB32);
    resized.fill(fill);
    QPainter painter(&resized);
    painter.drawImage(0, 0, image);
    painter.end();
    image = std::move(resized);
}

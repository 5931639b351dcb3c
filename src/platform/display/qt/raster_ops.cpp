#include "platform/display/qt/raster_ops.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

// The rectangle cut to the image; false when nothing is left.
bool Clip(const QImage& image, int& x0, int& y0, int& x1, int& y1) {
    x0 = std::max(x0, 0);
    y0 = std::max(y0, 0);
    x1 = std::min(x1, image.width() - 1);
    y1 = std::min(y1, image.height() - 1);
    return x0 <= x1 && y0 <= y1;
}

QRgb* Row(QImage& image, int y) { return reinterpret_cast<QRgb*>(image.scanLine(y)); }

}  // namespace

void FillRect(QImage& image, int x0, int y0, int x1, int y1, QRgb colour) {
    if (!Clip(image, x0, y0, x1, y1)) return;
    for (int y = y0; y <= y1; ++y) std::fill(Row(image, y) + x0, Row(image, y) + x1 + 1, colour);
}

void ScrollRect(QImage& image, int dx, int dy, int x0, int y0, int x1, int y1,
                QRgb background) {
    if (!Clip(image, x0, y0, x1, y1)) return;
    const int width = x1 - x0 + 1;
    const int height = y1 - y0 + 1;
    if (std::abs(dx) >= width || std::abs(dy) >= height) {
        FillRect(image, x0, y0, x1, y1, background);
        return;
    }
    // Rows are copied in the order that never overwrites a source row
    // before it was read; within a row memmove handles the overlap.
    const int keptWidth = width - std::abs(dx);
    const int fromX = dx > 0 ? x0 + dx : x0;
    const int toX = dx > 0 ? x0 : x0 - dx;
    if (dy >= 0) {
        for (int y = y0; y + dy <= y1; ++y)
            std::memmove(Row(image, y) + toX, Row(image, y + dy) + fromX, size_t(keptWidth) * 4);
    } else {
        for (int y = y1; y + dy >= y0; --y)
            std::memmove(Row(image, y) + toX, Row(image, y + dy) + fromX, size_t(keptWidth) * 4);
    }
    if (dy > 0) FillRect(image, x0, y1 - dy + 1, x1, y1, background);
    if (dy < 0) FillRect(image, x0, y0, x1, y0 - dy - 1, background);
    if (dx > 0) FillRect(image, x1 - dx + 1, y0, x1, y1, background);
    if (dx < 0) FillRect(image, x0, y0, x0 - dx - 1, y1, background);
}

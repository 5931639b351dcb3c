#pragma once
// The picture of one window: an image of the window's inner size that the
// owning task paints into and the display thread shows. Every access to
// `image` holds `lock`; holds are short (one drawing call, one paint).
#include <QImage>
#include <QRgb>
#include <QSize>

#include <mutex>

struct WindowRaster {
    std::mutex lock;
    QImage image{1, 1, QImage::Format_RGB32};
    // Colour of the parts that a growing window uncovers.
    QRgb fill = qRgb(0xCF, 0xCF, 0xCF);

    // New size, keeping what fits of the old picture. Takes the lock.
    void Resize(QSize size);
};

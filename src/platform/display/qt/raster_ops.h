#pragma once
// Pixel operations of a rastport on a QImage of Format_RGB32. Rectangles are
// given by inclusive corners as the drawing calls take them; everything is
// cut to the image, and an empty or inverted rectangle does nothing.
#include <QImage>
#include <QRgb>

// Fills (x0, y0) .. (x1, y1) with `colour`.
void FillRect(QImage& image, int x0, int y0, int x1, int y1, QRgb colour);

// Moves the contents of (x0, y0) .. (x1, y1) by -dx, -dy: a positive dy
// moves them up, a positive dx to the left. The strip uncovered inside the
// rectangle is filled with `background`. A delta as large as the rectangle
// clears it all.
void ScrollRect(QImage& image, int dx, int dy, int x0, int y0, int x1, int y1,
                QRgb background);

#include "platform/display/qt/glyph_atlas.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cstring>

namespace {

bool IsControl(int c) { return c < 32 || (c >= 127 && c < 160); }

}  // namespace

GlyphAtlas::GlyphAtlas(const QFont& font) : font_(font) {
    QFontMetrics metrics(font_);
    // The advance of a digit is the column width of a fixed font; a
    // proportional font gets its average and is cut or padded to it.
    cellWidth_ = std::max(1, metrics.horizontalAdvance(QLatin1Char('0')));
    ascent_ = std::max(1, metrics.ascent());
    cellHeight_ = std::max(ascent_ + 1, metrics.height());
    baseline_ = ascent_ - 1;
}

const QImage& GlyphAtlas::Strip(QRgb foreground, QRgb background) {
    const uint64_t key = (uint64_t(foreground) << 32) | background;
    auto found = strips_.find(key);
    if (found != strips_.end()) return found->second;
    if (strips_.size() >= kMaxStrips) strips_.clear();

    QImage strip(cellWidth_ * 256, cellHeight_, QImage::Format_RGB32);
    strip.fill(background);
    QPainter painter(&strip);
    painter.setFont(font_);
    painter.setPen(QColor::fromRgb(foreground));
    for (int c = 0; c < 256; ++c) {
        if (IsControl(c)) continue;
        const QRect cell(c * cellWidth_, 0, cellWidth_, cellHeight_);
        painter.setClipRect(cell);
        painter.drawText(cell.left(), ascent_, QString(QChar(char16_t(c))));
    }
    painter.end();
    return strips_.emplace(key, std::move(strip)).first->second;
}

void GlyphAtlas::Draw(QImage& target, int x, int top, const uint8_t* text, int count,
                      QRgb foreground, QRgb background, const QRect& clip) {
    const QRect area = clip.intersected(target.rect());
    if (count <= 0 || area.isEmpty()) return;
    const int rowFirst = std::max(top, area.top());
    const int rowEnd = std::min(top + cellHeight_, area.bottom() + 1);
    if (rowFirst >= rowEnd) return;
    // Only the characters that reach into the clip are drawn.
    if (area.right() < x) return;
    int first = 0;
    if (x < area.left()) first = (area.left() - x) / cellWidth_;
    const int end = std::min(count, (area.right() - x) / cellWidth_ + 1);
    if (first >= end) return;

    std::lock_guard<std::mutex> hold(lock_);
    const QImage& strip = Strip(foreground, background);
    const uint8_t* stripBits = strip.constBits();
    const qsizetype stripStride = strip.bytesPerLine();
    uchar* targetBits = target.bits();
    const qsizetype targetStride = target.bytesPerLine();

    for (int i = first; i < end; ++i) {
        const int cellLeft = x + i * cellWidth_;
        const int from = std::max(cellLeft, area.left());
        const int to = std::min(cellLeft + cellWidth_, area.right() + 1);
        if (from >= to) continue;
        const size_t bytes = size_t(to - from) * 4;
        const int sourceX = text[i] * cellWidth_ + (from - cellLeft);
        for (int row = rowFirst; row < rowEnd; ++row) {
            std::memcpy(targetBits + row * targetStride + from * 4,
                        stripBits + (row - top) * stripStride + sourceX * 4, bytes);
        }
    }
}

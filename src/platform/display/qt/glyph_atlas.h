#pragma once
// Pre-rendered glyphs of one font: the 256 characters of ISO 8859-1, each in
// a cell of CellWidth() x CellHeight() pixels, kept per pair of foreground
// and background colours. Drawing text is then a copy of cells, one cell a
// character, so the columns of the grid hold even for a font that is not
// perfectly fixed: a glyph wider than its cell is cut at the cell's edge.
// Control characters (0-31, 127-159) draw as blank cells in the background.
//
// Thread-safe: any task may draw through a shared atlas. Targets must be
// QImage::Format_RGB32.
#include <QFont>
#include <QImage>
#include <QRect>
#include <QRgb>

#include <cstdint>
#include <map>
#include <mutex>

class GlyphAtlas {
public:
    explicit GlyphAtlas(const QFont& font);

    int CellWidth() const { return cellWidth_; }
    int CellHeight() const { return cellHeight_; }
    // Pixel row of the baseline counted from the top of a cell: the lowest
    // row of a letter without descender.
    int Baseline() const { return baseline_; }

    // Draws `count` characters, the first cell's top-left corner at
    // (x, top), cut to `clip` and to the target.
    void Draw(QImage& target, int x, int top, const uint8_t* text, int count,
              QRgb foreground, QRgb background, const QRect& clip);

private:
    const QImage& Strip(QRgb foreground, QRgb background);

    QFont font_;
    int cellWidth_ = 1;
    int cellHeight_ = 1;
    int baseline_ = 0;
    int ascent_ = 0;
    std::mutex lock_;
    // One strip of 256 cells side by side per colour pair. Bounded: the
    // whole cache is dropped when it grows past kMaxStrips.
    std::map<uint64_t, QImage> strips_;
    static constexpr size_t kMaxStrips = 64;
};

#include "platform/display/qt/glyph_atlas.h"
#include "platform/display/qt/raster_ops.h"

#include <QFontDatabase>

#include <gtest/gtest.h>

namespace {

constexpr QRgb kBackground = 0xFF102030;
constexpr QRgb kInk = 0xFFF0E0D0;

// Every pixel different, so a moved pixel shows where it came from.
QImage Numbered(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) image.setPixel(x, y, qRgb(x, y, 7));
    return image;
}

TEST(QtRasterOps, ScrollMovesTheRectangleAndFillsWhatItUncovers) {
    struct Case { int dx, dy; };
    const Case cases[] = {{0, 3}, {0, -3}, {4, 0}, {-4, 0}, {2, -1}, {0, 9}, {-20, 0}};
    const QRect rect(5, 4, 12, 9);   // inclusive corners (5,4) .. (16,12)
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "dx " << c.dx << " dy " << c.dy);
        const QImage before = Numbered(24, 20);
        QImage image = before;
        ScrollRect(image, c.dx, c.dy, rect.left(), rect.top(), rect.right(), rect.bottom(),
                   kBackground);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QPoint source(x + c.dx, y + c.dy);
                QRgb expected = before.pixel(x, y);
                if (rect.contains(x, y))
                    expected = rect.contains(source) ? before.pixel(source) : kBackground;
                ASSERT_EQ(image.pixel(x, y), expected) << "at " << x << "," << y;
            }
        }
    }
}

TEST(QtRasterOps, FillIsCutToTheImageAndEmptyRectanglesDrawNothing) {
    QImage image = Numbered(10, 10);
    const QImage before = image;
    FillRect(image, 5, 5, 3, 9, kInk);   // inverted: nothing
    EXPECT_EQ(image, before);
    FillRect(image, -5, 8, 30, 40, kInk);
    for (int x = 0; x < 10; ++x) {
        EXPECT_EQ(image.pixel(x, 7), before.pixel(x, 7));
        EXPECT_EQ(image.pixel(x, 8), kInk);
        EXPECT_EQ(image.pixel(x, 9), kInk);
    }
}

class GlyphAtlasTest : public testing::Test {
protected:
    GlyphAtlas atlas{QFontDatabase::systemFont(QFontDatabase::GeneralFont)};
    int w = atlas.CellWidth();
    int h = atlas.CellHeight();
    QImage Blank() {
        QImage image(w * 12, h + 4, QImage::Format_RGB32);
        image.fill(kBackground);
        return image;
    }
    void Draw(QImage& image, int x, const char* text, QRect clip = QRect(0, 0, 10000, 10000)) {
        atlas.Draw(image, x, 2, reinterpret_cast<const uint8_t*>(text), int(strlen(text)), kInk,
                   kBackground, clip);
    }
};

// A proportional font on purpose: wide and narrow letters keep the grid.
TEST_F(GlyphAtlasTest, EachCharacterTakesOneCellWhateverItsWidth) {
    ASSERT_GE(atlas.Baseline(), 1);
    ASSERT_LT(atlas.Baseline(), h);
    QImage together = Blank();
    Draw(together, 3, "WiWi");
    QImage apart = Blank();
    Draw(apart, 3, "W");
    Draw(apart, 3 + w, "i");
    Draw(apart, 3 + 2 * w, "W");
    Draw(apart, 3 + 3 * w, "i");
    EXPECT_EQ(together, apart);
    EXPECT_NE(together, Blank());
}

TEST_F(GlyphAtlasTest, ControlCharactersAreBlankCellsInTheBackground) {
    QImage image(w * 3, h, QImage::Format_RGB32);
    image.fill(kInk);
    atlas.Draw(image, 0, 0, reinterpret_cast<const uint8_t*>("\t\x01\x9b"), 3, kInk, kBackground,
               image.rect());
    QImage expected(image.size(), QImage::Format_RGB32);
    expected.fill(kBackground);
    EXPECT_EQ(image, expected);
}

TEST_F(GlyphAtlasTest, DrawingStaysInsideTheClipAndTheImage) {
    const QRect clip(w + w / 2, 0, 2 * w, h + 4);
    QImage clipped = Blank();
    Draw(clipped, 0, "MMMMMM", clip);
    QImage full = Blank();
    Draw(full, 0, "MMMMMM");
    for (int y = 0; y < full.height(); ++y)
        for (int x = 0; x < full.width(); ++x)
            ASSERT_EQ(clipped.pixel(x, y), clip.contains(x, y) ? full.pixel(x, y) : kBackground)
                << x << "," << y;

    // Starting left of the image and running past its right edge gives the
    // middle of the same line drawn on a wider image.
    const int start = -w / 2 - w;
    QImage edges = Blank();
    Draw(edges, start, "MiMiMiMiMiMiMiMi");
    QImage wide(edges.width() + 8 * w, edges.height(), QImage::Format_RGB32);
    wide.fill(kBackground);
    Draw(wide, start + 4 * w, "MiMiMiMiMiMiMiMi");
    EXPECT_EQ(edges, wide.copy(4 * w, 0, edges.width(), edges.height()));
}

}  // namespace

// Pens from RGB by best match.
#include "platform/display/graphics.h"

#include <gtest/gtest.h>

namespace {

constexpr uint32_t kFull = 0xFFFFFFFF;

TEST(ColorMap, PensAreSharedByColourAndFallBackToTheNearest)
{
    ColorMap* map = GetColorMap(6);
    ASSERT_NE(map, nullptr);
    SetRGB32CM(map, 0, 0xAAAAAAAA, 0xAAAAAAAA, 0xAAAAAAAA);
    SetRGB32CM(map, 1, 0, 0, 0);
    SetRGB32CM(map, 2, kFull, kFull, kFull);
    SetRGB32CM(map, 3, 0, 0, kFull);

    EXPECT_EQ(ObtainBestPen(map, 0, 0, 0), 1) << "a fixed colour is shared";
    long grey = ObtainBestPen(map, 0xCFFFFFFF, 0xCFFFFFFF, 0xCFFFFFFF);
    EXPECT_EQ(grey, 4);
    EXPECT_EQ(ObtainBestPen(map, 0xCFFFFFFF, 0xCFFFFFFF, 0xCFFFFFFF), grey);
    long red = ObtainBestPen(map, kFull, 0, 0);
    EXPECT_EQ(red, 5);
    // The map is full: near-white shares white.
    EXPECT_EQ(ObtainBestPen(map, 0xF0000000, 0xF0000000, 0xF0000000), 2);

    uint32_t rgb[6];
    GetRGB32(map, 4, 2, rgb);
    EXPECT_EQ(rgb[0], 0xCFFFFFFFu);
    EXPECT_EQ(rgb[3], kFull);
    EXPECT_EQ(rgb[4], 0u);

    // A pen comes free only when every holder gave it back.
    ReleasePen(map, red);
    ReleasePen(map, grey);
    EXPECT_EQ(ObtainBestPen(map, 0, kFull, 0), 5);
    ReleasePen(map, grey);
    EXPECT_EQ(ObtainBestPen(map, 0x10000000, 0x20000000, 0x30000000), 4);
    ReleasePen(map, 2);
    ReleasePen(map, 2);
    EXPECT_EQ(ObtainBestPen(map, kFull, kFull, kFull), 2) << "fixed pens are never freed";
    ReleasePen(map, -1);
    FreeColorMap(map);
    EXPECT_EQ(ObtainBestPen(nullptr, 0, 0, 0), -1);
}

} // namespace

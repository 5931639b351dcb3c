#include "text/line_strings.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

struct LineStringCase {
    const char* text;
    int32_t visible;
    bool blank;
    int32_t indent;
};

class LineStrings : public testing::TestWithParam<LineStringCase> {};

TEST_P(LineStrings, MeasureAndTrim)
{
    const LineStringCase& c = GetParam();
    EXPECT_EQ(VisibleLength(c.text), c.visible);
    EXPECT_EQ(IsBlankText(c.text), c.blank);
    EXPECT_EQ(IndentOf(c.text), c.indent);

    // Trimming zeroes the whole tail, not only its first byte.
    char buffer[32];
    std::memset(buffer, 'x', sizeof buffer);
    std::strcpy(buffer, c.text);
    const size_t full = std::strlen(c.text);
    EXPECT_EQ(TrimLineEnd(buffer), c.visible);
    EXPECT_EQ(std::string(buffer), std::string(c.text, static_cast<size_t>(c.visible)));
    for (size_t i = static_cast<size_t>(c.visible); i <= full; ++i) {
        EXPECT_EQ(buffer[i], '\0') << "byte " << i;
    }
    EXPECT_EQ(buffer[full + 1], 'x');
}

INSTANTIATE_TEST_SUITE_P(Texts, LineStrings,
                         testing::Values(LineStringCase{"", 0, true, 0},
                                         LineStringCase{"   ", 0, true, 3},
                                         LineStringCase{"abc", 3, false, 0},
                                         LineStringCase{"abc   ", 3, false, 0},
                                         LineStringCase{"  a b  ", 5, false, 2},
                                         LineStringCase{"\ta\t", 3, false, 0},
                                         LineStringCase{" \xA0 ", 2, false, 1}));

// Replace all: the same end state as repeating the search with a
// replacement until it fails, which is how its outcome is defined.
#include "../text/editing_test_support.h"
#include "search/replace_all.h"
#include "search/search_engine.h"

#include <random>
#include <string>

namespace {

class ReplaceAllTest : public EditTest {
protected:
    // Everything of the text that Replace all may change.
    std::string State()
    {
        return Dump() + "\ncursor " + Cursor() + " top " + std::to_string(text_->TopLine) + " left "
               + std::to_string(text_->LeftColumn) + " modified " + std::to_string(text_->Modified) + " last edit "
               + std::to_string(text_->LastEditLine) + "/" + std::to_string(text_->LastEditColumn) + " beeps "
               + std::to_string(display_.BeepCount() - beepsAtStart_);
    }
    // Starts a case: the text, the cursor, the options, and nothing noted.
    void StartCase(const Lines& lines, int line, int column, uint32_t options)
    {
        Start(lines, line, column, 20, 8);
        text_->Options |= options;
        text_->LastEditLine = text_->LastEditColumn = -1;
        ClearReports();
        beepsAtStart_ = display_.BeepCount();
    }

private:
    int beepsAtStart_ = 0;
};

struct Case {
    const char* Name;
    int Line, Column, Direction;
    const char* Find;
    const char* Replacement;
    uint32_t Options;
};

// Random lines over a small alphabet, so that matches overlap and repeat,
// some lines long enough to reach the limit when they grow.
Lines RandomText(unsigned seed)
{
    std::mt19937 random(seed);
    Lines lines;
    for (int i = 0; i < 120; ++i) {
        std::string line;
        const int length = static_cast<int>(random() % 30);
        for (int c = 0; c < length; ++c)
            line += "aAb "[random() % 4];
        while (!line.empty() && line.back() == ' ')
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

TEST_F(ReplaceAllTest, EndsAsRepeatedSearchesEnd)
{
    LimitLines(40);
    const Case cases[] = {
        {"forward, longer", 3, 5, 1, "ab", "abb", 0},
        {"forward, shorter, ignoring case", 0, 0, 1, "aa", "A", IgnoreCase},
        {"backward from the end", 119, 30, -1, "ba", "xyz", 0},
        {"by itself", 50, 2, 1, "a", "a", 0},
        {"by itself in another case", 0, 0, 1, "a", "A", IgnoreCase},
        {"to trailing spaces", 10, 0, 1, "b", "b  ", 0},
        {"growing until too long", 60, 0, 1, "a", "ba", 0},
        {"backward, growing until too long", 80, 10, -1, "b", "bb", 0},
    };
    for (unsigned seed = 1; seed <= 3; ++seed) {
        const Lines lines = RandomText(seed);
        for (const Case& c : cases) {
            SCOPED_TRACE(std::string(c.Name) + ", seed " + std::to_string(seed));
            StartCase(lines, c.Line, c.Column, c.Options);
            int32_t expectedCount = 0;
            while (Search(text_, c.Direction, true, c.Find, c.Replacement))
                ++expectedCount;
            const std::string expected = State();
            const std::vector<MessageId> expectedReports = Reports();

            StartCase(lines, c.Line, c.Column, c.Options);
            const int32_t count = ReplaceAll(text_, c.Direction, c.Find, c.Replacement);
            EXPECT_EQ(count, expectedCount);
            EXPECT_EQ(State(), expected);
            EXPECT_EQ(Reports(), expectedReports);
            EXPECT_TRUE(CheckInvariants(text_));
        }
    }
}

TEST_F(ReplaceAllTest, DrawsTheEndStateOnce)
{
    Lines lines(40, "gamma delta gamma");
    Start(lines, 20, 3, 30, 8);
    EXPECT_EQ(ReplaceAll(text_, 1, "gamma", "GAMMA"), 39);
    EXPECT_EQ(LineText(0), "gamma delta gamma");
    EXPECT_EQ(LineText(19), "gamma delta gamma");
    EXPECT_EQ(LineText(20), "gamma delta GAMMA");
    EXPECT_EQ(LineText(39), "GAMMA delta GAMMA");
    EXPECT_EQ(Cursor(), "39/12");
    EXPECT_EQ(text_->Modified, 1);
    EXPECT_EQ(text_->LastEditLine, 39);
    EXPECT_TRUE(PaintedAsFullRedraw());
}

TEST_F(ReplaceAllTest, AStringByItselfCountsAndChangesNothing)
{
    Start({"abab", "", "ab x"}, 0, 0);
    EXPECT_EQ(ReplaceAll(text_, 1, "ab", "ab"), 2);
    EXPECT_EQ(Cursor(), "2/0");
    EXPECT_EQ(text_->Modified, 0);
    EXPECT_EQ(Dump(), "abab\n\nab x");
}

TEST_F(ReplaceAllTest, ALineTooLongStopsWithTheCountSoFar)
{
    LimitLines(10);
    Start({"x", "ab", "ab"}, 0, 0);
    EXPECT_EQ(ReplaceAll(text_, 1, "ab", "aab"), 8);
    EXPECT_EQ(Reports(), std::vector<MessageId>{MessageId::ReplacementTooLong});
    EXPECT_EQ(Dump(), "x\naaaaaaaaab\nab");
    EXPECT_EQ(Cursor(), "1/8");
    EXPECT_EQ(text_->Modified, 1);
}

} // namespace

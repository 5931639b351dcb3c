// The search from the cursor in both directions, its start rules, case
// folding, and replacing at the cursor.
#include "../text/editing_test_support.h"
#include "search/search_engine.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/line_operations.h"
#include "text/lines/edit_line.h"
#include "text/record/line_table.h"
#include "text/record/line_access.h"

#include <string>

namespace {

class SearchTest : public EditTest {
protected:
    // "line/column" after the search, or "none" with the cursor checked
    // to be where it was and one beep heard.
    std::string SearchFrom(const Lines& lines, int line, int column, int direction, const char* find,
                           uint32_t options = 0)
    {
        Start(lines, line, column);
        text_->Options = (text_->Options & ~IgnoreCase) | options;
        const int beeps = display_.BeepCount();
        const std::string before = Cursor();
        if (Search(text_, direction, false, find, nullptr))
            return Cursor();
        EXPECT_EQ(display_.BeepCount(), beeps + 1) << find;
        EXPECT_EQ(Cursor(), before) << find;
        return "none";
    }
};

struct SearchRow {
    const char* Name;
    Lines Text;
    int Line, Column, Direction;
    const char* Find;
    uint32_t Options;
    const char* Expected;
};

TEST_F(SearchTest, FindsFromTheCursorButNeverTheMatchAtIt)
{
    const SearchRow rows[] = {
        {"forward skips the match at the cursor", {"abc abc"}, 0, 0, 1, "abc", 0, "0/4"},
        {"forward from 0/0 can't find 0/0", {"abc", "abc"}, 0, 0, 1, "abc", 0, "1/0"},
        {"forward finds one column behind the cursor", {"aaaa"}, 0, 1, 1, "aa", 0, "0/2"},
        {"forward behind the line's end goes on below", {"abc", "x abc"}, 0, 30, 1, "abc", 0, "1/2"},
        {"forward stops at the text's end", {"abc", "abd"}, 1, 0, 1, "abc", 0, "none"},
        {"backward skips the match at the cursor", {"abc abc"}, 0, 4, -1, "abc", 0, "0/0"},
        {"backward from column 0 starts at the line above's end", {"ab x ab", "ab"}, 1, 0, -1, "ab", 0, "0/5"},
        {"backward finds a match reaching past the cursor", {"xabcd"}, 0, 2, -1, "abcd", 0, "0/1"},
        {"backward behind the line's end", {"ab"}, 0, 40, -1, "ab", 0, "0/0"},
        {"backward stops at the text's start", {"abc", "xyz"}, 1, 2, -1, "abd", 0, "none"},
        {"longer than any line", {"abc", "abc"}, 0, 0, 1, "abcabc", 0, "none"},
        {"case counts without the option", {"x", "ABC"}, 0, 0, 1, "abc", 0, "none"},
        {"case ignored with the option", {"x", "aBc"}, 0, 0, 1, "AbC", IgnoreCase, "1/0"},
        {"accented letters fold", {"x", "d\xC9J\xC0 vu"}, 0, 0, 1, "\xE9j\xE0", IgnoreCase, "1/1"},
        {"accented letters fold backward", {"\xE9t\xE9", "x"}, 1, 0, -1, "\xC9T\xC9", IgnoreCase, "0/0"},
        {"sharp s and y diaeresis have no capital", {"x", "\xDF\xFF"}, 0, 0, 1, "\xDF\xDF", IgnoreCase, "none"},
    };
    for (const SearchRow& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(SearchFrom(row.Text, row.Line, row.Column, row.Direction, row.Find, row.Options), row.Expected);
        EXPECT_TRUE(CheckInvariants(text_));
    }
}

// Repeating a search walks every match in turn and no match twice.
TEST_F(SearchTest, RepeatingWalksEveryMatchOnce)
{
    Start({"one two one", "", "one", "two one one"}, 0, 0);
    std::string walk;
    while (Search(text_, 1, false, "one", nullptr))
        walk += Cursor() + " ";
    EXPECT_EQ(walk, "0/8 2/0 3/4 3/8 ");
    walk.clear();
    while (Search(text_, -1, false, "one", nullptr))
        walk += Cursor() + " ";
    EXPECT_EQ(walk, "3/4 2/0 0/8 0/0 ");
}

TEST_F(SearchTest, TheFoundLineIsInViewAndTheChangedLineStored)
{
    Lines lines(60, "line");
    lines[45] = "here it is";
    Start(lines, 2, 0, 40, 10);
    text_->EditLine[0] = 'L';
    ASSERT_TRUE(Search(text_, 1, false, "it", nullptr));
    EXPECT_EQ(Cursor(), "45/5");
    EXPECT_EQ(text_->TopLine, 40);
    EXPECT_EQ(Row(5), "here it is");
    EXPECT_EQ(std::string(StoredLineText(text_, 2)), "Line");
    EXPECT_EQ(text_->Modified, 1);
    EXPECT_TRUE(PaintedAsFullRedraw());
}

// Deleted lines leave their old strings in the loaded text between the
// runs around them; the search must never find them.
TEST_F(SearchTest, OldCopiesOfDeletedLinesAreNotFound)
{
    Lines lines(3 * LoadedRunLength, "line");
    for (int32_t line = LoadedRunLength; line < 2 * LoadedRunLength; ++line)
        lines[static_cast<size_t>(line)] = "gone line";
    lines.back() = "end";
    Start(lines, 0, 0);
    RemoveLines(text_, LoadedRunLength, LoadedRunLength);
    SetCursor(text_, ColumnIndex(0), LineIndex(0));
    for (const char* stale : {"gone", "e line"})
        EXPECT_FALSE(Search(text_, 1, false, stale, nullptr)) << stale;
    EXPECT_TRUE(Search(text_, 1, false, "end", nullptr));
    EXPECT_EQ(Cursor(), std::to_string(2 * LoadedRunLength - 1) + "/0");
}

// The stored lines are searched a run at a time: each match must come back
// with its own line and column whether it lies in the first, a middle or
// the last line of a run or in a changed line with a string of its own,
// and never from the old copy of a changed or deleted line.
TEST_F(SearchTest, RepeatingWalksTheMatchesAcrossRuns)
{
    const int32_t run = LoadedRunLength;
    Lines lines(3 * static_cast<size_t>(run), "line");
    lines[0] = "ab";
    lines[static_cast<size_t>(run - 1)] = "x ab ab";
    lines[static_cast<size_t>(run)] = "abab";
    lines[static_cast<size_t>(run + 3)] = "old ab";
    lines[static_cast<size_t>(2 * run - 1)] = "gone ab";
    lines[static_cast<size_t>(2 * run)] = "ab gone";
    const std::string last = std::to_string(3 * run - 3) + "/0";
    const std::string forward = std::to_string(run - 1) + "/2 " + std::to_string(run - 1) + "/5 "
        + std::to_string(run) + "/0 " + std::to_string(run) + "/2 " + std::to_string(run + 3) + "/6 ";
    const std::string backward = std::to_string(run + 3) + "/6 " + std::to_string(run) + "/2 "
        + std::to_string(run) + "/0 " + std::to_string(run - 1) + "/5 " + std::to_string(run - 1) + "/2 0/0 ";
    for (const uint32_t options : {0u, uint32_t{IgnoreCase}}) {
        SCOPED_TRACE(options);
        Start(lines, 0, 0);
        text_->Options = (text_->Options & ~IgnoreCase) | options;
        char changed[] = "new   ab";
        ASSERT_TRUE(StoreLine(text_, changed, run + 3));
        RemoveLines(text_, 2 * run - 1, 2);
        SetCursor(text_, ColumnIndex(0), LineIndex(0));
        const char* find = options ? "AB" : "ab";
        std::string walk;
        while (Search(text_, 1, false, find, nullptr))
            walk += Cursor() + " ";
        EXPECT_EQ(walk, forward);
        SetCursor(text_, ColumnIndex(0), LineIndex(3 * run - 3));
        ASSERT_EQ(Cursor(), last);
        walk.clear();
        while (Search(text_, -1, false, find, nullptr))
            walk += Cursor() + " ";
        EXPECT_EQ(walk, backward);
    }
}

TEST_F(SearchTest, ReplacingChangesTheEditLineUntilTheFlush)
{
    Start({"say hello there", "next"}, 0, 0);
    ASSERT_TRUE(Search(text_, 1, true, "hello", ""));
    EXPECT_EQ(LineText(0), "say  there");
    EXPECT_EQ(Cursor(), "0/4");
    EXPECT_EQ(std::string(StoredLineText(text_, 0)), "say hello there");
    EXPECT_TRUE(PaintedAsFullRedraw());

    ASSERT_TRUE(Search(text_, 1, true, "there", "  "));
    EXPECT_EQ(LineText(0), "say");
    EXPECT_FALSE(Search(text_, 1, false, "z", nullptr));
    EXPECT_EQ(std::string(StoredLineText(text_, 0)), "say");
    EXPECT_TRUE(CheckInvariants(text_));
}

TEST_F(SearchTest, AReplacementMakingTheLineTooLongChangesNothing)
{
    LimitLines(10);
    Start({"abc abc"}, 0, 0);
    ASSERT_TRUE(Search(text_, 1, true, "abc", "abcd"));
    EXPECT_EQ(LineText(0), "abc abcd");
    ClearReports();
    Start({"abc abcd"}, 0, 4);
    EXPECT_FALSE(ReplaceAtCursor(text_, "abcdefg", 4));
    EXPECT_EQ(Reports(), std::vector<MessageId>{MessageId::ReplacementTooLong});
    EXPECT_EQ(LineText(0), "abc abcd");
    EXPECT_EQ(Cursor(), "0/4");
    EXPECT_TRUE(ReplaceAtCursor(text_, "abcdef", 4));
    EXPECT_EQ(LineText(0), "abc abcdef");
    EXPECT_TRUE(CheckInvariants(text_));
}

TEST_F(SearchTest, MatchAtAndTheCharacterFinders)
{
    const char text[] = "xa\xE9yA\xC9z";
    EXPECT_EQ(FindFirstChar(text, 7, 'A', 0), text + 4);
    EXPECT_EQ(FindFirstChar(text, 7, 'A', IgnoreCase), text + 1);
    EXPECT_EQ(FindFirstChar(text, 4, 'A', 0), nullptr);
    EXPECT_EQ(FindLastChar(text, 7, '\xE9', 0), text + 2);
    EXPECT_EQ(FindLastChar(text, 7, '\xE9', IgnoreCase), text + 5);
    EXPECT_EQ(FindLastChar(text, 5, 'z', IgnoreCase), nullptr);
    EXPECT_EQ(MatchAt("A\xC9", text + 1, 2, IgnoreCase), 0);
    EXPECT_NE(MatchAt("A\xC9", text + 1, 2, 0), 0);
    EXPECT_EQ(MatchAt("a\xE9", text + 1, 2, 0), 0);
}

} // namespace

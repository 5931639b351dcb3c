// Typing and deleting on the cursor's line, the tab key, text with
// newlines, the character classes and the word under a double click.
#include "../editing_test_support.h"
#include "text/edit/block_marking.h"
#include "text/record/char_class.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/line_operations.h"
#include "text/edit/edit_current_line.h"

#include <cstring>

namespace {

using EditCurrentLineTest = EditTest;

TEST(CharClassTest, RowsOfTheTable)
{
    const struct {
        int c;
        uint8_t bits;
    } rows[] = {
        {'A', CharUpper | CharVowel | CharWordLetter | CharName},
        {0xC7, CharUpper | CharVowel | CharWordLetter | CharName},
        {0xD1, CharUpper | CharWordLetter | CharName}, {'b', CharLower | CharWordLetter},
        {0xF1, CharLower | CharWordLetter}, {'7', CharDigit | CharName}, {'\'', CharWordLetter},
        {'-', CharPunctuation | CharWordLetter}, {'_', CharPunctuation | CharName}, {'.', CharPunctuation},
        {0xD7, CharPunctuation}, {0xFF, CharPunctuation}, {'\t', CharSpace}, {0xA0, CharSpace},
        {0x8B, CharSpace}, {0x7F, 0}, {0x85, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CharClass[static_cast<size_t>(row.c)], row.bits) << "character " << row.c;
    int letters = 0;
    for (int c = 0; c < 256; ++c)
        letters += (CharClass[static_cast<size_t>(c)] & (CharUpper | CharLower)) != 0;
    EXPECT_EQ(letters, 2 * 26 + 2 * 27);
}

TEST(WordAtTest, WordsAndTheirEnds)
{
    const struct {
        const char* text;
        const char* word;
    } cases[] = {
        {"word, next", "word"}, {"l'homme", "l'"}, {"qu'il", "qu'"}, {"aujourd'hui", "aujourd'hui"},
        {"well-known x", "well-known"}, {"-dash", "-"}, {"  spaces", "  "}, {"...", "..."},
        {"", ""}, {"abcdefghijklmnopqrstuvwxyzabcdefgh", "abcdefghijklmnopqrstuvwxyzabcd"},
    };
    for (const auto& c : cases) {
        char buffer[WordAtLimit + 1];
        EXPECT_EQ(WordAt(c.text, buffer), static_cast<int32_t>(std::strlen(c.word))) << c.text;
        EXPECT_STREQ(buffer, c.word);
    }
}

TEST_F(EditCurrentLineTest, TypingInsertsOrOverwritesAndPaintsOnlyWhatChanged)
{
    Start({"0123456789"}, 0, 3);
    EXPECT_EQ(InsertText(text_, "ab"), 2);
    EXPECT_EQ(Dump(), "012ab3456789");
    EXPECT_EQ(Cursor(), "0/5");
    EXPECT_TRUE(PaintedAsFullRedraw());

    text_->Options &= ~InsertMode;
    EXPECT_EQ(InsertText(text_, "X"), 1);
    EXPECT_EQ(Dump(), "012abX456789");
    EXPECT_EQ(text_->EditLength, 12);
    EXPECT_TRUE(PaintedAsFullRedraw());

    // Behind the text the gap fills with spaces.
    Start({"ab"}, 0, 5);
    EXPECT_EQ(InsertText(text_, "c"), 1);
    EXPECT_EQ(Dump(), "ab   c");
}

TEST_F(EditCurrentLineTest, WhatDoesNotFitIsDroppedWithLineTooLong)
{
    struct Case {
        const char* name;
        const char* line;
        int column;
        const char* typed;
        int taken;
        const char* result;
        const char* cursor;
    };
    const Case cases[] = {
        {"two at the last column", "abc", 9, "xy", 1, "abc      x", "0/9"},
        {"full line", "0123456789", 4, "x", 0, "0123456789", "0/4"},
        {"partly", "0123456", 2, "wxyz", 3, "01wxy23456", "0/5"},
    };
    LimitLines(10);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Start({c.line}, 0, c.column);
        ClearReports();
        EXPECT_EQ(InsertText(text_, c.typed), c.taken);
        EXPECT_EQ(Dump(), c.result);
        EXPECT_EQ(Cursor(), c.cursor);
        EXPECT_EQ(Reports(), std::vector<MessageId>{MessageId::LineTooLong});
    }
    // Trailing spaces give way before typed characters do.
    Start({"01234567"}, 0, 9);
    SetCursor(text_, ColumnIndex(2), LineIndex(0));
    ClearReports();
    EXPECT_EQ(InsertText(text_, "xy"), 2);
    EXPECT_EQ(Dump(), "01xy234567");
    EXPECT_TRUE(Reports().empty());
}

TEST_F(EditCurrentLineTest, TextWithNewlinesSplitsLinesAndStopsWhenFull)
{
    Start({"head tail"}, 0, 5);
    char pasted[] = "one\n\n  two";
    EXPECT_EQ(InsertTextLines(text_, pasted, false), 3 + 1 + 1 + 5);
    EXPECT_EQ(Dump(), "head one\n\n  twotail");
    EXPECT_EQ(Cursor(), "2/5");
    EXPECT_TRUE(PaintedAsFullRedraw());

    LimitLines(10);
    Start({"12345678", "next"}, 0, 8);
    char tooLong[] = "abc\nxyz";
    EXPECT_EQ(InsertTextLines(text_, tooLong, true), 1);
    EXPECT_EQ(Dump(), "12345678ab\nnext");
}

TEST_F(EditCurrentLineTest, DeletingCharactersAndLineParts)
{
    Start({"abcdef", "ghi"}, 0, 2);
    DeleteChar(text_);
    EXPECT_EQ(Dump(), "abdef\nghi");
    EXPECT_TRUE(PaintedAsFullRedraw());
    DeleteBack(text_);
    EXPECT_EQ(Dump(), "adef\nghi");
    EXPECT_EQ(Cursor(), "0/1");
    EXPECT_TRUE(PaintedAsFullRedraw());
    DeleteToLineEnd(text_);
    EXPECT_EQ(Dump(), "a\nghi");
    SetCursor(text_, ColumnIndex(2), LineIndex(1));
    DeleteToLineStart(text_);
    EXPECT_EQ(Dump(), "a\ni");
    EXPECT_EQ(Cursor(), "1/0");
    // Backspace at column 0 joins with the line above, at its end.
    DeleteBack(text_);
    EXPECT_EQ(Dump(), "ai");
    EXPECT_EQ(Cursor(), "0/1");
    EXPECT_TRUE(PaintedAsFullRedraw());
    // Del behind the text joins at the cursor, the spaces kept.
    InsertLineAfter(text_);
    InsertText(text_, "z");
    SetCursor(text_, ColumnIndex(4), LineIndex(0));
    DeleteChar(text_);
    EXPECT_EQ(Dump(), "ai  z");
    EXPECT_TRUE(PaintedAsFullRedraw());
}

TEST_F(EditCurrentLineTest, DeletingTheCharacterThatScrollsInAtTheRightEdge)
{
    Start({"0123456789abcdef"}, 0, 2, 10, 3);
    DeleteChar(text_);
    EXPECT_EQ(Row(0), "013456789a");
    EXPECT_TRUE(PaintedAsFullRedraw());
}

TEST_F(EditCurrentLineTest, DeletingByWord)
{
    const struct {
        const char* line;
        int column;
        bool back;
        const char* result;
    } cases[] = {
        {"a b   ", 5, true, "a b"}, {"x ...", 5, true, "x"}, {"one two", 0, false, " two"},
        {"one two", 3, false, "onetwo"}, {"one ...two", 4, false, "one two"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        Start({c.line}, 0, c.column);
        if (c.back) {
            DeleteWordBack(text_);
        } else {
            DeleteWordForward(text_);
        }
        EXPECT_EQ(Dump(), c.result);
    }
}

TEST_F(EditCurrentLineTest, TabStops)
{
    const struct {
        int column;
        bool forward;
        bool moveOnly;
        const char* result;
        int endColumn;
    } cases[] = {
        {4, true, false, "abcd    efgh", 8}, {5, true, true, "abcdefgh", 8}, {8, false, true, "abcdefgh", 4},
        {5, false, true, "abcdefgh", 4}, {6, false, false, "abcdgh", 4}, {2, false, false, "cdefgh", 0},
        {12, true, true, "abcdefgh", 16},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.column);
        Start({"abcdefgh"}, 0, c.column);
        text_->TabSize = 4;
        if (c.forward)
            TabForward(text_, c.moveOnly);
        else
            TabBack(text_, c.moveOnly);
        EXPECT_EQ(Dump(), c.result);
        EXPECT_EQ(text_->CursorColumn, c.endColumn);
    }
}

TEST_F(EditCurrentLineTest, TypingReplacesABlockAroundTheCursorAndUnmarksOthers)
{
    Start({"keep this text"}, 0, 6);
    Mark(0, 5, 0, 8);
    InsertText(text_, "THAT");
    EXPECT_EQ(Dump(), "keep THAT text");
    EXPECT_FALSE(text_->TextState & BlockMarked);

    Mark(0, 0, 0, 3);
    InsertText(text_, "!");
    EXPECT_EQ(Dump(), "keep THAT! text");
    EXPECT_FALSE(text_->TextState & BlockMarked);
    EXPECT_TRUE(PaintedAsFullRedraw());
}

} // namespace

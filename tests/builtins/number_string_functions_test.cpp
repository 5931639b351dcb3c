// The functions on numbers, strings and dates, row by row: each row's
// commands run on a fresh text, one a line, and the last one's value or
// error is checked. Ranges are checked at both ends and one beyond each.
#include "macro_test_support.h"

#include <cstdlib>
#include <string>

namespace {

class NumberStringFunctions : public MacroTest {};

TEST_F(NumberStringFunctions, SignsAndMagnitudesWrapAtTheSmallestInteger)
{
    const LanguageRow rows[] = {
        {"ABS(5)", "5"},
        {"ABS(-5)", "5"},
        {"ABS(0)", "0"},
        {"ABS(2147483647)", "2147483647"},
        {"ABS(-2147483647)", "2147483647"},
        {"ABS(-2147483648)", "-2147483648"},
        {"A=-3\nABS(A)", "3"},
        {"ABS(\"5\")", "#233"},
        {"SGN(-7)", "-1"},
        {"SGN(0)", "0"},
        {"SGN(9)", "1"},
        {"SGN(-2147483648)", "-1"},
        {"SGN(2147483647)", "1"},
    };
    CheckRows(rows);
}

TEST_F(NumberStringFunctions, NumbersBecomeTextInEveryRadix)
{
    const LanguageRow rows[] = {
        {"STR(0)", "\"0\""},
        {"STR(2147483647)", "\"2147483647\""},
        {"STR(-2147483648)", "\"-2147483648\""},
        {"STRBIN(5)", "\"00000000000000000000000000000101\""},
        {"STRBIN(-1)", "\"11111111111111111111111111111111\""},
        {"STRBIN(-2147483648)", "\"10000000000000000000000000000000\""},
        {"STRHEX(255)", "\"ff\""},
        {"STRHEX(0)", "\"0\""},
        {"STRHEX(-1)", "\"ffffffff\""},
        {"STRHEX(-2147483648)", "\"80000000\""},
        {"STR(\"1\")", "#233"},
    };
    CheckRows(rows);
}

TEST_F(NumberStringFunctions, ValReadsTheNumberAStringStartsWith)
{
    const LanguageRow rows[] = {
        {"VAL(\"  $1F\")", "31"},
        {"VAL(CHR(9)+\"8\")", "8"},
        {"VAL(\"12abc\")", "12"},
        {"VAL(\"-7\")", "-7"},
        {"VAL(\"+&B101\")", "5"},
        {"VAL(\"0X10\")", "16"},
        {"VAL(\"0x10\")", "0"},
        {"VAL(\"&O17\")", "15"},
        {"VAL(\"&HFF\")", "255"},
        {"VAL(\"2147483648\")", "-2147483648"},
        {"VAL(\"-2147483648\")", "-2147483648"},
        {"VAL(\"4294967297\")", "1"},
        // Hexadecimal digits are capitals: a small one ends the number.
        {"VAL(\"$1f\")", "1"},
        {"VAL(\"$f1\")", "#206"},
        {"VAL(\"&H\")", "#206"},
        {"VAL(\"&Q1\")", "#211"},
        {"VAL(\"\")", "#211"},
        {"VAL(\"   \")", "#211"},
        {"VAL(\"abc\")", "#211"},
        {"VAL(\"- 7\")", "#211"},
        {"VAL(7)", "#233"},
    };
    CheckRows(rows);
}

TEST_F(NumberStringFunctions, TypeTellsTheClassesOfACharacterCode)
{
    const LanguageRow rows[] = {
        {"TYPE(65)", "391"},   // vowel, letter, capital, ASCII, word
        {"TYPE(97)", "395"},   // vowel, letter, small, ASCII, word
        {"TYPE(66)", "390"},   // a consonant
        {"TYPE(48)", "144"},   // digit, ASCII
        {"TYPE(32)", "160"},   // blank, ASCII
        {"TYPE(39)", "384"},   // the apostrophe: ASCII, word
        {"TYPE(45)", "448"},   // the hyphen: punctuation, ASCII, word
        {"TYPE(201)", "263"},  // E acute: vowel, letter, capital, word
        {"TYPE(160)", "32"},   // no-break space
        {"TYPE(0)", "128"},
        {"TYPE(127)", "128"},
        {"TYPE(128)", "0"},
        {"TYPE(255)", "64"},
        {"TYPE(-1)", "#215"},
        {"TYPE(256)", "#215"},
    };
    CheckRows(rows);
}

TEST_F(NumberStringFunctions, CharactersAndTheirCodes)
{
    const LanguageRow rows[] = {
        {"ASC(\"A\",1)", "65"},
        {"ASC(\"abc\",3)", "99"},
        {"ASC(\"abc\",0)", "#215"},
        {"ASC(\"abc\",4)", "#215"},
        {"ASC(\"\",1)", "#215"},
        {"ASC(\"\xff\",1)", "255"},
        {"ASC(\"a\",1/0)", "#219"},
        {"ASC(\"a\",\"1\")", "#232"},
        {"ASC(1,1)", "#233"},
        {"CHR(65)", "\"A\""},
        {"ASC(CHR(1),1)", "1"},
        {"ASC(CHR(255),1)", "255"},
        {"CHR(0)", "#215"},
        {"CHR(256)", "#215"},
        {"CHR(-1)", "#215"},
    };
    CheckRows(rows);
}

TEST_F(NumberStringFunctions, LengthAndCaseOfStrings)
{
    const LanguageRow rows[] = {
        {"LEN(\"\")", "0"},
        {"LEN(\"abc\")", "3"},
        {"LEN(\"a\"\"b\")", "3"},
        {"LEN(5)", "#233"},
        {"UPPER(\"\")", "\"\""},
        {"UPPER(\"abc xyz 1!\")", "\"ABC XYZ 1!\""},
        // Accented letters change case too; the sharp s, y diaeresis and the
        // division sign have no other case.
        {"UPPER(\"\xe9\xe0\xdf\xff\xf7\")", "\"\xc9\xc0\xdf\xff\xf7\""},
        {"LOWER(\"ABC Xyz\")", "\"abc xyz\""},
        {"LOWER(\"\xc0\xde\xd7\")", "\"\xe0\xfe\xd7\""},
        {"A=\"abc\"\nB=UPPER(A)\nA+B", "\"abcABC\""},
        {"LOWER(1)", "#233"},
    };
    CheckRows(rows);
}

TEST_F(NumberStringFunctions, PosFindsTheFirstExactOccurrence)
{
    const LanguageRow rows[] = {
        {"POS(\"b\",\"abc\")", "2"},
        {"POS(\"x\",\"abc\")", "0"},
        {"POS(\"abc\",\"abc\")", "1"},
        {"POS(\"abcd\",\"abc\")", "0"},
        {"POS(\"bc\",\"abbc\")", "3"},
        {"POS(\"B\",\"abc\")", "0"},
        {"POS(\"\",\"abc\")", "4"},
        {"POS(\"\",\"\")", "1"},
        {"POS(\"a\",1)", "#233"},
        {"POS(1,\"a\")", "#233"},
    };
    CheckRows(rows);
}

TEST_F(NumberStringFunctions, PosWithoutCaseStillMatchesExactly)
{
    const LanguageRow rows[] = {
        {"POS(\"b\",\"aBb\")", "3"},
        {"POS(\"B\",\"abc\")", "0"},
        {"POS(\"\",\"abc\")", "0"},
        {"POS(\"\xe9\",\"\xc9\xe9\")", "2"},
    };
    for (const LanguageRow& row : rows) {
        Renew();
        text_->Options |= IgnoreCase;
        EXPECT_EQ(Run(row.Commands), row.Expected) << row.Commands;
    }
}

TEST_F(NumberStringFunctions, SubsCutsWithinTheString)
{
    const LanguageRow rows[] = {
        {"SUBS(\"abc\",2,9)", "\"bc\""},
        {"SUBS(\"abc\",1,1)", "\"a\""},
        {"SUBS(\"abc\",3,1)", "\"c\""},
        {"SUBS(\"abc\",1,2147483647)", "\"abc\""},
        {"SUBS(\"abc\",0,1)", "#215"},
        {"SUBS(\"abc\",4,1)", "#215"},
        {"SUBS(\"abc\",1,0)", "#215"},
        {"SUBS(\"abc\",2,-1)", "#215"},
        {"SUBS(\"\",1,1)", "#215"},
        {"SUBS(\"abc\",1)", "#217"},
        {"SUBS(\"abc\",\"1\",1)", "#232"},
        {"SUBS(\"abc\",1/0,1)", "#219"},
    };
    CheckRows(rows);
}

TEST_F(NumberStringFunctions, TodayAndNowHaveTheirShapes)
{
    const LanguageRow rows[] = {
        {"LEN(DATE(0))", "9"},
        {"D=DATE(0)\nSUBS(D,3,1)+SUBS(D,7,1)", "\"--\""},
        {"D=DATE(0)\nDAYS(D,D)", "0"},
        // The day name and a blank come before the same kind of date.
        {"D=DATE(1)\nE=SUBS(D,POS(\" \",D)+1,99)\nDAYS(E,E)+LEN(E)", "9"},
        {"D=DATE(-1)\nPOS(\"day \",D)>=4", "1"},
        {"LEN(TIME(0))", "5"},
        {"LEN(TIME(1))", "8"},
        {"T=TIME(1)\nSUBS(T,3,1)+SUBS(T,6,1)", "\"::\""},
        {"T=TIME(1)\nVAL(T)<24", "1"},
        {"DATE(\"1\")", "#233"},
        {"TIME(\"1\")", "#233"},
    };
    CheckRows(rows);
}

TEST_F(NumberStringFunctions, DaysCountsFromTheFirstDateToTheSecond)
{
    const LanguageRow rows[] = {
        {"DAYS(\"01-Jan-26\",\"02-Jan-26\")", "1"},
        {"DAYS(\"02-Jan-26\",\"01-Jan-26\")", "-1"},
        {"DAYS(\"28-Feb-24\",\"01-Mar-24\")", "2"},
        {"DAYS(\"28-Feb-25\",\"01-Mar-25\")", "1"},
        {"DAYS(\"1-jan-2026\",\"01-JAN-26\")", "0"},
        {"DAYS(\"31-Dec-77\",\"01-Jan-78\")", "-36524"},
        {"DAYS(\"01-Jan-1900\",\"01-Jan-2000\")", "36524"},
        {"DAYS(\"\",\"01-Jan-26\")", "#235"},
        {"DAYS(\"01-Jan-26\",\"\")", "#235"},
        {"DAYS(\"29-Feb-25\",\"01-Jan-26\")", "#235"},
        {"DAYS(\"01-Jan-26\",\"32-Jan-26\")", "#235"},
        // A bad first date stops before the second is run.
        {"DAYS(\"x\",1/0)", "#235"},
        {"DAYS(\"01-Jan-26\",1/0)", "#219"},
        {"DAYS(\"01-Jan-26\",5)", "#233"},
        {"DAYS(1,\"01-Jan-26\")", "#233"},
    };
    CheckRows(rows);
}

TEST_F(NumberStringFunctions, VersionAndLanguageTakeNoParentheses)
{
    const LanguageRow rows[] = {
        {"VERSION", "\"5.00\""},
        {"VERSION+\"!\"", "\"5.00!\""},
        {"VERSION()", "#209"},
        {"VERSIONS", "0"},
        {"LANGUAGE()", "#209"},
    };
    CheckRows(rows);
}

TEST_F(NumberStringFunctions, LanguageIsTheLanguageOfTheUsersLocale)
{
    struct Row {
        const char* locale;
        const char* expected;
    } rows[] = {
        {"de_DE.UTF-8", "\"de\""},
        {"fr_CA.ISO-8859-1@euro", "\"fr\""},
        {"en", "\"en\""},
        {"C", "\"\""},
        {"POSIX", "\"\""},
    };
    const char* kept = std::getenv("LC_ALL");
    const std::string saved = kept ? kept : "";
    for (const Row& row : rows) {
        setenv("LC_ALL", row.locale, 1);
        EXPECT_EQ(Run("LANGUAGE"), row.expected) << row.locale;
    }
    if (kept)
        setenv("LC_ALL", saved.c_str(), 1);
    else
        unsetenv("LC_ALL");
}

} // namespace

#include "platform/utility/strings.h"

#include <gtest/gtest.h>

#include <cstring>

TEST(Strlcpy, CutsAndAlwaysTerminates)
{
    char buffer[6];
    std::memset(buffer, 'x', sizeof buffer);
    EXPECT_EQ(Strlcpy(buffer, "abcdefgh", sizeof buffer), 8u);
    EXPECT_STREQ(buffer, "abcde");
    EXPECT_EQ(Strlcpy(buffer, "ab", sizeof buffer), 2u);
    EXPECT_STREQ(buffer, "ab");
    EXPECT_EQ(Strlcpy(buffer, "zz", 0), 2u);
    EXPECT_STREQ(buffer, "ab");
}

TEST(CaseOfLatin1, LettersChangeOtherCharactersStay)
{
    EXPECT_EQ(ToUpper('a'), 'A');
    EXPECT_EQ(ToUpper(0xE9), 0xC9);   // e acute
    EXPECT_EQ(ToLower(0xC9), 0xE9);
    EXPECT_EQ(ToUpper(0xF7), 0xF7);   // division sign
    EXPECT_EQ(ToLower(0xD7), 0xD7);   // multiplication sign
    EXPECT_EQ(ToUpper(0xDF), 0xDF);   // sharp s has no capital
    EXPECT_EQ(ToUpper(0xFF), 0xFF);
    EXPECT_EQ(ToUpper('1'), '1');
}

TEST(Stricmp, IgnoresCaseIncludingAccentsAndOrdersByLength)
{
    EXPECT_EQ(Stricmp("Readme.TXT", "readme.txt"), 0);
    EXPECT_EQ(Stricmp("caf\xC9", "CAF\xE9"), 0);
    EXPECT_LT(Stricmp("abc", "abcd"), 0);
    EXPECT_GT(Stricmp("abd", "ABC"), 0);
    EXPECT_EQ(Strnicmp("HELLO world", "hello there", 6), 0);
    EXPECT_NE(Strnicmp("HELLO world", "hello there", 7), 0);
    EXPECT_EQ(Strnicmp("ab", "AB", 10), 0);
}

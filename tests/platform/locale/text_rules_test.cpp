// The small text rules of the catalog layer: locale names, printf
// conversions and UTF-8 to ISO 8859-1.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/locale/language.h"
#include "platform/locale/latin1.h"
#include "platform/locale/printf_conversions.h"

namespace {

using Names = std::vector<std::string>;

TEST(CatalogLanguagesTest, GoesFromMostToLeastSpecific)
{
    const struct {
        const char* locale;
        Names expected;
    } cases[] = {
        {"de", {"de"}},
        {"de_DE", {"de_DE", "de"}},
        {"de_DE.UTF-8", {"de_DE", "de"}},
        {"de_DE.UTF-8@euro", {"de_DE@euro", "de_DE", "de@euro", "de"}},
        {"sr@latin", {"sr@latin", "sr"}},
        {"C", {}},
        {"C.UTF-8", {}},
        {"POSIX", {}},
        {"@euro", {}},
        {"../../etc", {}},
        {"de_D/E", {}},
        {"de_DE@eu/ro", {}},
        {"de/x", {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CatalogLanguages(c.locale), c.expected) << c.locale;
    EXPECT_EQ(CatalogLanguages(nullptr), Names{});
}

TEST(SamePrintfConversionsTest, ComparesConversionsInOrder)
{
    const struct {
        const char* a;
        const char* b;
        bool same;
    } cases[] = {
        {"Tabulations = %ld", "Tabulatoren = %ld", true},
        {"Font: %.65s/%ld", "Schrift %.65s (%ld)", true},
        {"100%% done", "fertig", true},
        {"%ld chars", "%d Zeichen", false},
        {"Font: %.65s/%ld", "Schrift: %s/%ld", false},
        {"Font: %.65s/%ld", "%ld: %.65s", false},
        {"%ld strings replaced", "Ersetzt", false},
        {"Plain text", "Text mit %s", false},
        {"50%", "50%", true},
        {"50%", "50", false},
        {"%lx", "%lX", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SamePrintfConversions(c.a, c.b), c.same) << '"' << c.a << "\" / \"" << c.b << '"';
        EXPECT_EQ(SamePrintfConversions(c.b, c.a), c.same) << "reversed";
    }
}

TEST(Utf8ToLatin1Test, ConvertsOrRefuses)
{
    const struct {
        const char* utf8;
        bool valid;
        const char* latin1;
    } cases[] = {
        {"plain", true, "plain"},
        {"\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F", true, "\xE4\xF6\xFC\xDF"},
        {"a\xC2\xA0" "b", true, "a\xA0" "b"},
        {"\xC4\x80 \xE2\x82\xAC \xF0\x9F\x98\x80", true, "? ? ?"},
        {"\xC3", false, ""},
        {"\xA4", false, ""},
        {"\xC3(", false, ""},
        {"\xC0\xAF", false, ""},
        {"\xE0\x80\xAF", false, ""},
        {"\xED\xA0\x80", false, ""},
        {"\xF4\x90\x80\x80", false, ""},
    };
    for (const auto& c : cases) {
        std::string out;
        const bool valid = Utf8ToLatin1(c.utf8, out);
        EXPECT_EQ(valid, c.valid) << c.utf8;
        if (c.valid) {
            EXPECT_EQ(out, c.latin1);
        }
    }
}

// Window titles are UTF-8: a name the desktop wrote in UTF-8 shows whole,
// even beyond ISO 8859-1; a name written in ISO 8859-1 shows as such; the
// editor's own texts come over byte by byte.
TEST(TitleEncodingTest, NamesAndTextsBecomeUtf8)
{
    EXPECT_EQ(FileNameToUtf8("caf\xC3\xA9.txt"), "caf\xC3\xA9.txt");
    EXPECT_EQ(FileNameToUtf8("\xE6\x97\xA5\xE6\x9C\xAC.txt"), "\xE6\x97\xA5\xE6\x9C\xAC.txt");
    EXPECT_EQ(FileNameToUtf8("caf\xE9.txt"), "caf\xC3\xA9.txt");
    EXPECT_EQ(Latin1ToUtf8("a\xA0\xFF\x7F"), "a\xC2\xA0\xC3\xBF\x7F");
    std::string back;
    ASSERT_TRUE(Utf8ToLatin1(Latin1ToUtf8("\x80\xE9\xFF plain"), back));
    EXPECT_EQ(back, "\x80\xE9\xFF plain");
}

}  // namespace

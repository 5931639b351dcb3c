#include "platform/locale/catalog.h"

#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "mo_image.h"
#include "temp_dir.h"

namespace {

struct OpenResult {
    Catalog* catalog;
    CatalogStatus status;
};

class CatalogTest : public ::testing::Test {
protected:
    void TearDown() override
    {
        for (Catalog* catalog : opened_)
            CloseCatalog(catalog);
    }

    // Opens `image` written as a file of its own, keeping the catalog to close.
    OpenResult OpenImage(const std::string& image, int version = 7)
    {
        const std::string path = directory_ + "/file" + std::to_string(files_++) + ".mo";
        WriteTestFile(path, image);
        CatalogStatus status = CatalogStatus::Opened;
        Catalog* catalog = OpenCatalogFile(path.c_str(), version, &status);
        if (catalog != nullptr)
            opened_.push_back(catalog);
        return {catalog, status};
    }

    TempDir temp_;
    const std::string directory_ = temp_.path;
    std::vector<Catalog*> opened_;
    int files_ = 0;
};

std::string SampleImage(bool bigEndian = false)
{
    return BuildMoImage({MoHeaderOfVersion(7), MoMessage(0, "Project", "Projekt"),
                         MoMessage(9, "file", std::string("Datei\0Dateien", 13)),
                         MoMessage(12, "Font: %.65s/%ld", "Schrift: %.65s/%ld"),
                         MoMessage(13, "%ld chars", "Zeichen: %s"),
                         MoMessage(2, "Quit", ""),
                         {"Hide", "no context"},
                         {"01\x04Hide", "leading zero"},
                         {"-3\x04Hide", "signed"},
                         {"999999\x04Hide", "beyond the table's limit"}},
                        bigEndian);
}

TEST_F(CatalogTest, LooksUpStringsByNumberInEitherByteOrderOrFallsBack)
{
    OpenResult opened{};
    for (const bool bigEndian : {false, true}) {
        SCOPED_TRACE(bigEndian ? "big-endian" : "little-endian");
        opened = OpenImage(SampleImage(bigEndian));
        ASSERT_EQ(opened.status, CatalogStatus::Opened);
        EXPECT_STREQ(GetCatalogStr(opened.catalog, 0, "Project"), "Projekt");
        EXPECT_STREQ(GetCatalogStr(opened.catalog, 9, "file"), "Datei") << "first plural form";
        EXPECT_STREQ(GetCatalogStr(opened.catalog, 12, "Font: %.65s/%ld"), "Schrift: %.65s/%ld");
    }
    const char* fallback = "Hide";
    for (const long number : {-3L, -1L, 1L, 2L, 3L, 999999L})
        EXPECT_EQ(GetCatalogStr(opened.catalog, number, fallback), fallback) << number;
    EXPECT_EQ(GetCatalogStr(nullptr, 0, fallback), fallback) << "no catalog";
    const char* format = "%ld chars";
    EXPECT_EQ(GetCatalogStr(opened.catalog, 13, format), format) << "conversions differ";
    const char* withConversion = "Project %s";
    EXPECT_EQ(GetCatalogStr(opened.catalog, 0, withConversion), withConversion)
        << "a translation that drops a conversion";
}

TEST_F(CatalogTest, ConvertsTheCatalogCharsetToLatin1)
{
    const OpenResult utf8 = OpenImage(BuildMoImage(
        {MoHeaderOfVersion(7), MoMessage(0, "x", "L\xC3\xB6schen\xC2\xA0" "5 \xE2\x82\xAC")}));
    ASSERT_EQ(utf8.status, CatalogStatus::Opened);
    EXPECT_STREQ(GetCatalogStr(utf8.catalog, 0, "x"), "L\xF6schen\xA0" "5 ?");

    const OpenResult latin1 = OpenImage(BuildMoImage(
        {MoHeader("Content-Type: text/plain; charset=ISO-8859-1\nX-Catalog-Version: 7\n"),
         MoMessage(0, "x", "L\xF6schen")}));
    ASSERT_EQ(latin1.status, CatalogStatus::Opened);
    EXPECT_STREQ(GetCatalogStr(latin1.catalog, 0, "x"), "L\xF6schen");

    const OpenResult badUtf8 = OpenImage(BuildMoImage({MoHeaderOfVersion(7), MoMessage(0, "x", "L\xF6schen")}));
    EXPECT_EQ(badUtf8.status, CatalogStatus::Malformed);
    EXPECT_EQ(badUtf8.catalog, nullptr);

    const OpenResult koi8 = OpenImage(BuildMoImage(
        {MoHeader("Content-Type: text/plain; charset=KOI8-R\nX-Catalog-Version: 7\n"), MoMessage(0, "x", "y")}));
    EXPECT_EQ(koi8.status, CatalogStatus::UnknownCharset);
}

TEST_F(CatalogTest, RefusesAnotherVersion)
{
    const struct {
        const char* name;
        std::vector<MoText> entries;
    } cases[] = {
        {"another version", {MoHeaderOfVersion(6), MoMessage(0, "x", "y")}},
        {"no version field", {MoHeader("Content-Type: text/plain; charset=UTF-8\n"), MoMessage(0, "x", "y")}},
        {"version not a number", {MoHeader("X-Catalog-Version: 7a\n"), MoMessage(0, "x", "y")}},
        {"no header at all", {MoMessage(0, "x", "y")}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const OpenResult opened = OpenImage(BuildMoImage(c.entries));
        EXPECT_EQ(opened.status, CatalogStatus::WrongVersion);
        EXPECT_EQ(opened.catalog, nullptr);
    }
    EXPECT_EQ(OpenImage(BuildMoImage({MoHeader("x-catalog-version:  7 \r\n")})).status, CatalogStatus::Opened)
        << "field name case and blanks around the value don't matter";
    EXPECT_EQ(OpenImage(SampleImage(), 6).status, CatalogStatus::WrongVersion) << "version asked for";
}

TEST_F(CatalogTest, RefusesEveryTruncationOfAGoodFile)
{
    const std::string image = SampleImage();
    for (size_t length = 0; length < image.size(); ++length) {
        SCOPED_TRACE(length);
        const OpenResult opened = OpenImage(image.substr(0, length));
        EXPECT_EQ(opened.status, CatalogStatus::Malformed);
        EXPECT_EQ(opened.catalog, nullptr);
    }
}

TEST_F(CatalogTest, RefusesCorruptTables)
{
    const std::string good = SampleImage();
    auto patched = [&](size_t offset, std::string bytes) {
        std::string image = good;
        image.replace(offset, bytes.size(), bytes);
        return image;
    };
    // Header words: 0 magic, 4 revision, 8 count, 12 originals, 16 translations.
    const struct {
        const char* name;
        std::string image;
    } cases[] = {
        {"wrong magic", patched(0, "\xDE\x12\x04\x96")},
        {"unknown major revision", patched(4, std::string("\0\0\2\0", 4))},
        {"count beyond the file", patched(8, "\xFF\xFF\xFF\x0F")},
        {"originals table beyond the file", patched(12, "\xF0\xFF\xFF\xFF")},
        {"translations table beyond the file", patched(16, "\xF0\xFF\xFF\xFF")},
        {"string length beyond the file", patched(28, "\xFF\xFF\xFF\xFF")},
        {"string offset beyond the file", patched(32, "\xFF\xFF\xFF\x7F")},
        {"string without its zero byte", patched(good.size() - 1, "!")},
        {"not a catalog at all", std::string(64, 'x')},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const OpenResult opened = OpenImage(c.image);
        EXPECT_EQ(opened.status, CatalogStatus::Malformed);
        EXPECT_EQ(opened.catalog, nullptr);
    }
}

class UserCatalogTest : public CatalogTest {
protected:
    void SetUp() override
    {
        CatalogTest::SetUp();
        for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
            unsetenv(variable);
    }

    // Writes a catalog of version `version` under <directory>/<language>
    // whose string 0 is `text`.
    void Install(const std::string& language, const std::string& text, int version = 7)
    {
        WriteTestFile(directory_ + "/" + language + "/tavrel.mo",
                      BuildMoImage({MoHeaderOfVersion(version), MoMessage(0, "Project", text)}));
    }

    std::string Open(CatalogStatus* status)
    {
        Catalog* catalog = OpenCatalog(directory_.c_str(), "tavrel", 7, status);
        if (catalog == nullptr)
            return "(none)";
        opened_.push_back(catalog);
        return GetCatalogStr(catalog, 0, "Project");
    }
};

TEST_F(UserCatalogTest, FindsTheMostSpecificCatalogOfTheUsersLanguage)
{
    Install("de", "Projekt");
    Install("de_AT", "Projekt (AT)");
    Install("fr", "Projet");
    CatalogStatus status;

    EXPECT_EQ(Open(&status), "(none)") << "no language set";
    EXPECT_EQ(status, CatalogStatus::NotFound);

    setenv("LANG", "de_AT.UTF-8", 1);
    setenv("LC_ALL", "", 1);
    EXPECT_EQ(Open(&status), "Projekt (AT)") << "an empty variable counts as unset";
    setenv("LANG", "de_CH.UTF-8", 1);
    EXPECT_EQ(Open(&status), "Projekt");
    setenv("LC_MESSAGES", "fr_FR", 1);
    EXPECT_EQ(Open(&status), "Projet") << "LC_MESSAGES before LANG";
    setenv("LC_ALL", "C", 1);
    EXPECT_EQ(Open(&status), "(none)") << "LC_ALL before the others";
    setenv("LC_ALL", "it_IT", 1);
    EXPECT_EQ(Open(&status), "(none)");
    EXPECT_EQ(status, CatalogStatus::NotFound);

    Install("it", "Progetto");
    Install("it_IT", "Progetto (alt)", 6);
    EXPECT_EQ(Open(&status), "(none)") << "the first file found is final";
    EXPECT_EQ(status, CatalogStatus::WrongVersion);
}

}  // namespace

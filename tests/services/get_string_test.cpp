#include "services/messages.h"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "mo_image.h"
#include "temp_dir.h"
#include "services/builtin_messages.h"

namespace {

class GetStringTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
            unsetenv(variable);
    }
    void TearDown() override { CloseMessageCatalog(); }

    // Opens a catalog made of `entries`, installed as German under a
    // directory of its own.
    bool OpenGerman(std::vector<MoText> entries)
    {
        const std::string directory = temp_.path + "/" + std::to_string(catalogs_++);
        WriteTestFile(directory + "/de/tavrel.mo", BuildMoImage(std::move(entries)));
        setenv("LANG", "de_DE.UTF-8", 1);
        return OpenMessageCatalog(directory.c_str());
    }

    static void ExpectAllBuiltIn()
    {
        for (int id = -1; id <= MessageCount; ++id)
            EXPECT_EQ(GetString(MessageId{id}), GetBuiltInString(MessageId{id})) << id;
    }

    TempDir temp_;
    int catalogs_ = 0;
};

TEST_F(GetStringTest, GivesBuiltInTextsWithoutACatalog)
{
    ExpectAllBuiltIn();
    setenv("LANG", "de_DE.UTF-8", 1);
    EXPECT_FALSE(OpenMessageCatalog("/nonexistent"));
    ExpectAllBuiltIn();
}

TEST_F(GetStringTest, TranslatesThroughTheShippedGermanCatalog)
{
    setenv("LANG", "de_DE.UTF-8", 1);
    ASSERT_TRUE(OpenMessageCatalog(TAVREL_CATALOG_DIR));
    EXPECT_STREQ(GetString(MessageId{1}), "Projekt") << "catalog string 0";
    EXPECT_STREQ(GetString(MessageId{7}), "Text\xA0laden");
    EXPECT_STREQ(GetString(MessageId{67}), "M\xF6" "chten Sie den ganzen\nText l\xF6schen?");
    EXPECT_STREQ(GetString(MessageId{48}), "Tabulatoren = %ld");
    EXPECT_STREQ(GetString(MessageId::NoName), "Unbenannt");
    EXPECT_STREQ(GetString(MessageId::Main), "MAIN");
    EXPECT_EQ(GetString(MessageId{2}), GetBuiltInString(MessageId{2})) << "not in the catalog";
    EXPECT_STREQ(GetString(MessageId{-1}), "");
    EXPECT_STREQ(GetString(MessageId{249}), "");

    CloseMessageCatalog();
    ExpectAllBuiltIn();
}

TEST_F(GetStringTest, KeepsTheBuiltInFormatWhenATranslationChangesItsConversions)
{
    ASSERT_TRUE(OpenGerman({MoHeaderOfVersion(7),
                            MoMessage(155, "%ld chars", "%s Zeichen"),
                            MoMessage(157, "Font: %.65s/%ld", "Schrift: %.65s/%ld"),
                            MoMessage(247, "%ld strings replaced", "Zeichenketten ersetzt"),
                            MoMessage(173, "NoName", "Unbenannt %s")}));
    EXPECT_STREQ(GetString(MessageId{156}), "%ld chars");
    EXPECT_STREQ(GetString(MessageId{158}), "Schrift: %.65s/%ld");
    EXPECT_STREQ(GetString(MessageId{248}), "%ld strings replaced");
    EXPECT_STREQ(GetString(MessageId::NoName), "NoName");
}

TEST_F(GetStringTest, RefusesACatalogOfAnotherVersion)
{
    EXPECT_FALSE(OpenGerman({MoHeaderOfVersion(6), MoMessage(0, "Project", "Projekt")}));
    ExpectAllBuiltIn();
}

}  // namespace

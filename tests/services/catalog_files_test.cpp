// The catalog files of data/catalogs stay in step with the built-in table.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/locale/mo_file.h"
#include "services/builtin_messages.h"

namespace {

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::string Latin1ToUtf8(const char* text)
{
    std::string utf8;
    for (const char* p = text; *p != '\0'; ++p) {
        const auto c = static_cast<unsigned char>(*p);
        if (c < 0x80) {
            utf8 += static_cast<char>(c);
        } else {
            utf8 += static_cast<char>(0xC0 | (c >> 6));
            utf8 += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return utf8;
}

TEST(CatalogFilesTest, TheTemplateIsWhatMakePotPrints)
{
    std::FILE* pipe = popen(TAVREL_MAKE_POT, "r");
    ASSERT_NE(pipe, nullptr);
    std::string printed;
    char buffer[4096];
    size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
        printed.append(buffer, got);
    EXPECT_EQ(pclose(pipe), 0);
    EXPECT_EQ(printed, ReadFile(TAVREL_POT_FILE))
        << "data/catalogs/tavrel.pot is stale: regenerate it with make_pot";
}

// A translation whose msgid no longer is the English text translates
// something else: every built catalog must use the current texts.
TEST(CatalogFilesTest, ShippedTranslationsTranslateTheCurrentTexts)
{
    int catalogs = 0;
    for (const auto& folder : std::filesystem::directory_iterator(TAVREL_CATALOG_DIR)) {
        SCOPED_TRACE(folder.path().string());
        ++catalogs;
        const std::string image = ReadFile(folder.path() / "tavrel.mo");
        std::vector<MoEntry> entries;
        ASSERT_TRUE(ParseMoFile(image, entries));
        for (const MoEntry& entry : entries) {
            if (entry.original.empty())
                continue;
            const size_t separator = entry.original.find('\x04');
            ASSERT_NE(separator, std::string_view::npos) << entry.original;
            const int id = std::stoi(std::string(entry.original.substr(0, separator))) + 1;
            EXPECT_EQ(entry.original.substr(separator + 1), Latin1ToUtf8(GetBuiltInString(MessageId{id})))
                << "message " << id;
        }
    }
    EXPECT_GE(catalogs, 1);
}

}  // namespace

// The translators' template in data/catalogs stays in step with the table.
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace {

std::string ReadFile(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
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

}  // namespace

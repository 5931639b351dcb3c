#include "frame/protocol/find_text.h"
#include "../frame_test_support.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

namespace {

// Records that only carry names, enough for the name search.
struct NamedTexts {
    std::vector<std::unique_ptr<TextRecord>> records;

    TextRecord* Add(const char* directory, const char* name)
    {
        auto record = std::make_unique<TextRecord>();
        std::snprintf(record->FileDirectory, sizeof record->FileDirectory, "%s", directory);
        std::snprintf(record->FileName, sizeof record->FileName, "%s", name);
        AddTextTail(&Globals.Texts, record.get());
        records.push_back(std::move(record));
        return records.back().get();
    }
};

class FindTextTest : public ::testing::Test {
protected:
    void SetUp() override { ResetAppGlobals(); }
    NamedTexts texts;
};

TEST_F(FindTextTest, FullPathBeforeBareNameCaseIgnored)
{
    TextRecord* first = texts.Add("/home/b", "notes.txt");
    texts.Add("/home/a", "NOTES.TXT");
    texts.Add("/home/\xC9t\xC9", "r\xC9sum\xC9");

    struct Case {
        const char* path;
        const TextRecord* skip;
        long result;
    } cases[] = {
        {"/home/a/notes.txt", nullptr, 2},          // the full path wins over the earlier bare name
        {"/home/B/Notes.Txt", nullptr, 1},
        {"/elsewhere/notes.txt", nullptr, -1},      // bare name: the first text, negative
        {"notes.txt", nullptr, -1},
        {"/elsewhere/notes.txt", first, -2},        // skipping the sender
        {"/home/b/notes.txt", first, -2},           // its full path is the sender's: only the bare name is left
        {"/home/\xE9t\xE9/R\xE9SUM\xE9", nullptr, 3}, // accented capitals of ISO 8859-1
        {"/home/a/notes", nullptr, 0},
        {"", nullptr, 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FindTextByName(c.skip, c.path), c.result) << c.path;
}

TEST_F(FindTextTest, ThousandTextsFoundByPositionAtBothEnds)
{
    char directory[32], name[32];
    for (int i = 0; i < 1000; ++i) {
        std::snprintf(directory, sizeof directory, "/d%d", i % 7);
        std::snprintf(name, sizeof name, "file%04d.c", i);
        texts.Add(directory, name);
    }
    EXPECT_EQ(FindTextByName(nullptr, "/d0/file0000.c"), 1);
    EXPECT_EQ(FindTextByName(nullptr, "/d5/FILE0999.C"), 1000);
    EXPECT_EQ(FindTextByName(nullptr, "/d1/file0999.c"), -1000);
    EXPECT_EQ(FindTextByName(nullptr, "/d0/file1000.c"), 0);
}

} // namespace

#include "platform/dos/errors.h"
#include "platform/dos/matchfirst.h"
#include "temp_dir.h"

#include <gtest/gtest.h>

#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

class MatchFirstTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"b.txt", "a.txt", "C.TXT", "notes.md", ".hidden.txt", "x(1).txt"})
            temp_.Touch(name);
        ASSERT_EQ(mkdir((dir_ + "/sub.txt").c_str(), 0700), 0);
        temp_.Touch("sub.txt/inner.txt");
    }

    // All matches of a pattern, as names; the error of the first failing
    // call after them is put in *end.
    std::vector<std::string> Walk(const std::string& pattern, long* end) {
        std::vector<std::string> names;
        AnchorPath anchor;
        long result = MatchFirst(pattern.c_str(), &anchor);
        while (result == 0) {
            names.push_back(anchor.ap_Name);
            EXPECT_EQ(anchor.ap_Path, anchor.ap_Directory + "/" + anchor.ap_Name);
            result = MatchNext(&anchor);
        }
        *end = result;
        MatchEnd(&anchor);
        return names;
    }

    TempDir temp_;
    std::string dir_ = temp_.path;
};

TEST_F(MatchFirstTest, WalksMatchesInNameOrderWithCaseIgnored) {
    long end = 0;
    std::vector<std::string> expected{"C.TXT", "a.txt", "b.txt", "x(1).txt"};
    EXPECT_EQ(Walk(dir_ + "/#?.txt", &end), expected);
    EXPECT_EQ(end, ERROR_NO_MORE_ENTRIES);
    // Directories are left out, and dot names only come with a dot pattern.
    EXPECT_EQ(Walk(dir_ + "/.#?", &end), std::vector<std::string>{".hidden.txt"});
    EXPECT_EQ(Walk(dir_ + "/[ab].TXT", &end), (std::vector<std::string>{"a.txt", "b.txt"}));
    EXPECT_EQ(Walk(dir_ + "/sub.txt/#?", &end), std::vector<std::string>{"inner.txt"});
}

TEST_F(MatchFirstTest, APlainNameIsItselfWhenItExists) {
    long end = 0;
    EXPECT_EQ(Walk(dir_ + "/notes.md", &end), std::vector<std::string>{"notes.md"});
    EXPECT_EQ(end, ERROR_NO_MORE_ENTRIES);
    // Escaped wildcard characters make a plain name too.
    EXPECT_EQ(Walk(dir_ + "/x'(1').txt", &end), std::vector<std::string>{"x(1).txt"});
    // A plain name names a directory as well; the caller finds out.
    EXPECT_EQ(Walk(dir_ + "/sub.txt", &end), std::vector<std::string>{"sub.txt"});
    EXPECT_TRUE(Walk(dir_ + "/NOTES.md", &end).empty());
    EXPECT_EQ(end, ERROR_OBJECT_NOT_FOUND);
}

TEST_F(MatchFirstTest, RelativePatternsUseTheCurrentDirectory) {
    char previous[4096];
    ASSERT_NE(getcwd(previous, sizeof previous), nullptr);
    ASSERT_EQ(chdir(dir_.c_str()), 0);
    AnchorPath anchor;
    long result = MatchFirst("b.#?", &anchor);
    char resolved[4096];
    ASSERT_NE(realpath(dir_.c_str(), resolved), nullptr);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(anchor.ap_Directory, resolved);
    EXPECT_EQ(anchor.ap_Name, "b.txt");
    MatchEnd(&anchor);
    ASSERT_EQ(chdir(previous), 0);
}

TEST_F(MatchFirstTest, FailuresSayWhy) {
    struct FailCase {
        std::string pattern;
        long error;
    };
    const FailCase cases[] = {
        {dir_ + "/#?.none", ERROR_NO_MORE_ENTRIES},
        {dir_ + "/missing.txt", ERROR_OBJECT_NOT_FOUND},
        {dir_ + "/", ERROR_OBJECT_NOT_FOUND},
        {dir_ + "/nodir/#?", ERROR_OBJECT_NOT_FOUND},
        {dir_ + "/(a", ERROR_BAD_TEMPLATE},
        {dir_ + "/[a-", ERROR_BAD_TEMPLATE},
    };
    for (const FailCase& c : cases) {
        AnchorPath anchor;
        EXPECT_EQ(MatchFirst(c.pattern.c_str(), &anchor), c.error) << c.pattern;
        EXPECT_EQ(IoErr(), c.error) << c.pattern;
        EXPECT_EQ(MatchNext(&anchor), ERROR_NO_MORE_ENTRIES) << c.pattern;
        MatchEnd(&anchor);
    }
}

} // namespace

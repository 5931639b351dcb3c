#include "platform/dos/errors.h"
#include "platform/dos/paths.h"
#include "platform/dos/volumes.h"
#include "temp_dir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

TEST(Paths, AddPartJoinsAsAPathWould) {
    struct JoinCase {
        const char* dir;
        const char* name;
        const char* expected;
    };
    const JoinCase cases[] = {
        {"dir", "file", "dir/file"}, {"dir/", "file", "dir/file"},  {"", "file", "file"},
        {"S:", "x", "S:x"},          {"S:sub", "x", "S:sub/x"},     {"/", "etc", "/etc"},
        {"dir", "/abs", "/abs"},     {"dir", "T:x", "T:x"},         {"dir", "", "dir"},
        {"dir", "a:b/c", "a:b/c"},   {"dir", "a/b:c", "dir/a/b:c"},
    };
    for (const JoinCase& c : cases) {
        char buffer[64];
        std::strcpy(buffer, c.dir);
        EXPECT_TRUE(AddPart(buffer, c.name, sizeof buffer)) << c.dir << " + " << c.name;
        EXPECT_STREQ(buffer, c.expected) << c.dir << " + " << c.name;
    }
}

TEST(Paths, AddPartRefusesWhatDoesNotFitAndLeavesDirAlone) {
    // "dir/file" needs 8 characters and the terminator.
    char buffer[16] = "dir";
    EXPECT_FALSE(AddPart(buffer, "file", 8));
    EXPECT_EQ(IoErr(), ERROR_LINE_TOO_LONG);
    EXPECT_STREQ(buffer, "dir");
    EXPECT_TRUE(AddPart(buffer, "file", 9));
    EXPECT_STREQ(buffer, "dir/file");
    char other[16] = "dir";
    EXPECT_FALSE(AddPart(other, "/absolute", 9));
    EXPECT_STREQ(other, "dir");
}

TEST(Paths, FilePartAndPathPartSplitBothForms) {
    struct SplitCase {
        const char* path;
        const char* file;
        const char* directory; // what is left when the path is cut at PathPart
    };
    const SplitCase cases[] = {
        {"a/b/c.txt", "c.txt", "a/b"}, {"/file", "file", "/"},      {"/", "", "/"},
        {"file", "file", ""},          {"", "", ""},                {"S:file", "file", "S:"},
        {"S:", "", "S:"},              {"S:sub/file", "file", "S:sub"}, {"S:/file", "file", "S:/"},
        {"dir/", "", "dir"},           {"a/b:c", "b:c", "a"},       {":x", ":x", ""},
    };
    for (const SplitCase& c : cases) {
        EXPECT_STREQ(FilePart(c.path), c.file) << c.path;
        std::string cut(c.path, PathPart(c.path));
        EXPECT_EQ(cut, c.directory) << c.path;
    }
}

// Points every volume at a fresh directory through the environment, and
// puts the environment back afterwards.
class Volumes : public ::testing::Test {
protected:
    void SetUp() override {
        Set("XDG_CONFIG_HOME", (root_ + "/config").c_str());
        Set("XDG_RUNTIME_DIR", (root_ + "/run").c_str());
        Set("TMPDIR", (root_ + "/tmp").c_str());
        Set("HOME", (root_ + "/home").c_str());
    }
    void TearDown() override {
        for (auto& [name, value] : saved_) value ? setenv(name, value->c_str(), 1) : unsetenv(name);
        SetProgramDirectory(nullptr);
    }
    void Set(const char* name, const char* value) {
        const char* old = std::getenv(name);
        saved_.emplace_back(name, old ? std::optional<std::string>(old) : std::nullopt);
        value ? setenv(name, value, 1) : unsetenv(name);
    }
    TempDir temp_;
    std::string root_ = temp_.path;
    std::vector<std::pair<const char*, std::optional<std::string>>> saved_;
};

TEST_F(Volumes, ExpandsKnownNamesWithCaseIgnored) {
    SetProgramDirectory("/opt/tavrel/share");
    struct ExpandCase {
        const char* path;
        std::string expected;
    };
    const ExpandCase cases[] = {
        {"s:Tavrel.prefs", root_ + "/config/tavrel/Tavrel.prefs"},
        {"S:", root_ + "/config/tavrel"},
        {"REXX:hello.tavrel", root_ + "/config/tavrel/rexx/hello.tavrel"},
        {"Rexx:sub/x", root_ + "/config/tavrel/rexx/sub/x"},
        {"CLIPS:0", root_ + "/run/tavrel/clips/0"},
        {"T:tmpfile", root_ + "/tmp/tmpfile"},
        {"Progdir:Tavrel.guide", "/opt/tavrel/share/Tavrel.guide"},
        {"PRT:", "PRT:"},
        {"Work:file", "Work:file"},
        {"dir/S:x", "dir/S:x"},
        {":x", ":x"},
    };
    for (const ExpandCase& c : cases) EXPECT_EQ(ExpandVolumePath(c.path), c.expected) << c.path;
}

TEST_F(Volumes, FallsBackWhenTheEnvironmentSaysNothingUsable) {
    Set("XDG_CONFIG_HOME", nullptr);
    Set("XDG_RUNTIME_DIR", nullptr);
    EXPECT_EQ(ExpandVolumePath("S:x"), root_ + "/home/.config/tavrel/x");
    EXPECT_EQ(ExpandVolumePath("CLIPS:1"), root_ + "/tmp/tavrel-" + std::to_string(getuid()) + "/clips/1");
    // Relative values are ignored, as the XDG rules ask.
    Set("XDG_CONFIG_HOME", "relative/config");
    Set("TMPDIR", "relative");
    EXPECT_EQ(ExpandVolumePath("S:x"), root_ + "/home/.config/tavrel/x");
    EXPECT_EQ(ExpandVolumePath("T:x"), "/tmp/x");
}

TEST_F(Volumes, EnsureVolumeDirectoryCreatesPrivateDirectories) {
    ASSERT_TRUE(EnsureVolumeDirectory("CLIPS:"));
    struct stat info;
    ASSERT_EQ(stat((root_ + "/run/tavrel/clips").c_str(), &info), 0);
    EXPECT_TRUE(S_ISDIR(info.st_mode));
    EXPECT_EQ(info.st_mode & 0777, 0700u);
    ASSERT_EQ(stat((root_ + "/run/tavrel").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0700u);
    EXPECT_TRUE(EnsureVolumeDirectory("CLIPS")); // again, and without colon

    EXPECT_FALSE(EnsureVolumeDirectory("PRT:"));
    EXPECT_FALSE(EnsureVolumeDirectory("Nowhere:"));
    // A file in the way is a failure, not a crash.
    temp_.Touch("tmp");
    EXPECT_FALSE(EnsureVolumeDirectory("T:"));
    EXPECT_NE(IoErr(), 0);
}

TEST_F(Volumes, PrinterPathsAndProgramDirectory) {
    EXPECT_TRUE(IsPrinterPath("prt:"));
    EXPECT_TRUE(IsPrinterPath("PRT:raw"));
    EXPECT_FALSE(IsPrinterPath("dir/PRT:"));
    EXPECT_EQ(VolumeDirectory("PRT:"), "");

    // Unset, PROGDIR: falls back to a directory near the running program.
    SetProgramDirectory(nullptr);
    std::string progdir = VolumeDirectory("PROGDIR:");
    struct stat info;
    ASSERT_EQ(stat(progdir.c_str(), &info), 0) << progdir;
    EXPECT_TRUE(S_ISDIR(info.st_mode));
    SetProgramDirectory("/somewhere");
    EXPECT_EQ(ExpandVolumePath("PROGDIR:x"), "/somewhere/x");
    SetProgramDirectory("");
    EXPECT_EQ(VolumeDirectory("PROGDIR"), progdir);
}

} // namespace

// Saving and loading with real Linux places: long paths and names,
// directories that refuse new files, files of other users, things that
// aren't files, files that can't be read whole.
#include "files_test_support.h"

#include "files/file_names.h"
#include "files/load_text.h"
#include "files/save_commands.h"
#include "files/save_text.h"
#include "frame/window/report.h"
#include "platform/exec/memory.h"
#include "text/record/create_text_record.h"

#include <cstring>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool IsRoot()
{
    return ::geteuid() == 0;
}

// Root passes every permission check. What a user meets is tried as the
// unprivileged user 65534, given the test's directory, for as long as the
// guard lives; anyone else is such a user already.
class AsPlainUser {
public:
    explicit AsPlainUser(const std::string& directory)
    {
        if (!IsRoot())
            return;
        EXPECT_EQ(::chown(directory.c_str(), PlainId, PlainId), 0);
        EXPECT_EQ(::setegid(PlainId), 0);
        EXPECT_EQ(::seteuid(PlainId), 0);
        dropped_ = true;
    }
    ~AsPlainUser()
    {
        if (dropped_) {
            EXPECT_EQ(::seteuid(0), 0);
            EXPECT_EQ(::setegid(0), 0);
        }
    }

private:
    static constexpr unsigned PlainId = 65534;
    bool dropped_ = false;
};

// A path of more than 300 bytes, and beside its deep directory a decoy
// where a path cut to 256 bytes would lead.
TEST_F(FilesTest, LongDirectoryPathLoadedEditedAndSavedWhole)
{
    const std::string outer = Path(std::string(200, 'a'));
    const std::string deep = outer + "/" + std::string(100, 'b');
    const std::string cut = deep.substr(0, 256);
    ASSERT_GT(deep.size(), 300u);
    std::filesystem::create_directories(deep);
    std::filesystem::create_directories(cut);
    const std::string relativeDeep = deep.substr(directory_.size() + 1);
    const std::string relativeCut = cut.substr(directory_.size() + 1);
    WriteFile(relativeCut + "/f", "decoy\n");
    WriteFile(relativeDeep + "/f", "one\n");

    ASSERT_TRUE(LoadTextChecked(record_.get(), (deep + "/f").c_str(), false));
    EXPECT_EQ(std::string(record_->FileDirectory), deep);
    EXPECT_STREQ(record_->FileName, "f");
    char joined[JoinedPathSize];
    JoinPath(record_->FileDirectory, record_->FileName, joined);
    EXPECT_EQ(std::string(joined), deep + "/f");

    std::strcpy(record_->EditLine, "two");
    record_->EditLength = 3;
    record_->Options |= MakeBackup;
    SaveTextCommand(record_.get());
    EXPECT_EQ(ReadFile(relativeDeep + "/f"), "two\n");
    EXPECT_EQ(ReadFile(relativeDeep + "/f.bak"), "one\n");
    EXPECT_EQ(ReadFile(relativeCut + "/f"), "decoy\n");
    EXPECT_EQ(record_->Modified, 0);
    EXPECT_TRUE(shown.empty());
}

// A name of 250 bytes leaves no room for a long temporary name beside it;
// its backup and icon names still fit the 255 bytes of a name.
TEST_F(FilesTest, NameOf250BytesSavedWithBackupAndIcon)
{
    const std::string name(250, 'n');
    WriteFile(name, "old\n");
    ASSERT_TRUE(LoadTextChecked(record_.get(), Path(name).c_str(), false));
    EXPECT_EQ(std::string(record_->FileName), name);
    std::strcpy(record_->EditLine, "new");
    record_->EditLength = 3;
    record_->Options |= MakeBackup | SaveIcon;
    SaveTextCommand(record_.get());
    EXPECT_TRUE(shown.empty());
    EXPECT_EQ(ReadFile(name), "new\n");
    EXPECT_EQ(ReadFile(name + ".bak"), "old\n");
    EXPECT_EQ(DirectoryEntries(), (std::vector<std::string>{name, name + ".bak", name + ".info"}));
}

TEST_F(FilesTest, NameTooLongForTheRecordIsRefusedNotCut)
{
    SetFileNames(record_.get(), Path("kept").c_str());
    const std::string tooLong = Path(std::string(FileNameSize, 'z'));
    SetFileNames(record_.get(), tooLong.c_str());
    EXPECT_STREQ(record_->FileName, "kept");
    EXPECT_EQ(std::string(record_->FileDirectory), directory_);
    EXPECT_EQ(shown, std::vector<int>{85});
}

TEST_F(FilesTest, ReadOnlyDirectoryWithWritableFileSavedInPlace)
{
    AsPlainUser user(directory_);
    WriteFile("f", "old\n");
    SetLines({"new"});
    record_->Modified = 1;
    record_->Options |= MakeBackup;
    ASSERT_EQ(::chmod(directory_.c_str(), 0500), 0);
    const bool written = SaveText(record_.get(), Path("f").c_str());
    EXPECT_TRUE(written);
    EXPECT_EQ(ReadFile("f"), "new\n");
    EXPECT_EQ(record_->Modified, 0);
    EXPECT_EQ(shown, std::vector<int>{77});   // no room for the backup: said, and the save goes on

    // A write in place that fails half way is reported and the text stays modified.
    shown.clear();
    SetLines(Lines(4000, std::string(60, 'z')));
    record_->Modified = 1;
    record_->Options &= ~MakeBackup;
    const bool cut = SaveWithSizeLimit("f", 100000);
    ::chmod(directory_.c_str(), 0700);
    EXPECT_FALSE(cut);
    EXPECT_EQ(shown, std::vector<int>{73});
    EXPECT_EQ(record_->Modified, 1);
    EXPECT_EQ(DirectoryEntries(), std::vector<std::string>{"f"});
}

TEST_F(FilesTest, FileOfAnotherUserKeepsItsOwnerAfterSave)
{
    if (!IsRoot())
        GTEST_SKIP() << "only root can give a file to another user";
    WriteFile("f", "old\n");
    ASSERT_EQ(::chown(Path("f").c_str(), 4321, 4321), 0);
    ASSERT_EQ(::chmod(Path("f").c_str(), 0604), 0);
    SetLines({"new"});
    ASSERT_TRUE(SaveText(record_.get(), Path("f").c_str()));
    struct stat status;
    ASSERT_EQ(::stat(Path("f").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 4321u);
    EXPECT_EQ(status.st_gid, 4321u);
    EXPECT_EQ(status.st_mode & 07777, 0604u);
    EXPECT_EQ(ReadFile("f"), "new\n");
}

// Nothing that isn't a regular file is read: one message, no blocking, and
// the text keeps its name.
TEST_F(FilesTest, WhatIsNotAFileIsRefused)
{
    ASSERT_EQ(::mkfifo(Path("fifo").c_str(), 0600), 0);
    std::filesystem::create_directory(Path("dir"));
    for (const std::string& name : {Path("dir"), std::string("/dev/zero"), Path("fifo")}) {
        SCOPED_TRACE(name);
        shown.clear();
        const std::string before = record_->FileName;
        EXPECT_FALSE(LoadTextChecked(record_.get(), name.c_str(), false));
        EXPECT_EQ(shown, std::vector<int>{61});
        EXPECT_EQ(std::string(record_->FileName), before);
        EXPECT_EQ(StoredLines(), Lines{""});
        EXPECT_EQ(record_->PartOfFile, 0);
    }
    // A name that is nothing at all still gives an empty text of that name.
    EXPECT_FALSE(LoadTextChecked(record_.get(), Path("new").c_str(), false));
    EXPECT_STREQ(record_->FileName, "new");
    EXPECT_EQ(record_->PartOfFile, 0);
}

TEST_F(FilesTest, UnreadableFileIsNotOverwrittenWithoutAsking)
{
    AsPlainUser user(directory_);
    WriteFile("secret", "keep me\n");
    ASSERT_EQ(::chmod(Path("secret").c_str(), 0200), 0);
    EXPECT_FALSE(LoadTextChecked(record_.get(), Path("secret").c_str(), false));
    EXPECT_STREQ(record_->FileName, "secret");
    EXPECT_EQ(record_->PartOfFile, 1);
    std::strcpy(record_->EditLine, "typed");
    record_->EditLength = 5;
    answer = 0;
    SaveTextCommand(record_.get());
    ::chmod(Path("secret").c_str(), 0600);
    EXPECT_EQ(ReadFile("secret"), "keep me\n");
    EXPECT_EQ(shown, (std::vector<int>{61, 69}));
    answer = 1;
    SaveTextCommand(record_.get());
    EXPECT_EQ(ReadFile("secret"), "typed\n");
    EXPECT_EQ(record_->PartOfFile, 0);
    // Once the file holds the whole text, saving asks no more.
    SaveTextCommand(record_.get());
    EXPECT_EQ(shown, (std::vector<int>{61, 69, 69}));
}

// Memory runs out at each allocation of a load in turn: wherever the load
// stops, saving over the file asks first, and a refusal keeps the file.
TEST_F(FilesTest, LoadStoppedEarlyAsksBeforeSavingOverTheFile)
{
    std::string bytes;
    for (int line = 0; line < 20000; ++line)
        bytes += "line " + std::to_string(line) + "\n";
    WriteFile("big", bytes);
    int partialLoads = 0;
    for (long allowed = 0; allowed < 200; ++allowed) {
        record_.reset(CreateTextRecord(directory_.c_str()));
        shown.clear();
        bool whole;
        {
            FailAllocationsAfter failing(allowed);
            whole = LoadTextChecked(record_.get(), Path("big").c_str(), false);
        }
        if (whole) {
            EXPECT_EQ(record_->PartOfFile, 0);
            break;
        }
        if (std::strcmp(record_->FileName, "big") != 0)
            continue;   // stopped before the text took the file's name
        ++partialLoads;
        EXPECT_EQ(record_->PartOfFile, 1) << allowed;
        answer = 0;
        SaveTextCommand(record_.get());
        EXPECT_EQ(ReadFile("big"), bytes) << allowed;
        EXPECT_EQ(shown.back(), 69) << allowed;
    }
    EXPECT_GT(partialLoads, 0);
}

} // namespace

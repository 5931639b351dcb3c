#include "files_test_support.h"

#include "requesters/file_reports.h"
#include "text/record/create_text_record.h"
#include "files/save_text.h"

#include <algorithm>
#include <csignal>
#include <sys/resource.h>
#include <cstring>
#include <dirent.h>
#include <filesystem>
#include <fstream>
#include <sstream>

std::vector<int> FilesTest::shown;
int FilesTest::answer = -1;
std::string FilesTest::chosenFile;

namespace {

void Record(TextRecord*, MessageId message, const char*)
{
    FilesTest::shown.push_back(static_cast<int>(message));
}

int Answer(TextRecord*, MessageId question)
{
    FilesTest::shown.push_back(static_cast<int>(question));
    return FilesTest::answer;
}

int Choose(TextRecord*, MessageId title, const char*, const char*, char* path)
{
    FilesTest::shown.push_back(static_cast<int>(title));
    std::strcpy(path, FilesTest::chosenFile.c_str());
    return !FilesTest::chosenFile.empty();
}

constexpr FileDialogs RecordingDialogs{Record, Answer, Choose};

} // namespace

void FilesTest::SetUp()
{
    char pattern[] = "/tmp/tavrel-files-XXXXXX";
    ASSERT_NE(::mkdtemp(pattern), nullptr);
    directory_ = pattern;
    record_.reset(CreateTextRecord(directory_.c_str()));
    ASSERT_NE(record_, nullptr);
    record_->Options = 0;
    shown.clear();
    answer = -1;
    chosenFile.clear();
    SetFileDialogs(&RecordingDialogs);
}

void FilesTest::TearDown()
{
    SetFileDialogs(nullptr);
    record_.reset();
    std::filesystem::remove_all(directory_);
}

void FilesTest::WriteFile(const std::string& name, const std::string& bytes) const
{
    std::ofstream out(Path(name), std::ios::binary);
    out << bytes;
}

std::string FilesTest::ReadFile(const std::string& name) const
{
    std::ifstream in(Path(name), std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

std::vector<std::string> FilesTest::DirectoryEntries() const
{
    std::vector<std::string> names;
    DIR* dir = ::opendir(directory_.c_str());
    while (dirent* entry = ::readdir(dir))
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.emplace_back(entry->d_name);
    ::closedir(dir);
    std::sort(names.begin(), names.end());
    return names;
}

bool FilesTest::SaveWithSizeLimit(const std::string& name, unsigned long bytes)
{
    rlimit saved;
    EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &saved), 0);
    void (*oldHandler)(int) = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = saved;
    small.rlim_cur = bytes;
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool written = SaveText(record_.get(), Path(name).c_str());
    ::setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, oldHandler);
    return written;
}

void FilesTest::SetLines(const Lines& lines)
{
    FillLines(record_.get(), lines);
    record_->Modified = 0;
}

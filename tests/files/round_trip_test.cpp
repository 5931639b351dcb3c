#include "files_test_support.h"

#include "files/load_text.h"
#include "files/save_text.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

std::string Contents(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

// Files that a load keeps exactly: newline-ended lines of at most 255
// characters, with no tab, zero byte or trailing blank.
bool SurvivesUnchanged(const std::string& bytes)
{
    if (bytes.empty() || bytes.back() != '\n' || bytes.find('\t') != std::string::npos
        || bytes.find('\0') != std::string::npos)
        return false;
    size_t start = 0;
    for (size_t end; (end = bytes.find('\n', start)) != std::string::npos; start = end + 1) {
        if (end - start > 255 || (end > start && bytes[end - 1] == ' '))
            return false;
    }
    return true;
}

TEST_F(FilesTest, SystemFilesRoundTripByteForByte)
{
    int checked = 0;
    for (const char* root : {"/usr/share/common-licenses", "/usr/include/c++"}) {
        if (!std::filesystem::exists(root))
            continue;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
            if (!entry.is_regular_file() || entry.is_symlink())
                continue;
            const std::string bytes = Contents(entry.path());
            if (!SurvivesUnchanged(bytes))
                continue;
            ASSERT_TRUE(LoadText(record_.get(), entry.path().c_str(), false)) << entry.path();
            ASSERT_TRUE(SaveText(record_.get(), Path("copy").c_str())) << entry.path();
            ASSERT_EQ(ReadFile("copy"), bytes) << entry.path();
            ++checked;
        }
    }
    std::cout << "round trips checked: " << checked << " files\n";
    RecordProperty("files_checked", checked);
    EXPECT_GT(checked, 100);
}

} // namespace

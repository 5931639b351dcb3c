#include "files_test_support.h"

#include "files/put_line.h"
#include "files/save_commands.h"
#include "files/save_text.h"
#include "files/tab_compression.h"
#include "platform/icon/icon.h"
#include "platform/icon/tooltypes.h"

#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

TEST(CompressTabs, Cases)
{
    const struct {
        const char* name;
        std::string line, written;
    } cases[] = {
        {"SixteenSpaces", std::string(16, ' ') + "a", "\t\ta"},
        {"NineSpaces", std::string(9, ' ') + "a", "\t a"},
        {"SevenSpacesStay", std::string(7, ' ') + "a", std::string(7, ' ') + "a"},
        {"RunEndingAtStop", "abcdef  x", "abcdef\tx"},
        {"SingleSpaceAtStopStays", "abcdefg x", "abcdefg x"},
        {"ApostropheKeepsTheRest", "ab'" + std::string(20, ' ') + "c", "ab'" + std::string(20, ' ') + "c"},
        {"QuoteInTheMiddle", std::string(8, ' ') + "\"" + std::string(8, ' ') + "x", "\t\"" + std::string(8, ' ') + "x"},
        {"ParenthesisStops", "f(" + std::string(14, ' ') + "x", "f(" + std::string(14, ' ') + "x"},
        {"TabAlreadyThereStops", "a\t" + std::string(8, ' ') + "b", "a\t" + std::string(8, ' ') + "b"},
    };
    for (const auto& c : cases) {
        std::string out(c.line.size() + 1, '?');
        const int32_t length = CompressTabs(c.line.c_str(), c.line.size(), out.data());
        EXPECT_EQ(std::string(out.c_str(), static_cast<size_t>(length)), c.written) << c.name;
    }
}

// The rule column by column: at the last column of each group of 8, a space
// behind a space turns the group's trailing spaces into one tab; the first
// character that stops compression passes the rest of the line unchanged.
std::string CompressedByColumns(const std::string& line)
{
    std::string out;
    size_t groupStart = 0;
    for (size_t column = 0; column < line.size(); ++column) {
        const auto c = static_cast<unsigned char>(line[column]);
        if (column % 8 == 0)
            groupStart = out.size();
        out += line[column];
        if (column % 8 == 7 && c == ' ' && out[out.size() - 2] == ' ') {
            size_t first = out.size() - 1;
            while (first > groupStart && out[first - 1] == ' ')
                --first;
            out.resize(first);
            out += '\t';
        } else if (c < 32 || c == '"' || c == '\'' || c == '`' || c == '(') {
            return out + line.substr(column + 1);
        }
    }
    return out;
}

// Lines mostly of spaces, with letters and the characters that stop
// compression here and there, against the rule column by column.
TEST(CompressTabs, AgreesWithTheRuleOnRandomLines)
{
    const char alphabet[] = "      a\'(\"`\tb ";
    unsigned seed = 1;
    auto random = [&seed](unsigned n) {
        seed = seed * 1103515245u + 12345u;
        return (seed >> 16) % n;
    };
    for (int i = 0; i < 20000; ++i) {
        std::string line(random(60), ' ');
        for (char& c : line)
            c = alphabet[random(sizeof alphabet - 1)];
        std::string out(line.size() + 1, '?');
        const int32_t length = CompressTabs(line.c_str(), line.size(), out.data());
        ASSERT_EQ(std::string(out.c_str(), static_cast<size_t>(length)), CompressedByColumns(line)) << '"' << line << '"';
    }
}

TEST_F(FilesTest, SavedWithAndWithoutTabs)
{
    SetLines({std::string(16, ' ') + "a", "", "it's" + std::string(12, ' ') + "b"});
    record_->Modified = 1;
    ASSERT_TRUE(SaveText(record_.get(), Path("plain").c_str()));
    EXPECT_EQ(ReadFile("plain"), std::string(16, ' ') + "a\n\nit's" + std::string(12, ' ') + "b\n");
    EXPECT_EQ(record_->Modified, 0);
    record_->Options |= SaveTabs;
    ASSERT_TRUE(SaveText(record_.get(), Path("tabs").c_str()));
    EXPECT_EQ(ReadFile("tabs"), "\t\ta\n\nit's" + std::string(12, ' ') + "b\n");
    // The cursor's line is saved as it stands, before any flush.
    std::strcpy(record_->EditLine, "typed");
    record_->EditLength = 5;
    ASSERT_TRUE(SaveText(record_.get(), Path("f").c_str()));
    EXPECT_EQ(ReadFile("f"), "typed\n\nit's" + std::string(12, ' ') + "b\n");
}

TEST_F(FilesTest, BackupKeepsOnlyThePreviousContents)
{
    record_->Options |= MakeBackup;
    WriteFile("f", "first\n");
    SetLines({"second"});
    ASSERT_TRUE(SaveText(record_.get(), Path("f").c_str()));
    SetLines({"third"});
    ASSERT_TRUE(SaveText(record_.get(), Path("f").c_str()));
    EXPECT_EQ(ReadFile("f"), "third\n");
    EXPECT_EQ(ReadFile("f.bak"), "second\n");
    EXPECT_TRUE(shown.empty());
    // No file to back up: reported, and the save goes on.
    SetLines({""});
    ASSERT_TRUE(SaveText(record_.get(), Path("new").c_str()));
    EXPECT_EQ(shown, std::vector<int>{77});
    EXPECT_EQ(ReadFile("new"), "\n");
    EXPECT_EQ(DirectoryEntries(), (std::vector<std::string>{"f", "f.bak", "new"}));
}

TEST_F(FilesTest, ReplacementKeepsPermissionsNoteAndLink)
{
    WriteFile("real", "old\n");
    ASSERT_EQ(::chmod(Path("real").c_str(), 0640), 0);
    ASSERT_EQ(::symlink("real", Path("link").c_str()), 0);
    SetLines({"new"});
    ASSERT_TRUE(SaveText(record_.get(), Path("link").c_str()));
    struct stat link, real;
    ASSERT_EQ(::lstat(Path("link").c_str(), &link), 0);
    EXPECT_TRUE(S_ISLNK(link.st_mode));
    ASSERT_EQ(::stat(Path("real").c_str(), &real), 0);
    EXPECT_EQ(real.st_mode & 07777, 0640u);
    EXPECT_EQ(ReadFile("real"), "new\n");
    EXPECT_EQ(DirectoryEntries(), (std::vector<std::string>{"link", "real"}));
}

// A file-size limit makes the write fail half way, as a full disk would.
TEST_F(FilesTest, FailedWriteLeavesOldFileAndTextModified)
{
    const std::string old = "the old contents\n";
    WriteFile("f", old);
    Lines lines(4000, std::string(60, 'z'));
    SetLines(lines);
    record_->Modified = 1;
    record_->Options |= MakeBackup;
    EXPECT_FALSE(SaveWithSizeLimit("f", 100000));
    EXPECT_EQ(shown, std::vector<int>{73});
    EXPECT_EQ(ReadFile("f"), old);
    EXPECT_EQ(ReadFile("f.bak"), old);
    EXPECT_EQ(record_->Modified, 1);
    EXPECT_EQ(DirectoryEntries(), (std::vector<std::string>{"f", "f.bak"}));
}

TEST_F(FilesTest, LineLongerThanBlockWrittenInPieces)
{
    const int fd = ::open(Path("long").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ASSERT_GE(fd, 0);
    char block[8];
    record_->FileBuffer = record_->FileCursor = block;
    record_->FileLimit = sizeof block;
    record_->FilePosition = 0;
    const std::string longLine(20, 'L');
    EXPECT_TRUE(PutLine(record_.get(), fd, "ab", 2));
    EXPECT_TRUE(PutLine(record_.get(), fd, longLine.c_str(), 20));
    EXPECT_TRUE(PutLine(record_.get(), fd, "cdef", 4));
    EXPECT_TRUE(PutLine(record_.get(), fd, "g", 1));
    EXPECT_TRUE(FlushFileBlock(record_.get(), fd));
    ::close(fd);
    record_->FileBuffer = record_->FileCursor = nullptr;
    EXPECT_EQ(ReadFile("long"), "ab\n" + longLine + "\ncdef\ng\n");
}

TEST_F(FilesTest, IconWrittenBesideTheFile)
{
    record_->Options |= SaveIcon;
    ASSERT_TRUE(SaveText(record_.get(), Path("f").c_str()));
    DiskObject* icon = GetDiskObject(Path("f").c_str());
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(icon->do_Type, WBPROJECT);
    EXPECT_STREQ(icon->do_DefaultTool + std::strlen(icon->do_DefaultTool) - 7, "/Tavrel");
    EXPECT_EQ(icon->do_CurrentX, NO_ICON_POSITION);
    EXPECT_EQ(icon->do_StackSize, 4000);
    EXPECT_EQ(FindToolType(icon->do_ToolTypes, "WINDOW"), nullptr);   // no window here
    FreeDiskObject(icon);
}

// Save as names an unnamed text at once, a named one only when the user
// agrees; Save text asks before it overwrites a file.
TEST_F(FilesTest, SaveCommandsAskBeforeRenameAndOverwrite)
{
    SetLines({"x"});
    answer = 0;
    chosenFile = Path("first");
    SaveAsCommand(record_.get());
    EXPECT_EQ(ReadFile("first"), "x\n");
    EXPECT_STREQ(record_->FileName, "first");
    EXPECT_STREQ(record_->FileDirectory, directory_.c_str());
    EXPECT_EQ(shown, std::vector<int>{81});   // the names agree: no question

    record_->Modified = 1;
    chosenFile = Path("copy");
    SaveAsCommand(record_.get());
    EXPECT_EQ(ReadFile("copy"), "x\n");
    EXPECT_EQ(record_->Modified, 0);
    EXPECT_STREQ(record_->FileName, "first");
    EXPECT_EQ(shown, (std::vector<int>{81, 81, 84}));
    answer = 1;
    SaveAsCommand(record_.get());
    EXPECT_STREQ(record_->FileName, "copy");

    shown.clear();
    WriteFile("f", "old\n");
    answer = 0;
    EXPECT_FALSE(SaveTextChecked(record_.get(), Path("f").c_str()));
    EXPECT_EQ(ReadFile("f"), "old\n");
    answer = 1;
    EXPECT_TRUE(SaveTextChecked(record_.get(), Path("f").c_str()));
    EXPECT_EQ(ReadFile("f"), "x\n");
    EXPECT_EQ(shown, (std::vector<int>{69, 69}));
}

} // namespace

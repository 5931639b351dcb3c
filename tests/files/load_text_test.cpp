#include "files_test_support.h"

#include "files/file_buffer.h"
#include "files/load_text.h"
#include "text/lines/edit_line.h"

#include <sys/stat.h>

#include <string>

namespace {

const std::string x255(255, 'x');

TEST_F(FilesTest, LoadedLinesAsStored)
{
    const struct {
        const char* name;
        std::string bytes;
        Lines lines;
        bool emptyFileReported;
    } cases[] = {
        {"OneLineWithoutNewline", "abc", {"abc"}, false},
        {"FinalNewlineAddsNoLine", "a\nb\n", {"a", "b"}, false},
        {"SingleNewlineIsOneEmptyLine", "\n", {""}, false},
        {"NoBytesIsEmptyFile", "", {""}, true},
        {"EmptyLinesInside", "a\n\n\nb", {"a", "", "", "b"}, false},
        {"LongLineCutWithNothingLost", std::string(255, 'a') + std::string(45, 'b') + "\nc\n",
         {std::string(255, 'a'), std::string(45, 'b'), "c"}, false},
        {"ExactlyFullLineThenNewline", x255 + "\n" + "next\n", {x255, "next"}, false},
        {"LongestLineShortOfFull", std::string(254, 'y') + "\n" + std::string(250, 'y') + "    \n",
         {std::string(254, 'y'), std::string(250, 'y')}, false},
        {"FullLineThenEmptyLine", x255 + "\n\n", {x255, ""}, false},
        {"TabStopsAtMultiplesOfEight", "\tA\nabc\tB\nabcdefg\tC\nabcdefgh\tD\n",
         {"        A", "abc     B", "abcdefg C", "abcdefgh        D"}, false},
        {"TabCutAtFullLineDropsItsSpaces", std::string(250, 'a') + "\tb\n",
         {std::string(250, 'a'), "b"}, false},
        {"CarriageReturnsKept", "dos\r\nline\r\n", {"dos\r", "line\r"}, false},
        {"ZeroByteEndsTheString", std::string("ab\0cd\nz\n", 8), {"ab", "z"}, false},
        {"ZeroByteFirstGivesAnEmptyLine", std::string("\0ab\nz\n", 6), {"", "z"}, false},
        {"TrailingBlanksTrimmed", "a  \t\nb \n", {"a", "b"}, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        shown.clear();
        record_->FileName[0] = '\0';
        WriteFile("in", c.bytes);
        EXPECT_TRUE(LoadText(record_.get(), Path("in").c_str(), false));
        EXPECT_EQ(StoredLines(), c.lines);
        EXPECT_EQ(record_->Modified, 0);
        EXPECT_EQ(shown, c.emptyFileReported ? std::vector<int>{65} : std::vector<int>{});
        EXPECT_STREQ(record_->FileName, "in");
        EXPECT_EQ(record_->CursorLine, 0);
    }
}

// The newline after a full line may be the first byte of the next block read.
TEST_F(FilesTest, FullLineEndingAtBlockEdgeGivesNoEmptyLine)
{
    const size_t block = FileBufferRequest;
    std::string bytes;
    size_t lines = 0;
    for (; bytes.size() + 100 + 256 <= block; ++lines)
        bytes += std::string(99, 'f') + "\n";
    bytes += std::string(block - 256 - bytes.size(), 'g') + "\n";
    bytes += x255 + "\nlast\n";
    ASSERT_EQ(bytes[block], '\n');   // the first byte of the second block
    WriteFile("edge", bytes);
    ASSERT_TRUE(LoadText(record_.get(), Path("edge").c_str(), false));
    ASSERT_EQ(record_->LineCount, static_cast<int32_t>(lines + 3));
    EXPECT_EQ(StoredLines()[lines + 1], x255);
    EXPECT_EQ(StoredLines()[lines + 2], "last");
}

// Tabs in every block, one of them its last byte, and lines without any
// between them: each expands where it stands, whatever block it lies in.
TEST_F(FilesTest, TabsExpandInEveryBlock)
{
    const size_t block = FileBufferRequest;
    std::string bytes;
    Lines lines;
    bool tabEndsBlock = false;
    while (bytes.size() < 3 * block) {
        const std::string plain(lines.size() % 23, 'p');
        bytes += plain + "\n";
        lines.push_back(plain);
        const std::string head(lines.size() % 11, 'h');
        bytes += head + "\tt\n";
        lines.push_back(head + std::string(8 - head.size() % 8, ' ') + "t");
        if (!tabEndsBlock && bytes.size() + 40 >= block) {
            const std::string filler(block - 1 - bytes.size(), 'e');
            bytes += filler + "\tz\n";
            lines.push_back(filler + std::string(8 - filler.size() % 8, ' ') + "z");
            tabEndsBlock = true;
        }
    }
    ASSERT_EQ(bytes[block - 1], '\t');
    WriteFile("tabs", bytes);
    ASSERT_TRUE(LoadText(record_.get(), Path("tabs").c_str(), false));
    EXPECT_EQ(StoredLines(), lines);
}

// Into an empty text an insert acts as a load, but keeps the text's name;
// an empty file leaves the one empty line.
TEST_F(FilesTest, InsertGoesBeforeTheCursorLine)
{
    const std::string name = record_->FileName;
    WriteFile("empty", "");
    ASSERT_TRUE(LoadText(record_.get(), Path("empty").c_str(), true));
    EXPECT_EQ(StoredLines(), (Lines{""}));
    WriteFile("ins", "a\nb\n");
    ASSERT_TRUE(LoadText(record_.get(), Path("ins").c_str(), true));
    EXPECT_EQ(StoredLines(), (Lines{"a", "b"}));
    EXPECT_EQ(record_->Modified, 0);
    EXPECT_EQ(record_->FileName, name);

    SetLines({"one", "two", "three"});
    LoadEditLine(record_.get(), LineIndex(1), ColumnIndex(2));
    ASSERT_TRUE(LoadText(record_.get(), Path("ins").c_str(), true));
    EXPECT_EQ(StoredLines(), (Lines{"one", "a", "b", "two", "three"}));
    EXPECT_EQ(record_->CursorLine, 1);
    EXPECT_STREQ(record_->EditLine, "a ");
    EXPECT_EQ(record_->Modified, 1);
    EXPECT_EQ(record_->FileName, name);
}

// A missing file names the empty text; a modified text asks first.
TEST_F(FilesTest, CheckedLoadOfAMissingFileOrOverAModifiedText)
{
    EXPECT_FALSE(LoadTextChecked(record_.get(), Path("new.txt").c_str(), false));
    EXPECT_EQ(shown, std::vector<int>{61});
    EXPECT_STREQ(record_->FileName, "new.txt");
    EXPECT_STREQ(record_->FileDirectory, directory_.c_str());
    EXPECT_EQ(StoredLines(), (Lines{""}));

    SetLines({"keep"});
    record_->Modified = 1;
    WriteFile("other", "new\n");
    answer = 0;
    EXPECT_FALSE(LoadTextChecked(record_.get(), Path("other").c_str(), false));
    EXPECT_EQ(StoredLines(), (Lines{"keep"}));
    answer = 1;
    EXPECT_TRUE(LoadTextChecked(record_.get(), Path("other").c_str(), false));
    EXPECT_EQ(StoredLines(), (Lines{"new"}));
    EXPECT_EQ(shown, (std::vector<int>{61, 68, 68}));
}

// A text's first file read before its window gives the lines, names and
// state of a load in its place; anything a load would report leaves the
// text as it was made, with nothing shown, for the load in the window.
TEST_F(FilesTest, FileReadAheadOfTheWindow)
{
    const std::string bytes = "\tA\ntrail  \n" + std::string(300, 'w') + "\ndos\r\n";
    WriteFile("start.txt", bytes);
    EXPECT_TRUE(LoadText(record_.get(), Path("start.txt").c_str(), false));
    const Lines loaded = StoredLines();

    RecordPtr ahead = NewRecord();
    ASSERT_TRUE(ReadFileAhead(ahead.get(), Path("start.txt").c_str()));
    EXPECT_EQ(::StoredLines(ahead.get()), loaded);
    EXPECT_STREQ(ahead->FileName, "start.txt");
    ShowFileReadAhead(ahead.get(), Path("start.txt").c_str());
    EXPECT_STREQ(ahead->FileDirectory, record_->FileDirectory);
    EXPECT_STREQ(ahead->LastDirectory, record_->FileDirectory);
    EXPECT_EQ(ahead->Modified, 0);
    EXPECT_EQ(ahead->PartOfFile, 0);
    EXPECT_EQ(ahead->CursorLine, 0);

    WriteFile("empty.txt", "");
    ::mkdir(Path("folder").c_str(), 0700);
    for (const char* name : {"empty.txt", "missing.txt", "folder"}) {
        SCOPED_TRACE(name);
        RecordPtr fresh = NewRecord();
        const std::string before = fresh->FileName;
        EXPECT_FALSE(ReadFileAhead(fresh.get(), Path(name).c_str()));
        EXPECT_EQ(::StoredLines(fresh.get()), (Lines{""}));
        EXPECT_EQ(fresh->FileName, before);
    }
    EXPECT_EQ(shown, std::vector<int>{});
}

} // namespace

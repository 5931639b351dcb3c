#include "../text/render_test_support.h"

#include "files/clipboard_commands.h"
#include "files/clipboard_copy.h"
#include "files/clipboard_paste.h"
#include "files/clipboard_unit.h"
#include "requesters/file_reports.h"
#include "platform/clip/clip_units.h"
#include "platform/exec/memory.h"
#include "text/lines/edit_line.h"
#include "text/record/line_table.h"

#include <cstdio>
#include <sys/stat.h>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>

namespace {

std::vector<int> shown;

void Record(TextRecord*, MessageId message, const char*) { shown.push_back(static_cast<int>(message)); }
constexpr FileDialogs RecordingDialogs{Record, nullptr, nullptr};

std::string Be32(uint32_t n) { return {char(n >> 24), char(n >> 16), char(n >> 8), char(n)}; }
std::string Chunk(const std::string& id, const std::string& body)
{
    return id + Be32(uint32_t(body.size())) + body + std::string(body.size() & 1, '\0');
}
std::string Form(const std::string& type, const std::string& chunks)
{
    return "FORM" + Be32(uint32_t(4 + chunks.size())) + type + chunks;
}
std::string Ftxt(const std::string& text) { return Form("FTXT", Chunk("CHRS", text)); }

struct Position {
    int line, column;
};

class ClipboardTest : public RenderTest {
protected:
    void SetUp() override
    {
        RenderTest::SetUp();
        char pattern[] = "/tmp/tavrel-clips-XXXXXX";
        ASSERT_NE(::mkdtemp(pattern), nullptr);
        clips_ = pattern;
        SetClipDirectory(clips_);
        ClipUnit = 0;
        shown.clear();
        SetFileDialogs(&RecordingDialogs);
    }
    void TearDown() override
    {
        SetFileDialogs(nullptr);
        SetClipDirectory("");
        ASSERT_EQ(std::system(("rm -rf '" + clips_ + "'").c_str()), 0);
        RenderTest::TearDown();
    }
    // A 40 x 8 window on `lines`, the cursor at `cursor`.
    void Show(const Lines& lines, Position cursor = {0, 0})
    {
        Open(40, 8, lines);
        LoadEditLine(text_, LineIndex(cursor.line), ColumnIndex(cursor.column));
    }
    std::string Unit(int unit) const
    {
        std::ostringstream bytes;
        bytes << std::ifstream(clips_ + "/" + std::to_string(unit), std::ios::binary).rdbuf();
        return bytes.str();
    }
    void PutClip(const std::string& bytes) const { std::ofstream(clips_ + "/0", std::ios::binary) << bytes; }
    Lines Text()
    {
        EXPECT_TRUE(FlushEditLine(text_));
        return StoredLines(text_);
    }

    std::string clips_;
};

TEST_F(ClipboardTest, ClipHoldsTheBlockAndTheBlockStays)
{
    const struct {
        const char* name;
        Position start, end;
        std::string clip;
    } cases[] = {
        {"odd part of one line", {0, 1}, {0, 3}, "lph"},
        {"whole line", {1, 0}, {1, 4}, "beta\n"},
        {"several lines", {0, 3}, {2, 1}, "ha\nbeta\nga"},
        {"ending at column 0", {0, 2}, {1, 0}, "pha\nb"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Show({"alpha", "beta", "gamma"});
        Mark(c.start.line, c.start.column, c.end.line, c.end.column);
        ASSERT_TRUE(CopyBlockToClip(text_));
        EXPECT_EQ(Unit(0), Ftxt(c.clip));
        EXPECT_TRUE(text_->TextState & BlockMarked);
        EXPECT_EQ(Text(), (Lines{"alpha", "beta", "gamma"}));
    }
}

TEST_F(ClipboardTest, FailedCopyKeepsBlockAndClip)
{
    Show({"alpha", "beta"});
    CopyBlockCommand(text_);
    EXPECT_EQ(shown, (std::vector<int>{177}));
    PutClip(Ftxt("old"));
    Mark(0, 0, 1, 1);
    {
        FailAllocationsAfter none(0);
        EXPECT_FALSE(CopyBlockToClip(text_));
    }
    // A clip directory that is a file: the clip can't be written.
    SetClipDirectory(clips_ + "/0");
    CutBlockCommand(text_);
    EXPECT_EQ(shown, (std::vector<int>{177, 218, 80}));
    EXPECT_TRUE(text_->TextState & BlockMarked);
    EXPECT_EQ(Text(), (Lines{"alpha", "beta"}));
    SetClipDirectory(clips_);
    EXPECT_EQ(Unit(0), Ftxt("old"));
}

TEST_F(ClipboardTest, CopyUnmarksCutDeletesAndPasteBringsBack)
{
    Show({"one", "two", "three"});
    Mark(0, 1, 2, 1);
    CopyBlockCommand(text_);
    EXPECT_FALSE(text_->TextState & BlockMarked);
    EXPECT_EQ(Text(), (Lines{"one", "two", "three"}));
    Mark(0, 0, 0, 3);
    CutBlockCommand(text_);
    EXPECT_EQ(Unit(0), Ftxt("one\n"));
    EXPECT_EQ(Text(), (Lines{"two", "three"}));
    // A whole line pasted at column 0 comes in before the cursor's line.
    LoadEditLine(text_, LineIndex(1), ColumnIndex(0));
    PasteClip(text_);
    EXPECT_EQ(Text(), (Lines{"two", "one", "three"}));
    EXPECT_EQ(Row(1), "one");
    EXPECT_EQ(Row(2), "three");
}

// Clips pasted into "xy" at column 1: the text, the cursor and the window.
TEST_F(ClipboardTest, PasteLayouts)
{
    const struct {
        const char* name;
        std::string clip;
        Lines text;
        Position cursor;
        std::vector<int> shown;
    } cases[] = {
        {"SeveralChrsChunks", Form("FTXT", Chunk("CHRS", "ab") + Chunk("CHRS", "c\nd")), {"xabc", "dy"}, {1, 1}, {}},
        {"OtherChunksSkipped", Form("FTXT", Chunk("CHRS", "ab") + Chunk("FONS", "odd") + Chunk("CHRS", "c")),
         {"xabcy"}, {0, 4}, {}},
        {"ZeroBytesDropped", Ftxt(std::string("a\0b\0\0c", 6)), {"xabcy"}, {0, 4}, {}},
        {"NewlinesBreakLines", Ftxt("one\ntwo\n"), {"xone", "two", "y"}, {2, 0}, {}},
        {"EmptyChunkEndsClip", Form("FTXT", Chunk("CHRS", "ab") + Chunk("CHRS", "") + Chunk("CHRS", "cd")),
         {"xaby"}, {0, 3}, {}},
        {"ChunkCutShort", Form("FTXT", Chunk("CHRS", "ab") + "CHRS" + Be32(10) + "abc"), {"xaby"}, {0, 3}, {79}},
        {"AbsurdChunkSize", Form("FTXT", Chunk("CHRS", "ab") + "FONS" + Be32(0xFFFFFFF0u) + "abc"), {"xaby"}, {0, 3}, {79}},
        {"BytesAfterFormIgnored", Ftxt("ab") + Chunk("CHRS", "zz"), {"xaby"}, {0, 3}, {}},
        {"LongPieceStopsOnlyItsChunk", Form("FTXT", Chunk("CHRS", std::string(255, 'a') + "b\nc") + Chunk("CHRS", "\nZ")),
         {"x" + std::string(253, 'a') + "y", "Z"}, {1, 1}, {175}},
        {"NoClip", "", {"xy"}, {0, 1}, {78}},
        {"IlbmForm", Form("ILBM", Chunk("BMHD", std::string(20, '\1'))), {"xy"}, {0, 1}, {79}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        shown.clear();
        std::remove((clips_ + "/0").c_str());
        if (!c.clip.empty())
            PutClip(c.clip);
        Show({"xy"}, {0, 1});
        PasteClip(text_);
        EXPECT_EQ(shown, c.shown);
        EXPECT_EQ(text_->CursorLine, c.cursor.line);
        EXPECT_EQ(text_->CursorColumn, c.cursor.column);
        EXPECT_FALSE(text_->TextState & Batch);
        EXPECT_TRUE(CheckInvariants(text_));
        for (size_t line = 0; line < c.text.size(); ++line)
            EXPECT_EQ(Row(int(line)), c.text[line].substr(size_t(text_->LeftColumn), 40));
        EXPECT_EQ(Text(), c.text);
    }
}

// A unit that is a FIFO, or a clip directory others may write in: the paste
// says the clipboard can't be read and the text stays as it was.
TEST_F(ClipboardTest, UnreadableClipboardSaysSo)
{
    ASSERT_EQ(::mkfifo((clips_ + "/0").c_str(), 0600), 0);
    Show({"xy"}, {0, 1});
    PasteClip(text_);
    ASSERT_EQ(::chmod(clips_.c_str(), 0777), 0);
    std::remove((clips_ + "/0").c_str());
    PutClip(Ftxt("ab"));
    PasteClip(text_);
    ::chmod(clips_.c_str(), 0700);
    EXPECT_EQ(shown, (std::vector<int>{79, 79}));
    EXPECT_EQ(Text(), Lines{"xy"});
}

TEST_F(ClipboardTest, PasteReplacesBlockUnderCursorElseUnmarksIt)
{
    PutClip(Ftxt("X"));
    Show({"alpha", "beta"}, {0, 2});
    text_->Options &= ~InsertMode;
    Mark(1, 0, 1, 1);
    PasteClip(text_);
    EXPECT_EQ(Text(), (Lines{"alXha", "beta"}));
    text_->Options |= InsertMode;
    Mark(0, 1, 1, 1);
    PasteClip(text_);
    EXPECT_EQ(Text(), (Lines{"aXta"}));
    EXPECT_FALSE(text_->TextState & BlockMarked);
    EXPECT_EQ(Row(0), "aXta");
    EXPECT_EQ(Row(1), "");
}

TEST_F(ClipboardTest, UnitRangeAndUse)
{
    const struct {
        int32_t unit;
        bool taken;
        int32_t after;
    } cases[] = {{-1, true, 5}, {0, true, 0}, {255, true, 255}, {256, false, 5}};
    for (const auto& c : cases) {
        ClipUnit = 5;
        int32_t old = -2;
        EXPECT_EQ(ChangeClipUnit(c.unit, &old), c.taken) << c.unit;
        EXPECT_EQ(old, 5);
        EXPECT_EQ(ClipUnit, c.after) << c.unit;
    }
    Show({"alpha"});
    Mark(0, 0, 0, 1);
    ASSERT_TRUE(CopyBlockToClip(text_));
    EXPECT_EQ(Unit(5), Ftxt("al"));
    EXPECT_EQ(Unit(0), "");
    ClipUnit = 6;
    PasteClip(text_);
    EXPECT_EQ(shown, (std::vector<int>{78}));
}

} // namespace

// The commands around the search: marking what was found, "Selection",
// the report of a miss and the search window's commands.
#include "../text/editing_test_support.h"
#include "frame/protocol/command_message.h"
#include "search/search_commands.h"
#include "search/search_reports.h"
#include "search/window_commands.h"
#include "text/edit/block_operations.h"
#include "text/record/block_span.h"

#include <string>
#include <vector>

namespace {

std::vector<std::string> Shown;

void RecordShown(TextRecord*, const char* text)
{
    Shown.emplace_back(text);
}

class SearchCommandsTest : public EditTest {
protected:
    void SetUp() override
    {
        EditTest::SetUp();
        Shown.clear();
        SetSearchReport(RecordShown);
    }
    void TearDown() override
    {
        SetSearchReport(nullptr);
        EditTest::TearDown();
    }
    std::string BlockText()
    {
        std::string bytes(static_cast<size_t>(BlockTextLength(text_)), '?');
        CopyBlockText(text_, bytes.data(), static_cast<int32_t>(bytes.size()));
        return bytes;
    }
};

TEST_F(SearchCommandsTest, WhatIsFoundOrPutInBecomesTheBlock)
{
    Start({"find me, find me"}, 0, 0);
    ASSERT_TRUE(FindNext(text_, "me"));
    EXPECT_EQ(BlockText(), "me");
    ASSERT_TRUE(ReplacePrevious(text_, "find", "seek"));
    EXPECT_EQ(Cursor(), "0/0");
    EXPECT_EQ(BlockText(), "seek");
    EXPECT_TRUE(PaintedAsFullRedraw());
}

// The replacement holds the find text behind its first character, so each
// "Replace next" finds the one it just put in.
TEST_F(SearchCommandsTest, ReplaceNextGoesOnBehindTheReplacementsStart)
{
    Start({"-ab"}, 0, 0);
    ASSERT_TRUE(ReplaceNext(text_, "ab", "aab"));
    EXPECT_EQ(LineText(0), "-aab");
    ASSERT_TRUE(ReplaceNext(text_, "ab", "aab"));
    EXPECT_EQ(LineText(0), "-aaab");
    EXPECT_EQ(Cursor(), "0/2");
    EXPECT_EQ(BlockText(), "aab");
}

TEST_F(SearchCommandsTest, SelectionSearchesForTheWholeBlockOnOneLine)
{
    const std::string sixty(60, 'q');
    const std::string first49 = sixty.substr(0, 49) + "x";
    Start({sixty, first49 + sixty.substr(50), sixty + "!"}, 0, 0, 80, 6);
    Mark(0, 0, 0, 59);
    SelectionCommand(text_);
    EXPECT_EQ(Cursor(), "2/0");
    EXPECT_EQ(BlockText(), sixty);
    EXPECT_TRUE(Shown.empty());

    text_->LastQualifier = IEQUALIFIER_SHIFT;
    SelectionCommand(text_);
    EXPECT_EQ(Cursor(), "0/0");
    text_->LastQualifier = 0;

    SelectionCommand(text_);
    SelectionCommand(text_);
    ASSERT_EQ(Shown.size(), 1u);
    EXPECT_EQ(Shown[0], sixty.substr(0, NotFoundShown) + "...\nString not found");
}

TEST_F(SearchCommandsTest, SelectionWantsABlockOnOneLine)
{
    Start({"one", "two"}, 0, 0);
    SelectionCommand(text_);
    Mark(0, 1, 1, 1);
    SelectionCommand(text_);
    EXPECT_EQ(Reports(), (std::vector<MessageId>{MessageId::NoBlockMarked, MessageId::BlockNotOnOneLine}));
    EXPECT_EQ(Cursor(), "0/0");
}

TEST_F(SearchCommandsTest, NotFoundShowsTheFindTextCutBehind46Characters)
{
    const std::string fits(NotFoundShown, 'f');
    ReportNotFound(text_, fits.c_str());
    ReportNotFound(text_, (fits + "g").c_str());
    ReportNotFound(text_, "");
    ReportReplaced(text_, 12);
    EXPECT_EQ(Shown, (std::vector<std::string>{fits + "\nString not found", fits + "...\nString not found",
                                               "\nString not found", "12 strings replaced"}));
}

// The window's commands: a miss only beeps; "Restore" brings back the line
// as long as no search has flushed it.
TEST_F(SearchCommandsTest, WindowCommandsBeepOnAMissAndRestoreTheLine)
{
    Start({"alpha beta", "beta"}, 0, 0);
    const int beeps = display_.BeepCount();
    RunWindowCommand(text_, CMD_FIND_NEXT, "gamma");
    EXPECT_EQ(display_.BeepCount(), beeps + 1);
    EXPECT_TRUE(Shown.empty());

    const char strings[] = "beta\0BETA";
    RunWindowCommand(text_, CMD_REPLACE_NEXT, strings);
    EXPECT_EQ(LineText(0), "alpha BETA");
    RunWindowCommand(text_, CMD_RESTORE_LINE, nullptr);
    EXPECT_EQ(LineText(0), "alpha beta");

    Start({"alpha beta"}, 0, 0);
    RunWindowCommand(text_, CMD_REPLACE_NEXT, strings);
    RunWindowCommand(text_, CMD_FIND_PREV, "omega");
    RunWindowCommand(text_, CMD_RESTORE_LINE, nullptr);
    EXPECT_EQ(LineText(0), "alpha BETA");
}

} // namespace

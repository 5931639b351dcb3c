// The main process's bookmarks of a text follow its lines as they go in
// and out, through the requests a text sends while it waits.
#include "../../frame/main_stand_in.h"
#include "../editing_test_support.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/bookmark_requests.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/edit_current_line.h"
#include "text/edit/line_operations.h"

#include <memory>

namespace {

class BookmarksFollowTest : public EditTest {
protected:
    void SetUp() override
    {
        EditTest::SetUp();
        ResetAppGlobals();
        main_ = std::make_unique<MainStandIn>();
        text_->MainPort = Globals.MainPort;
        text_->ReplyPort = FindTask(nullptr)->pr_MsgPort;
    }
    void TearDown() override
    {
        main_.reset();
        text_->MainPort = nullptr;
        EditTest::TearDown();
    }
    // Slot -> line of every bookmark of this text, "-" for a free one.
    std::string Marks() const
    {
        std::string marks;
        for (int slot : {0, 1, 2, ReturnBookmarkSlot}) {
            const Bookmark& bookmark = Globals.Bookmarks[slot];
            marks += bookmark.Owner == text_ ? std::to_string(bookmark.Line) : "-";
            marks += ' ';
        }
        return marks;
    }
    void Set(int slot, int line) { Globals.Bookmarks[slot] = Bookmark{line, 0, slot, text_}; }

    std::unique_ptr<MainStandIn> main_;
};

TEST_F(BookmarksFollowTest, InsertedAndDeletedLinesMoveThem)
{
    Start({"0", "1", "2", "3", "4", "5"}, 3, 0);
    Set(0, 1);
    Set(1, 3);
    Set(2, 5);
    // Main is idle between requests, so its table may be read here.
    DeleteLine(text_);
    EXPECT_EQ(Marks(), "1 - 4 3 ");
    InsertLineBefore(text_);
    EXPECT_EQ(Marks(), "1 - 5 3 ");
    SetCursor(text_, ColumnIndex(0), LineIndex(0));
    InsertLineBefore(text_);
    EXPECT_EQ(Marks(), "2 - 6 0 ");
    RemoveLines(text_, 5, 2);
    EXPECT_EQ(Marks(), "2 - - 0 ");
    // A shift past the end of the text stops on the last line.
    Set(1, 3);
    ShiftBookmarks(text_, 3, 10);
    EXPECT_EQ(Marks(), "2 4 - 0 ");
}

} // namespace

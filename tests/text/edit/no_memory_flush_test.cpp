// A typed line that can't be stored for lack of memory stays in the
// EditLine, and the cursor with it, whatever moved the cursor; once memory
// is back the same move stores it.
#include "../editing_test_support.h"
#include "text/edit/block_operations.h"
#include "text/edit/cursor_motion.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/edit_current_line.h"
#include "text/lines/edit_line.h"
#include "text/edit/line_operations.h"
#include "text/edit/viewport.h"

#include <algorithm>
#include <functional>

namespace {

using NoMemoryFlushTest = EditTest;

TEST_F(NoMemoryFlushTest, TypedLineSurvivesEveryMoveOffIt)
{
    const struct {
        const char* name;
        int line;
        std::function<void(TextRecord*)> move;
    } cases[] = {
        {"CursorDown", 1, CursorDown},
        {"CursorUp", 1, CursorUp},
        {"PrevLineEnd", 1, CursorPrevLineEnd},
        {"NextLineStart", 1, CursorNextLineStart},
        {"SetCursor", 1, [](TextRecord* t) { SetCursor(t, ColumnIndex(0), LineIndex(3)); }},
        {"ClickOnRow", 1, [](TextRecord* t) { SetCursorOnRow(t, 0, 3); }},
        {"ScrollCarriesCursor", 0, [](TextRecord* t) { ScrollToLine(t, 3); }},
        {"MoveLines", 1, [](TextRecord* t) { MoveLines(t, 2, 3); }},
        {"SortLines", 1, [](TextRecord* t) { SortLines(t, 0, 3, 1); }},
        {"DeleteBlock", 1, [this](TextRecord* t) {
             Mark(2, 0, 3, 1);
             DeleteBlock(t);
         }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Start({"d", "c", "b", "a", "e", "f"}, c.line, 1, 40, 2);
        InsertText(text_, "TYPED");
        const std::string typed = text_->EditLine;
        testing::internal::CaptureStderr();
        {
            FailAllocationsAfter noMemory(0);
            c.move(text_);
        }
        testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::string(text_->EditLine), typed);
        EXPECT_EQ(text_->CursorLine, c.line);
        EXPECT_TRUE(CheckInvariants(text_));
        c.move(text_);
        EXPECT_TRUE(FlushEditLine(text_));
        const Lines stored = StoredLines(text_);
        EXPECT_NE(std::find(stored.begin(), stored.end(), typed), stored.end());
    }
}

} // namespace

// The cursor cell: its colours by mode and block, and what hiding it
// leaves behind.
#include "../render_test_support.h"
#include "frame/window/refresh.h"
#include "text/lines/edit_line.h"
#include "text/render/render.h"
#include "text/record/text_record.h"

namespace {

// The block (0,1)-(1,0) holds the cursor's line from column 1 on.
TEST_F(RenderTest, CursorCellShownAndHiddenInEachMode)
{
    const struct {
        const char* name;
        bool insert, block;
        int column;
        char shownBackground, shownForeground, hiddenBackground;
    } cases[] = {
        {"insert, plain", true, false, 3, 'w', 't', 'b'},
        {"overwrite, plain", false, false, 3, 'u', 't', 'b'},
        {"insert in the block", true, true, 3, 'r', 'w', 't'},
        {"overwrite in the block", false, true, 3, 'y', 't', 't'},
        {"insert behind the line in the block", true, true, 9, 'r', 'w', 't'},
        {"overwrite before the block", false, true, 0, 'u', 't', 'b'},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Open(12, 2, {"alpha", "b"});
        if (c.block)
            Mark(0, 1, 1, 0);
        text_->Options = c.insert ? text_->Options | InsertMode : text_->Options & ~InsertMode;
        LoadEditLine(text_, LineIndex{0}, ColumnIndex{c.column});
        RefreshAll(text_);
        const std::string before = Backgrounds(0);

        DrawCursor(text_, true);
        EXPECT_EQ(Backgrounds(0)[c.column], c.shownBackground);
        EXPECT_EQ(Foregrounds(0)[c.column], c.shownForeground);
        EXPECT_EQ(display_.CellAt(text_->Window, c.column, 0).Char, c.column < 5 ? "alpha"[c.column] : ' ');
        EXPECT_EQ(text_->CursorShown, 1);

        DrawCursor(text_, false);
        EXPECT_EQ(Backgrounds(0)[c.column], c.hiddenBackground);
        EXPECT_EQ(Backgrounds(0), before) << "hiding restores the row as drawn";
        EXPECT_EQ(text_->CursorShown, 0);
    }
}

TEST_F(RenderTest, CursorOutsideTheViewOrAlreadyInItsStateDrawsNothing)
{
    Open(4, 2, {"abcdefgh"});
    RefreshAll(text_);
    LoadEditLine(text_, LineIndex{0}, ColumnIndex{6});
    DrawCursor(text_, true);
    EXPECT_EQ(text_->CursorShown, 0) << "column 6 is right of a 4-column view";
    EXPECT_EQ(Backgrounds(0), "bbbb");

    LoadEditLine(text_, LineIndex{0}, ColumnIndex{1});
    DrawCursor(text_, true);
    text_->Options ^= InsertMode;
    DrawCursor(text_, true);   // already shown: the old colour stays
    EXPECT_EQ(Backgrounds(0), (text_->Options & InsertMode) ? "bubb" : "bwbb");

    // Clearing the area forgets the cursor, so it is drawn again afterwards.
    ClearTextArea(text_);
    EXPECT_EQ(text_->CursorShown, 0);
    EXPECT_EQ(Row(0), "");
}

} // namespace

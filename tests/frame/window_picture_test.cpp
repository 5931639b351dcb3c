// A text window with a block and the cursor on the desktop backend
// (offscreen), saved as a PNG under the build tree for a person to look at.
#include "frame/text_window.h"
#include "frame/text_window_scrollers.h"
#include "platform/display/qt/window_png.h"
#include "text/create_text_record.h"
#include "text/edit_line.h"
#include "text/line_table.h"
#include "text/render.h"
#include "text/render_pens.h"
#include "text/text_record.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

namespace {

TEST(WindowPicture, BlockAndCursorOnTheDesktopBackend)
{
    Screen* screen = LockPubScreen(nullptr);
    ASSERT_NE(screen, nullptr);
    TextRecord* text = CreateTextRecord("/texts");
    const char* lines[] = {"/* A text in its window */", "int main(void)", "{", "",
                           "    return 0;   /* block ends here */", "}"};
    EmptyLineTable(text);
    for (const char* line : lines) {
        std::strcpy(text->WorkLine, line);
        ASSERT_TRUE(StoreLine(text, text->WorkLine, text->LineCount));
    }
    NewWindow description;
    description.Width = 420;
    description.Height = 220;
    description.Flags = WFLG_SIZEGADGET | WFLG_SIZEBRIGHT | WFLG_SIZEBBOTTOM | WFLG_CLOSEGADGET | WFLG_DRAGBAR;
    description.Screen = screen;
    text->Window = OpenWindow(&description);
    ASSERT_NE(text->Window, nullptr);
    text->TextState = WindowOpen;
    UpdateVisibleSize(text);
    ObtainTextPens(text, screen->ColorMap);
    AddScrollers(text);
    UpdateVertScroller(text);
    UpdateHorizScroller(text);

    // From "main" on line 1 to column 14 of line 4, the empty line 3
    // inside; the cursor in insert mode on the block's last character.
    text->BlockStartLine = 1;
    text->BlockStartColumn = 4;
    text->BlockEndLine = 4;
    text->BlockEndColumn = 14;
    text->TextState |= BlockMarked;
    text->Options |= InsertMode;
    LoadEditLine(text, LineIndex{4}, ColumnIndex{14});
    ClearTextArea(text);
    RefreshAll(text);
    DrawCursor(text, true);
    UpdateStatusTitle(text);

    std::filesystem::create_directories(TAVREL_ARTIFACTS_DIR);
    const char* path = TAVREL_ARTIFACTS_DIR "/window_block_cursor.png";
    std::filesystem::remove(path);
    EXPECT_TRUE(SaveWindowPng(text->Window, path));
    EXPECT_GT(std::filesystem::file_size(path), 0u);

    ReleaseTextPens(text, screen->ColorMap);
    ScrollerBlock* scrollers = FindScrollers(text->Window);
    CloseWindow(text->Window);
    text->Window = nullptr;
    FreeScrollers(text, scrollers);
    FreeTextRecord(text);
    UnlockPubScreen(nullptr, screen);
}

} // namespace

// A text window with a block and the cursor on the desktop backend
// (offscreen), saved as a PNG under the build tree for a person to look at.
#include "frame/window/refresh.h"
#include "frame/window/text_window.h"
#include "frame/window/text_window_scrollers.h"
#include "platform/display/qt/window_png.h"
#include "text/record/create_text_record.h"
#include "text/lines/edit_line.h"
#include "text/record/line_table.h"
#include "text/render/render.h"
#include "text/record/text_record.h"

#include <gtest/gtest.h>

#include "../../text/picture_window.h"

#include <cstring>
#include <filesystem>

namespace {

TEST(WindowPicture, BlockAndCursorOnTheDesktopBackend)
{
    TextRecord* text = CreateTextRecord("/texts");
    const char* lines[] = {"/* A text in its window */", "int main(void)", "{", "",
                           "    return 0;   /* block ends here */", "}"};
    EmptyLineTable(text);
    for (const char* line : lines) {
        std::strcpy(text->WorkLine, line);
        ASSERT_TRUE(StoreLine(text, text->WorkLine, text->LineCount));
    }
    Screen* screen = OpenPictureWindow(text, 420, 220);
    ASSERT_NE(screen, nullptr);
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

    ClosePictureWindow(text, screen);
}

} // namespace

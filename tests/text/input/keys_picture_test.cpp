// A text edited with keys and the mouse on the desktop backend (offscreen),
// as a new user would: a file opened, a few words typed, the cursor moved,
// a stretch marked by dragging; the window is saved as a PNG under the
// build tree for a person to look at.
#include "files/load_text.h"
#include "frame/window/refresh.h"
#include "frame/window/text_window.h"
#include "platform/display/keys.h"
#include "platform/display/qt/window_png.h"
#include "text/record/create_text_record.h"
#include "text/input/key_press.h"
#include "text/input/mouse.h"
#include "text/render/render.h"
#include "text/record/text_record.h"

#include <gtest/gtest.h>

#include "../picture_window.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace {

class KeysPicture : public ::testing::Test {
protected:
    // One input event as the window would post it, at the pointer's cell,
    // handled as the text's loop does: cursor off, the handler, cursor on.
    void Send(uint32_t type, uint16_t code, uint16_t qualifier, KeyChars keys = {})
    {
        const Window* window = text_->Window;
        IntuiMessage event;
        event.Class = type;
        event.Code = code;
        event.Qualifier = qualifier;
        event.Keys = keys;
        event.MouseX = static_cast<int16_t>(window->BorderLeft + column_ * window->RPort->Font->tf_XSize + 1);
        event.MouseY = static_cast<int16_t>(window->BorderTop + row_ * (window->RPort->Font->tf_YSize + 1) + 1);
        event.Seconds = static_cast<uint32_t>(clock_ / 1000000);
        event.Micros = static_cast<uint32_t>(clock_ % 1000000);
        text_->LastQualifier = qualifier;
        DrawCursor(text_, false);
        if (type == IDCMP_RAWKEY)
            HandleRawKey(text_, event);
        else if (type == IDCMP_MOUSEBUTTONS)
            HandleMouseButtons(text_, event);
        else
            HandleMouseMove(text_, event);
        UpdateStatusTitle(text_);
        DrawCursor(text_, true);
    }
    void Key(uint16_t code) { Send(IDCMP_RAWKEY, code, 0, DefaultKeyChars(code)); }
    void Type(const std::string& text)
    {
        for (char c : text) {
            const KeyStroke stroke = StrokeForChar(static_cast<unsigned char>(c));
            Send(IDCMP_RAWKEY, stroke.Code, stroke.Qualifier, stroke.Keys);
        }
    }
    void Pointer(int column, int row) { column_ = column; row_ = row; }

    TextRecord* text_ = nullptr;
    int column_ = 0, row_ = 0;
    uint64_t clock_ = 1000000000;
};

TEST_F(KeysPicture, TypedMovedAndMarkedWithTheMouse)
{
    std::filesystem::create_directories(TAVREL_ARTIFACTS_DIR);
    const std::string file = TAVREL_ARTIFACTS_DIR "/keys_picture.txt";
    std::ofstream(file) << "Dear reader,\n\nthis text was opened from a file.\n    It has an indented line.\nThe end.\n";

    text_ = CreateTextRecord(TAVREL_ARTIFACTS_DIR);
    Screen* screen = OpenPictureWindow(text_, 480, 240);
    ASSERT_NE(screen, nullptr);
    ClearTextArea(text_);
    ASSERT_TRUE(LoadText(text_, file.c_str(), false));
    RefreshAll(text_);

    // Type on the empty second line, go down past the indented line and
    // add a word at the end of the last line.
    Key(RAWKEY_CRSRDOWN);
    Type("Typed on the empty line.");
    for (uint16_t code : {RAWKEY_CRSRDOWN, RAWKEY_CRSRDOWN, RAWKEY_CRSRDOWN, RAWKEY_END})
        Key(code);
    Type(" Really.");
    Key(RAWKEY_RETURN);
    Type("A new last line");

    // Drag from "text" on line 3 to "indented" on line 4.
    Pointer(5, 2);
    Send(IDCMP_MOUSEBUTTONS, SELECTDOWN, IEQUALIFIER_LEFTBUTTON);
    clock_ += 500000;
    for (int column : {10, 20}) {
        Pointer(column, 3);
        Send(IDCMP_MOUSEMOVE, 0, IEQUALIFIER_LEFTBUTTON);
    }
    Send(IDCMP_MOUSEBUTTONS, SELECTUP, 0);

    EXPECT_EQ(std::string(text_->EditLine), "    It has an indented line.");
    EXPECT_TRUE(text_->TextState & BlockMarked);
    EXPECT_EQ(text_->BlockStartLine, 2);
    EXPECT_EQ(text_->BlockStartColumn, 5);
    EXPECT_EQ(text_->CursorColumn, 20);

    const char* path = TAVREL_ARTIFACTS_DIR "/keys_typed_marked.png";
    std::filesystem::remove(path);
    EXPECT_TRUE(SaveWindowPng(text_->Window, path));

    ClosePictureWindow(text_, screen);
}

} // namespace

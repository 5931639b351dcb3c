// A text edited with keys and the mouse on the desktop backend (offscreen),
// as a new user would: a file opened, a few words typed, the cursor moved,
// a stretch marked by dragging; the window is saved as a PNG under the
// build tree for a person to look at.
#include "files/load_text.h"
#include "frame/text_window.h"
#include "frame/text_window_scrollers.h"
#include "platform/display/keys.h"
#include "platform/display/qt/window_png.h"
#include "text/create_text_record.h"
#include "text/key_press.h"
#include "text/mouse.h"
#include "text/render.h"
#include "text/render_pens.h"
#include "text/text_record.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

class KeysPicture : public ::testing::Test {
protected:
    // One input event as the window would post it, handled as the text's
    // loop does: cursor off, the handler, cursor on.
    void Handle(IntuiMessage event)
    {
        event.MouseX = static_cast<int16_t>(mouseX_);
        event.MouseY = static_cast<int16_t>(mouseY_);
        event.Seconds = static_cast<uint32_t>(clock_ / 1000000);
        event.Micros = static_cast<uint32_t>(clock_ % 1000000);
        text_->LastQualifier = event.Qualifier;
        DrawCursor(text_, false);
        if (event.Class == IDCMP_RAWKEY)
            HandleRawKey(text_, event);
        else if (event.Class == IDCMP_MOUSEBUTTONS)
            HandleMouseButtons(text_, event);
        else
            HandleMouseMove(text_, event);
        UpdateStatusTitle(text_);
        DrawCursor(text_, true);
    }
    void Key(uint16_t code, uint16_t qualifier = 0)
    {
        IntuiMessage event;
        event.Class = IDCMP_RAWKEY;
        event.Code = code;
        event.Qualifier = qualifier;
        event.Keys = DefaultKeyChars(code);
        Handle(event);
    }
    void Type(const std::string& text)
    {
        for (char c : text) {
            KeyStroke stroke = StrokeForChar(static_cast<unsigned char>(c));
            IntuiMessage event;
            event.Class = IDCMP_RAWKEY;
            event.Code = stroke.Code;
            event.Qualifier = stroke.Qualifier;
            event.Keys = stroke.Keys;
            Handle(event);
        }
    }
    void Pointer(int column, int row)
    {
        const Window* window = text_->Window;
        mouseX_ = window->BorderLeft + column * window->RPort->Font->tf_XSize + 1;
        mouseY_ = window->BorderTop + row * (window->RPort->Font->tf_YSize + 1) + 1;
    }
    void Button(uint16_t code, uint16_t qualifier)
    {
        IntuiMessage event;
        event.Class = IDCMP_MOUSEBUTTONS;
        event.Code = code;
        event.Qualifier = qualifier;
        Handle(event);
    }
    void Move(int column, int row)
    {
        Pointer(column, row);
        IntuiMessage event;
        event.Class = IDCMP_MOUSEMOVE;
        event.Qualifier = IEQUALIFIER_LEFTBUTTON;
        Handle(event);
    }

    TextRecord* text_ = nullptr;
    int mouseX_ = 0, mouseY_ = 0;
    uint64_t clock_ = 1000000000;
};

TEST_F(KeysPicture, TypedMovedAndMarkedWithTheMouse)
{
    std::filesystem::create_directories(TAVREL_ARTIFACTS_DIR);
    const std::string file = TAVREL_ARTIFACTS_DIR "/keys_picture.txt";
    std::ofstream(file) << "Dear reader,\n\nthis text was opened from a file.\n    It has an indented line.\nThe end.\n";

    Screen* screen = LockPubScreen(nullptr);
    ASSERT_NE(screen, nullptr);
    text_ = CreateTextRecord(TAVREL_ARTIFACTS_DIR);
    NewWindow description;
    description.Width = 480;
    description.Height = 240;
    description.Flags = WFLG_SIZEGADGET | WFLG_SIZEBRIGHT | WFLG_SIZEBBOTTOM | WFLG_CLOSEGADGET | WFLG_DRAGBAR;
    description.Screen = screen;
    text_->Window = OpenWindow(&description);
    ASSERT_NE(text_->Window, nullptr);
    text_->TextState = WindowOpen;
    UpdateVisibleSize(text_);
    ObtainTextPens(text_, screen->ColorMap);
    AddScrollers(text_);
    ClearTextArea(text_);
    ASSERT_TRUE(LoadText(text_, file.c_str(), false));
    RefreshAll(text_);

    // Type on the empty second line, go down past the indented line and
    // add a word at the end of the last line.
    Key(RAWKEY_CRSRDOWN);
    Type("Typed on the empty line.");
    Key(RAWKEY_CRSRDOWN);
    Key(RAWKEY_CRSRDOWN);
    Key(RAWKEY_CRSRDOWN);
    Key(RAWKEY_END);
    Type(" Really.");
    Key(RAWKEY_RETURN);
    Type("A new last line");

    // Drag from "text" on line 3 to "indented" on line 4.
    Pointer(5, 2);
    Button(SELECTDOWN, IEQUALIFIER_LEFTBUTTON);
    clock_ += 500000;
    Move(10, 3);
    Move(20, 3);
    Button(SELECTUP, 0);

    EXPECT_EQ(std::string(text_->EditLine), "    It has an indented line.");
    EXPECT_TRUE(text_->TextState & BlockMarked);
    EXPECT_EQ(text_->BlockStartLine, 2);
    EXPECT_EQ(text_->BlockStartColumn, 5);
    EXPECT_EQ(text_->CursorColumn, 20);

    const char* path = TAVREL_ARTIFACTS_DIR "/keys_typed_marked.png";
    std::filesystem::remove(path);
    EXPECT_TRUE(SaveWindowPng(text_->Window, path));

    ReleaseTextPens(text_, screen->ColorMap);
    ScrollerBlock* scrollers = FindScrollers(text_->Window);
    CloseWindow(text_->Window);
    text_->Window = nullptr;
    FreeScrollers(text_, scrollers);
    FreeTextRecord(text_);
    UnlockPubScreen(nullptr, screen);
}

} // namespace

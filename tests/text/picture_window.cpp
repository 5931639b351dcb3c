#include "picture_window.h"

#include "frame/window/text_window.h"
#include "frame/window/text_window_scrollers.h"
#include "platform/display/intuition.h"
#include "text/record/create_text_record.h"
#include "text/render/render.h"
#include "text/render/render_pens.h"
#include "text/record/text_record.h"

#include <gtest/gtest.h>

Screen* OpenPictureWindow(TextRecord* text, int16_t width, int16_t height)
{
    Screen* screen = LockPubScreen(nullptr);
    EXPECT_NE(screen, nullptr);
    if (!screen)
        return nullptr;
    NewWindow description;
    description.Width = width;
    description.Height = height;
    description.Flags = WFLG_SIZEGADGET | WFLG_SIZEBRIGHT | WFLG_SIZEBBOTTOM | WFLG_CLOSEGADGET | WFLG_DRAGBAR;
    description.Screen = screen;
    text->Window = OpenWindow(&description);
    EXPECT_NE(text->Window, nullptr);
    if (!text->Window) {
        UnlockPubScreen(nullptr, screen);
        return nullptr;
    }
    text->TextState = WindowOpen;
    UpdateVisibleSize(text);
    ObtainTextPens(text, screen->ColorMap);
    AddScrollers(text);
    return screen;
}

void ClosePictureWindow(TextRecord* text, Screen* screen)
{
    ReleaseTextPens(text, screen->ColorMap);
    ScrollerBlock* scrollers = FindScrollers(text->Window);
    CloseWindow(text->Window);
    text->Window = nullptr;
    FreeScrollers(text, scrollers);
    FreeTextRecord(text);
    UnlockPubScreen(nullptr, screen);
}

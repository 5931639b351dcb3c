#pragma once
// A text with a window of its own on the in-memory display, for the
// benchmarks that run the editor's commands as they run in a window.
#include "platform/display/headless/headless_display.h"
#include "platform/display/intuition.h"
#include "text/record/create_text_record.h"
#include "text/record/text_record.h"
#include "text/render/render_pens.h"

#include <cstdint>

class WindowedText {
public:
    // A text of one empty line in `folder` (null: none) and its window of
    // `width` x `height` pixels, reporting `events`; the text shows as
    // many cells as the window holds.
    WindowedText(const char* folder, int16_t width, int16_t height, uint32_t events = 0)
    {
        SetDisplayBackend(&display_);
        screen_ = LockPubScreen(nullptr);
        record_ = CreateTextRecord(folder);
        NewWindow description;
        description.Width = width;
        description.Height = height;
        description.Flags = WFLG_SIZEGADGET | WFLG_CLOSEGADGET | WFLG_ACTIVATE;
        description.IDCMPFlags = events;
        description.Screen = screen_;
        record_->Window = OpenWindow(&description);
        record_->TextState = WindowOpen;
        record_->VisibleColumns = display_.Columns(record_->Window);
        record_->VisibleRows = display_.Rows(record_->Window);
        ObtainTextPens(record_, screen_->ColorMap);
    }
    ~WindowedText()
    {
        ReleaseTextPens(record_, screen_->ColorMap);
        CloseWindow(record_->Window);
        record_->Window = nullptr;
        FreeTextRecord(record_);
        UnlockPubScreen(nullptr, screen_);
        SetDisplayBackend(nullptr);
    }
    WindowedText(const WindowedText&) = delete;
    WindowedText& operator=(const WindowedText&) = delete;

    TextRecord* Record() const { return record_; }
    HeadlessDisplay& Display() { return display_; }

private:
    HeadlessDisplay display_;
    Screen* screen_ = nullptr;
    TextRecord* record_ = nullptr;
};

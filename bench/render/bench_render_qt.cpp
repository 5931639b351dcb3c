// Drawing a text of 200 x 60 cells on the desktop backend (offscreen): a
// whole redraw with RefreshAll, and the step of scrolling one line, which
// moves the area with ScrollRows and draws the one new row.
#include "frame/window/refresh.h"
#include "platform/display/backend.h"
#include "platform/display/display.h"
#include "text/record/create_text_record.h"
#include "text/lines/edit_line.h"
#include "text/record/line_table.h"
#include "text/render/render.h"
#include "text/render/render_pens.h"
#include "text/record/text_record.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

constexpr int kColumns = 200;
constexpr int kRows = 60;
constexpr int kLines = 400;

// A text with a block across part of it, in a window whose text area is
// exactly the size asked for. The window is opened through the backend:
// the offscreen desktop is smaller than the area, and the public OpenWindow
// would shrink the window to it.
class TextInWindow {
public:
    TextInWindow()
    {
        window_.WScreen = backend_->LockPubScreen(nullptr);
        const TextFont* font = window_.WScreen->RastPort.Font;
        window_.RPort = &window_.WindowPort;
        window_.WindowPort.Font = window_.WScreen->RastPort.Font;
        window_.Flags = WFLG_SIZEGADGET | WFLG_SIZEBRIGHT | WFLG_SIZEBBOTTOM;
        window_.Width = int16_t(kColumns * font->tf_XSize + 40);
        window_.Height = int16_t(kRows * (font->tf_YSize + 1) + 40);
        backend_->OpenWindow(&window_);

        text_ = CreateTextRecord("/texts");
        for (int i = 0; i < kLines; ++i) {
            char* line = text_->WorkLine;
            for (int c = 0; c < 230; ++c)
                line[c] = char('!' + (i + c * 7) % 90);
            line[230] = '\0';
            StoreLine(text_, line, text_->LineCount);
        }
        LoadEditLine(text_, LineIndex{0}, ColumnIndex{0});
        text_->Window = &window_;
        text_->TextState = WindowOpen | BlockMarked;
        text_->BlockStartLine = 10;
        text_->BlockStartColumn = 50;
        text_->BlockEndLine = kLines - 10;
        text_->BlockEndColumn = 20;
        text_->VisibleColumns = kColumns;
        text_->VisibleRows = kRows;
        ObtainTextPens(text_, window_.WScreen->ColorMap);
    }
    ~TextInWindow()
    {
        ReleaseTextPens(text_, window_.WScreen->ColorMap);
        text_->Window = nullptr;
        FreeTextRecord(text_);
        backend_->CloseWindow(&window_);
        backend_->UnlockPubScreen(window_.WScreen);
    }
    TextInWindow(const TextInWindow&) = delete;
    TextInWindow& operator=(const TextInWindow&) = delete;

    TextRecord* text() { return text_; }

private:
    DisplayBackend* backend_ = CurrentDisplayBackend();
    Window window_;
    TextRecord* text_ = nullptr;
};

void BM_RefreshAll(benchmark::State& state)
{
    TextInWindow window;
    TextRecord* text = window.text();
    text->TopLine = 5;   // the block starts in the middle of the area
    for (auto _ : state)
        RefreshAll(text);
    state.SetItemsProcessed(state.iterations() * kColumns * kRows);
}
BENCHMARK(BM_RefreshAll)->Unit(benchmark::kMillisecond);

// One line down: the area moves up a row and the row coming in is drawn.
void BM_ScrollOneLine(benchmark::State& state)
{
    TextInWindow window;
    TextRecord* text = window.text();
    RefreshAll(text);
    const int32_t rowHeight = text->Window->RPort->Font->tf_YSize + 1;
    for (auto _ : state) {
        if (text->TopLine + kRows >= kLines)
            text->TopLine = 0;
        ScrollRows(text, rowHeight);
        text->TopLine += 1;
        RefreshRows(text, text->TopLine + kRows - 1, 1);
    }
}
BENCHMARK(BM_ScrollOneLine)->Unit(benchmark::kMicrosecond);

} // namespace

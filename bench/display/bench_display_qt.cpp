// Painting a whole text area of 200 x 60 cells in the desktop backend, one
// Text call per row, as a full redraw of the editor does.
#include "platform/display/backend.h"
#include "platform/display/display.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace {

constexpr int kColumns = 200;
constexpr int kRows = 60;

// A window of the text area's size. Opened through the backend itself:
// the desktop of the offscreen platform is smaller than the area, and the
// public OpenWindow would shrink the window to it.
struct AreaWindow {
    Window record;
    DisplayBackend* backend = CurrentDisplayBackend();

    AreaWindow() {
        record.WScreen = backend->LockPubScreen(nullptr);
        const TextFont* font = record.WScreen->RastPort.Font;
        record.Width = int16_t(kColumns * font->tf_XSize + 40);
        record.Height = int16_t(kRows * (font->tf_YSize + 1) + 40);
        record.Flags = WFLG_SIZEGADGET | WFLG_SIZEBRIGHT | WFLG_SIZEBBOTTOM;
        record.RPort = &record.WindowPort;
        record.WindowPort.Font = record.WScreen->RastPort.Font;
        backend->OpenWindow(&record);
    }
    ~AreaWindow() {
        backend->CloseWindow(&record);
        backend->UnlockPubScreen(record.WScreen);
    }
};

void PaintRows(RastPort* rp, const Window& window, const std::string& line) {
    const TextFont* font = rp->Font;
    for (int row = 0; row < kRows; ++row) {
        Move(rp, window.BorderLeft, window.BorderTop + row * (font->tf_YSize + 1) + font->tf_Baseline + 1);
        Text(rp, line.data() + row % 32, kColumns);
    }
}

std::string Line() {
    std::string line;
    for (int i = 0; i < kColumns + 32; ++i) line.push_back(char(' ' + (i * 7) % 95));
    return line;
}

void BM_PaintFullArea(benchmark::State& state) {
    AreaWindow window;
    RastPort* rp = window.record.RPort;
    const std::string line = Line();
    SetAPen(rp, 1);
    SetBPen(rp, 0);
    for (auto _ : state) PaintRows(rp, window.record, line);
    state.SetItemsProcessed(state.iterations() * kColumns * kRows);
}
BENCHMARK(BM_PaintFullArea)->Unit(benchmark::kMillisecond);

// The pens change every row, as a marked block across the area makes them.
void BM_PaintFullAreaChangingPens(benchmark::State& state) {
    AreaWindow window;
    RastPort* rp = window.record.RPort;
    ColorMap* colours = window.record.WScreen->ColorMap;
    const long pens[] = {ObtainBestPen(colours, 0xCFFFFFFF, 0xCFFFFFFF, 0xCFFFFFFF),
                         ObtainBestPen(colours, 0, 0, 0),
                         ObtainBestPen(colours, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF)};
    const std::string line = Line();
    const TextFont* font = rp->Font;
    for (auto _ : state) {
        for (int row = 0; row < kRows; ++row) {
            SetAPen(rp, uint8_t(pens[(row + 1) % 3]));
            SetBPen(rp, uint8_t(pens[row % 3]));
            Move(rp, window.record.BorderLeft,
                 window.record.BorderTop + row * (font->tf_YSize + 1) + font->tf_Baseline + 1);
            Text(rp, line.data() + row % 32, kColumns);
        }
    }
    for (long pen : pens) ReleasePen(colours, pen);
    state.SetItemsProcessed(state.iterations() * kColumns * kRows);
}
BENCHMARK(BM_PaintFullAreaChangingPens)->Unit(benchmark::kMillisecond);

}  // namespace

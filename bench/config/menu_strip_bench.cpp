// Building one text's menu strip while its window is open, as a text does
// on CMD_MENUS_REBUILD: the shared table gets the text's marks and tab
// label, the strip is made, the window shows it in place of the old one,
// and the old one is freed. On the headless display, or on the desktop
// backend when the program's main installed it (the menu bar rebuilt).
#include "config/build_menus.h"
#include "config/menu_table.h"
#include "frame/protocol/app_globals.h"
#include "platform/display/backend.h"
#include "platform/display/headless/headless_display.h"
#include "platform/display/intuition.h"
#include "platform/display/menus.h"
#include "text/record/create_text_record.h"
#include "text/record/text_record.h"

#include <benchmark/benchmark.h>

namespace {

void BuildOneTextsStrip(benchmark::State& state)
{
    HeadlessDisplay headless;
    bool ownDisplay = CurrentDisplayBackend() == nullptr;
    if (ownDisplay)
        SetDisplayBackend(&headless);
    InitSemaphore(&Globals.MenuTableLock);
    ResolveMenuLabels();
    TextRecord* text = CreateTextRecord("/texts");
    NewWindow description;
    description.Width = 640;
    description.Height = 400;
    description.Flags = WFLG_CLOSEGADGET | WFLG_SIZEGADGET | WFLG_NEWLOOKMENUS;
    description.IDCMPFlags = IDCMP_MENUPICK;
    text->Window = OpenWindow(&description);
    text->TextState = WindowOpen;
    for (auto _ : state) {
        // Alternate marks, so that every strip differs from the last.
        text->Options ^= SaveTabs;
        benchmark::DoNotOptimize(BuildMenus(text));
    }
    ClearMenuStrip(text->Window);
    CloseWindow(text->Window);
    text->Window = nullptr;
    FreeMenus(text->MenuStrip);
    text->MenuStrip = nullptr;
    FreeTextRecord(text);
    if (ownDisplay) {
        CollectReplies();
        SetDisplayBackend(nullptr);
    }
}
BENCHMARK(BuildOneTextsStrip)->Unit(benchmark::kMicrosecond);

} // namespace

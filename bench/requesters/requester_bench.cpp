// A requester opened in front of a text window and answered: the frame
// (the text window locked and unlocked), the layout, the window opened on
// the headless display, the loop taking the answer, and the close. The
// user is a thread that answers by a key as soon as the requester is up.
#include "frame/protocol/app_globals.h"
#include "platform/display/headless/headless_display.h"
#include "requesters/input_requesters.h"
#include "requesters/message_requesters.h"
#include "text/record/create_text_record.h"
#include "text/render/render_pens.h"
#include "text/record/text_record.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <thread>

namespace {

struct Scene {
    HeadlessDisplay display;
    TextRecord* text = nullptr;
    std::atomic<bool> running{true};
    std::atomic<long> answered{0};   // requesters answered so far
    std::thread user;

    // The user answers each requester with the key `answerKey`.
    explicit Scene(const char* answerKey)
    {
        SetDisplayBackend(&display);
        Globals.Screen = LockPubScreen(nullptr);
        text = CreateTextRecord("/texts");
        NewWindow description;
        description.Width = 640;
        description.Height = 199;
        description.Flags = WFLG_SIZEGADGET | WFLG_CLOSEGADGET | WFLG_ACTIVATE;
        description.IDCMPFlags = IDCMP_RAWKEY;
        description.Screen = Globals.Screen;
        text->Window = OpenWindow(&description);
        text->TextState = WindowOpen;
        text->VisibleColumns = display.Columns(text->Window);
        text->VisibleRows = display.Rows(text->Window);
        ObtainTextPens(text, Globals.Screen->ColorMap);
        user = std::thread([this, answerKey] {
            KeyStroke answer;
            std::string error;
            ParseKeyStroke(answerKey, &answer, &error);
            while (running.load()) {
                if (display.FrontRequester()) {
                    // One answer a requester: the next look comes after
                    // this one has closed.
                    long seen = answered.load();
                    display.PressKey(answer);
                    while (answered.load() == seen && running.load())
                        std::this_thread::yield();
                }
                std::this_thread::yield();
            }
        });
    }

    ~Scene()
    {
        running = false;
        user.join();
        CloseWindow(text->Window);
        text->Window = nullptr;
        FreeTextRecord(text);
        UnlockPubScreen(nullptr, Globals.Screen);
        Globals.Screen = nullptr;
        CollectReplies();
        SetDisplayBackend(nullptr);
    }
};

void ConfirmOpenedAndAnswered(benchmark::State& state)
{
    Scene scene("Return");
    for (auto _ : state) {
        benchmark::DoNotOptimize(ConfirmRequester(scene.text, "Initialize the text?"));
        ++scene.answered;
    }
}
BENCHMARK(ConfirmOpenedAndAnswered)->Unit(benchmark::kMicrosecond);

void GotoLineOpenedAndAnswered(benchmark::State& state)
{
    // Return would only leave the number field; Esc cancels.
    Scene scene("Esc");
    for (auto _ : state) {
        benchmark::DoNotOptimize(GotoLineRequester(scene.text));
        ++scene.answered;
    }
}
BENCHMARK(GotoLineOpenedAndAnswered)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();

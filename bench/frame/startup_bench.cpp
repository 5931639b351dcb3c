// Start-up to the first window shown, on the headless display: from the
// main process's start until the first text's window is open; then the
// program is closed again, outside the timing.
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/idle.h"
#include "frame/process/main_process.h"
#include "frame/protocol/send.h"
#include "platform/display/headless/headless_display.h"
#include "platform/exec/tasks.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <chrono>
#include <thread>

static void StartupToFirstWindow(benchmark::State& state)
{
    for (auto _ : state) {
        HeadlessDisplay display;
        SetDisplayBackend(&display);
        std::atomic<bool> ended{false};
        auto start = std::chrono::steady_clock::now();
        CreateNewProc("Tavrel", [&] {
            MainProcess({});
            ended.store(true);
        });
        while (display.Windows().empty())
            std::this_thread::yield();
        auto shown = std::chrono::steady_clock::now();
        state.SetIterationTime(std::chrono::duration<double>(shown - start).count());

        while (!ended.load() && !ProgramIsIdle())
            std::this_thread::yield();
        PostCommand(Globals.MainPort, nullptr, CMD_CLOSE_TEXT | CMD_FREE, -1);
        WaitForAllTasks();
        CollectReplies();
        SetDisplayBackend(nullptr);
    }
}
BENCHMARK(StartupToFirstWindow)->UseManualTime()->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();

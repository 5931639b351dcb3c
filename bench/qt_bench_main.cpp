// Benchmarks of the desktop backend run as the program does: the display
// loop on the process's first thread, the benchmarks on a task beside it.
#include "platform/display/qt/qt_backend.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    benchmark::Initialize(&argc, argv);
    QtDisplayBackend backend;
    RunDisplay(backend, [] {
        benchmark::RunSpecifiedBenchmarks();
        benchmark::Shutdown();
    });
    return 0;
}

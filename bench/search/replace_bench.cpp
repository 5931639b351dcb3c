// Replacing all over a large text, and a search that finds nothing, on a
// text in a window of the in-memory display, as the editor runs them.
// As a Google Benchmark it times "Find next" of a missing string from the
// top of the generated text of the files benchmark, with its report. For
// the side-by-side run against vim and sed (run_vs_vim_sed.sh) it also
// works as one process per measurement:
//   replace_bench --replace FILE OUT    loads FILE, replaces every "gamma"
//                                       by "GAMMA" from the top, saves OUT
//   replace_bench --find FILE           loads FILE, searches for a missing
//                                       string from the top and reports it
// and then prints its peak resident memory in kilobytes, and for --find
// the search's milliseconds of wall and of CPU time.
#include "files/load_text.h"
#include "files/save_text.h"
#include "search/replace_all.h"
#include "search/search_engine.h"
#include "search/search_reports.h"
#include "text/edit/cursor_placing.h"
#include "text/record/text_record.h"

#include "../peak_memory.h"
#include "../windowed_text.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <cstdio>
#include <cstring>

namespace {

constexpr const char* MissingString = "epsilon";

// Reports are counted, not printed: the benchmark measures the editor,
// not the console.
long ReportCount = 0;
void CountReport(TextRecord*, const char*)
{
    ++ReportCount;
}

// A text in an 80 x 25 window on the in-memory display, its reports
// counted.
class SearchedText : public WindowedText {
public:
    SearchedText()
        : WindowedText(nullptr, HeadlessDisplay::kBorderLeft + HeadlessDisplay::kBorderRight + 80 * HeadlessDisplay::kFontWidth,
              HeadlessDisplay::kBorderTop + HeadlessDisplay::kBorderBottom + 25 * (HeadlessDisplay::kFontHeight + 1))
    {
        SetSearchReport(CountReport);
    }
    ~SearchedText() { SetSearchReport(nullptr); }
    bool Load(const char* file)
    {
        if (!LoadText(Record(), file, false))
            return false;
        SetCursor(Record(), ColumnIndex(0), LineIndex(0));
        return true;
    }
};

// "Find next" of a string that isn't there, from the top, with its report.
bool FindMissing(TextRecord* record)
{
    SetCursor(record, ColumnIndex(0), LineIndex(0));
    if (Search(record, 1, false, MissingString, nullptr))
        return false;
    ReportNotFound(record, MissingString);
    return true;
}

const char* BenchFile = nullptr;

void BM_FindNextMissing(benchmark::State& state)
{
    SearchedText text;
    if (!text.Load(BenchFile)) {
        state.SkipWithError("the text can't be loaded");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(FindMissing(text.Record()));
    state.counters["lines"] = text.Record()->LineCount;
}
BENCHMARK(BM_FindNextMissing)->Unit(benchmark::kMillisecond);

int RunOnce(int argc, char** argv)
{
    SearchedText text;
    if (!text.Load(argv[2]))
        return 1;
    bool done = true;
    double milliseconds = 0;
    double cpuMilliseconds = 0;
    if (std::strcmp(argv[1], "--replace") == 0 && argc > 3) {
        done = ReplaceAll(text.Record(), 1, "gamma", "GAMMA") > 0 && SaveText(text.Record(), argv[3]);
    } else {
        const auto start = std::chrono::steady_clock::now();
        const std::clock_t cpuStart = std::clock();
        done = FindMissing(text.Record());
        cpuMilliseconds = 1000.0 * static_cast<double>(std::clock() - cpuStart) / CLOCKS_PER_SEC;
        milliseconds = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    }
    std::printf("%ld %.2f %.2f\n", PeakKilobytes(), milliseconds, cpuMilliseconds);
    return done ? 0 : 1;
}

} // namespace

// replace_bench --replace FILE OUT | --find FILE | --file FILE [benchmark flags]
int main(int argc, char** argv)
{
    if (argc > 2 && (!std::strcmp(argv[1], "--replace") || !std::strcmp(argv[1], "--find")))
        return RunOnce(argc, argv);
    if (argc > 2 && !std::strcmp(argv[1], "--file")) {
        BenchFile = argv[2];
        argv[2] = argv[0];
        argc -= 2;
        argv += 2;
    }
    if (!BenchFile) {
        std::fprintf(stderr, "usage: replace_bench --replace FILE OUT | --find FILE | --file FILE [flags]\n");
        return 2;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

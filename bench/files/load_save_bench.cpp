// Loading and saving a large text. As a Google Benchmark it times LoadText
// and SaveText on a generated file of 1.5 million lines (about 50 MB, one
// line in seven starting with a tab). For the side-by-side run against
// another editor (run_vs_vim.sh) the program also works as one process per
// measurement:
//   load_save_bench --generate FILE     writes the file
//   load_save_bench --load FILE         loads it and quits
//   load_save_bench --save FILE OUT     loads it and saves it to OUT
// and then prints its peak resident memory in kilobytes.
#include "files/load_text.h"
#include "files/save_text.h"
#include "text/record/create_text_record.h"
#include "text/record/text_record.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr long BenchLines = 1500000;

// Words of varied length, so that lines run from about 10 to 60 bytes,
// about 35 on average.
void GenerateFile(const char* path)
{
    static const char* const words[] = {"alpha", "be", "gamma", "delta", "if", "return", "x", "value",
                                        "count", "(i)", "=", "+", "0;", "}", "{", "table[n]"};
    std::FILE* out = std::fopen(path, "wb");
    unsigned seed = 7;
    for (long line = 0; line < BenchLines; ++line) {
        if (line % 7 == 0)
            std::fputc('\t', out);
        seed = seed * 1103515245u + 12345u;
        const int count = 3 + static_cast<int>((seed >> 16) % 11);
        for (int w = 0; w < count; ++w) {
            seed = seed * 1103515245u + 12345u;
            if (w > 0)
                std::fputc(' ', out);
            std::fputs(words[(seed >> 16) % 16], out);
        }
        std::fputc('\n', out);
    }
    std::fclose(out);
}

// The file of the timed benchmarks, generated when the first one runs.
const std::string benchFile = "/tmp/tavrel-bench-" + std::to_string(::getpid()) + ".txt";
bool generated = false;

std::string BenchFile()
{
    if (!generated)
        GenerateFile(benchFile.c_str());
    generated = true;
    return benchFile;
}

void BM_LoadText(benchmark::State& state)
{
    const std::string file = BenchFile();
    TextRecord* record = CreateTextRecord(nullptr);
    for (auto _ : state)
        benchmark::DoNotOptimize(LoadText(record, file.c_str(), false));
    state.counters["lines"] = record->LineCount;
    FreeTextRecord(record);
}
BENCHMARK(BM_LoadText)->Unit(benchmark::kMillisecond);

void BM_SaveText(benchmark::State& state)
{
    const std::string file = BenchFile();
    const std::string copy = file + ".out";
    TextRecord* record = CreateTextRecord(nullptr);
    LoadText(record, file.c_str(), false);
    for (auto _ : state)
        benchmark::DoNotOptimize(SaveText(record, copy.c_str()));
    FreeTextRecord(record);
    ::unlink(copy.c_str());
}
BENCHMARK(BM_SaveText)->Unit(benchmark::kMillisecond);

long PeakKilobytes()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// One load, or one load and save, as a process of its own; 0 on success.
int RunOnce(int argc, char** argv)
{
    const char* mode = argv[1];
    if (std::strcmp(mode, "--generate") == 0) {
        GenerateFile(argv[2]);
        return 0;
    }
    TextRecord* record = CreateTextRecord(nullptr);
    bool done = record && LoadText(record, argv[2], false);
    if (done && std::strcmp(mode, "--save") == 0 && argc > 3)
        done = SaveText(record, argv[3]);
    std::printf("%ld\n", PeakKilobytes());
    FreeTextRecord(record);
    return done ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 2 && argv[1][0] == '-' && argv[1][1] == '-'
        && (!std::strcmp(argv[1], "--generate") || !std::strcmp(argv[1], "--load") || !std::strcmp(argv[1], "--save")))
        return RunOnce(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    if (generated)
        ::unlink(benchFile.c_str());
    return 0;
}

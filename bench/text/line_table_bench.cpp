// The table of lines on a text of 1.5 million lines as a load leaves it
// (runs of 32 loaded lines) and as a sort of every line leaves it (one run
// per line, the worst case): reading a line anywhere, reading the lines in
// order, and inserting and deleting a line at the top.
#include "text/record/create_text_record.h"
#include "text/lines/edit_line.h"
#include "text/record/line_access.h"
#include "text/edit/line_operations.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int32_t BenchLines = 1500000;

// A loaded text; with `ownRuns` every line then stands in a run of its own.
TextRecord* BenchText(bool ownRuns)
{
    TextRecord* record = CreateTextRecord("/tmp");
    for (EmptyLineTable(record); record->LineCount < BenchLines;) {
        std::snprintf(record->WorkLine, 64, "line %d of the text, with some words behind it", record->LineCount);
        StoreLine(record, record->WorkLine, record->LineCount);
    }
    if (ownRuns) {
        std::vector<char*> strings(BenchLines);
        GetLineStrings(record, 0, BenchLines, strings.data());
        std::reverse(strings.begin(), strings.end());
        PutLineStrings(record, 0, BenchLines, strings.data());
    }
    LoadEditLine(record, LineIndex(1), ColumnIndex(0));
    return record;
}

void BM_ReadAnyLine(benchmark::State& state)
{
    TextRecord* record = BenchText(state.range(0) != 0);
    uint32_t seed = 1;
    for (auto _ : state) {
        seed = seed * 1103515245u + 12345u;
        benchmark::DoNotOptimize(StoredLineText(record, static_cast<int32_t>((seed >> 8) % BenchLines)));
    }
    FreeTextRecord(record);
}
BENCHMARK(BM_ReadAnyLine)->ArgName("own_runs")->Arg(0)->Arg(1);

void BM_ReadEveryLineInOrder(benchmark::State& state)
{
    TextRecord* record = BenchText(state.range(0) != 0);
    for (auto _ : state) {
        for (int32_t line = 0; line < record->LineCount; ++line)
            benchmark::DoNotOptimize(StoredLineText(record, line));
    }
    FreeTextRecord(record);
}
BENCHMARK(BM_ReadEveryLineInOrder)->ArgName("own_runs")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_InsertAndDeleteAtTheTop(benchmark::State& state)
{
    TextRecord* record = BenchText(state.range(0) != 0);
    for (auto _ : state) {
        InsertLineBefore(record);
        DeleteLine(record);
    }
    FreeTextRecord(record);
}
BENCHMARK(BM_InsertAndDeleteAtTheTop)->ArgName("own_runs")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

} // namespace

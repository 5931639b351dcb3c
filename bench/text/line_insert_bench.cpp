// InsertLineBefore at line 1 of a text of 1.5 million lines: a run cut in
// two, the runs behind moved by one and renumbered, the table growing by 32
// runs whenever it is full. The text has no window, as in a batch or a
// macro, so the figure is the line store's own cost.
#include "text/record/create_text_record.h"
#include "text/lines/edit_line.h"
#include "text/edit/line_operations.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"

#include <benchmark/benchmark.h>

#include <cstdio>

namespace {

constexpr int32_t BenchLines = 1500000;

void BM_InsertLineBefore(benchmark::State& state)
{
    TextRecord* record = CreateTextRecord("/tmp");
    for (EmptyLineTable(record); record->LineCount < BenchLines;) {
        std::snprintf(record->WorkLine, 64, "line %d of the text, with some words behind it", record->LineCount);
        StoreLine(record, record->WorkLine, record->LineCount);
    }
    LoadEditLine(record, LineIndex(1), ColumnIndex(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(InsertLineBefore(record));
    state.counters["lines"] = record->LineCount;
    FreeTextRecord(record);
}
BENCHMARK(BM_InsertLineBefore)->Unit(benchmark::kMicrosecond)->Iterations(2000);

} // namespace

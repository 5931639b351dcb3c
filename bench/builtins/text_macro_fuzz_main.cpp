// The long run of the fuzzer of the text functions:
// `text_macro_fuzz [COMMANDS] [SEED]`, by default a million commands on a
// text with its window open, the record's invariants checked after each.
// Prints the number run and failed, and exits with 1 on a fault. Meant for
// a build with -DTAVREL_SANITIZE=address; the test suite runs a short one.
#include "builtins/builtin_table.h"
#include "macro/variables.h"
#include "text_fuzz_commands.h"
#include "text_test_support.h"

#include "../windowed_text.h"

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv)
{
    const long count = argc > 1 ? std::atol(argv[1]) : 1000000;
    const auto seed = static_cast<uint32_t>(argc > 2 ? std::atol(argv[2]) : 1);
    InstallBuiltinFunctions();
    // Reports ("Line too long" and the like) are counted, not shown.
    ReportsCaught reports;
    WindowedText text(nullptr, 320, 100);
    TextRecord* record = text.Record();
    FillLines(record, {"alpha beta", "  gamma-ray l'eau", "", "delta"});
    TextMacroFuzzer fuzzer(seed);
    std::string fault;
    const long failed = fuzzer.Run(record, count, [](const TextRecord* checked) -> std::string {
        const testing::AssertionResult whole = CheckInvariants(checked);
        return whole ? std::string() : std::string(whole.message());
    }, &fault);
    FreeMacroVariables(record);
    std::printf("%ld commands, %ld failed\n", count, failed);
    if (!fault.empty())
        std::printf("fault: %s\n", fault.c_str());
    return fault.empty() ? 0 : 1;
}

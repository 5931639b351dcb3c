// The long run of the fuzzer of VAL and StrToDate:
// `value_readers_fuzz [ROUNDS] [SEED]`, by default a million rounds. Prints
// the rounds run and exits with 1 on a fault. Meant for the
// address-sanitizer build.
#include "builtins/builtin_table.h"
#include "macro/variables.h"
#include "text/record/create_text_record.h"
#include "value_readers_fuzz.h"

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv)
{
    const long rounds = argc > 1 ? std::atol(argv[1]) : 1000000;
    const auto seed = static_cast<uint32_t>(argc > 2 ? std::atol(argv[2]) : 1);
    InstallBuiltinFunctions();
    TextRecord* record = CreateTextRecord("/");
    if (!record)
        return 2;
    ValueReaderFuzzer fuzzer(seed);
    std::string fault;
    fuzzer.Run(record, rounds, &fault);
    FreeMacroVariables(record);
    FreeTextRecord(record);
    std::printf("%ld rounds\n", rounds);
    if (!fault.empty())
        std::printf("fault: %s\n", fault.c_str());
    return fault.empty() ? 0 : 1;
}

// The long run of the macro fuzzer: `macro_fuzz [COMMANDS] [SEED]`, by
// default three million commands. Prints the number run and failed, and
// exits with 1 on a fault. Meant for the address-sanitizer build.
#include "builtins/builtin_table.h"
#include "fuzz_commands.h"
#include "macro/variables.h"
#include "text/record/create_text_record.h"

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv)
{
    const long count = argc > 1 ? std::atol(argv[1]) : 3000000;
    const auto seed = static_cast<uint32_t>(argc > 2 ? std::atol(argv[2]) : 1);
    InstallBuiltinFunctions();
    TextRecord* record = CreateTextRecord("/");
    if (!record)
        return 2;
    MacroFuzzer fuzzer(seed);
    std::string fault;
    const long failed = fuzzer.Run(record, count, &fault);
    FreeMacroVariables(record);
    FreeTextRecord(record);
    std::printf("%ld commands, %ld failed\n", count, failed);
    if (!fault.empty())
        std::printf("fault: %s\n", fault.c_str());
    return fault.empty() ? 0 : 1;
}

// Random and mutated commands compile and run without a crash, a hang or a
// leak (the sanitizer build checks the last two kinds of fault).
#include "fuzz_commands.h"
#include "macro_test_support.h"

TEST(MacroFuzz, RandomCommandsEndInAValueOrAnError)
{
    TextRecord* record = NewMacroRecord();
    MacroFuzzer fuzzer(14);
    std::string fault;
    const long failed = fuzzer.Run(record, 300000, &fault);
    EXPECT_EQ(fault, "");
    // Most random commands are wrong, but not all of them.
    EXPECT_GT(failed, 0);
    EXPECT_LT(failed, 300000);
    FreeMacroRecord(record);
}

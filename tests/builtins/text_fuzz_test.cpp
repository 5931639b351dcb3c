// Random commands on the text functions end in a value or an error of the
// language, and leave a text that keeps its invariants and shows as a full
// redraw shows it; the long run is bench/builtins' text_macro_fuzz.
#include "../text/editing_test_support.h"
#include "builtins/builtin_table.h"
#include "macro/variables.h"
#include "text_fuzz_commands.h"

namespace {

constexpr long Commands = 6000;

class TextFuzzTest : public EditTest {
protected:
    void TearDown() override
    {
        FreeMacroVariables(text_);
        EditTest::TearDown();
    }
};

TEST_F(TextFuzzTest, RandomEditsKeepTheTextWhole)
{
    InstallBuiltinFunctions();
    Start({"alpha beta", "  gamma-ray l'eau", "", "delta"});
    TextMacroFuzzer fuzzer(16);
    std::string fault;
    const long failed = fuzzer.Run(text_, Commands, [this](const TextRecord* record) -> std::string {
        if (testing::AssertionResult whole = CheckInvariants(record); !whole)
            return whole.message();
        if (testing::AssertionResult painted = PaintedAsFullRedraw(); !painted)
            return painted.message();
        return {};
    }, &fault);
    EXPECT_EQ(fault, "");
    EXPECT_GT(failed, 0);
    EXPECT_LT(failed, Commands);
}

} // namespace

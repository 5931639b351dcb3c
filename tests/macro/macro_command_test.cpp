// The lines a command shows, as "Direct mode" and the keys run it.
#include "macro_test_support.h"

#include "macro/macro_command.h"

#include <string>
#include <vector>

namespace {

std::vector<std::string> Lines(TextRecord* record, std::string& typed)
{
    MacroReport report;
    MacroCommandLines(record, typed.data(), &report);
    std::vector<std::string> lines(report.Lines, report.Lines + report.LineCount);
    FreeMacroReport(record, &report);
    EXPECT_STREQ(record->MacroScratch, "");
    return lines;
}

} // namespace

TEST_F(MacroTest, DirectModeShowsResultsAndErrors)
{
    using L = std::vector<std::string>;
    const struct {
        const char* Typed;
        L Shown;
    } rows[] = {
        {"=1+2*3", {"Macro result", "7"}},
        {"1+2*3", {}},
        {"=", {"Macro execution", "", "Uncomplete expression"}},
        {"", {"Macro execution", "", "Uncomplete expression"}},
        {"=A", {"Macro result", "0"}},
        {"=\"\"", {}},
        {"=\"Ab\"", {"Macro result", "Ab"}},
        {"=-7", {"Macro result", "-7"}},
        {"=DEF F(X)=X*2", {"Macro result", "F"}},
        {"=f(21)", {"Macro result", "42"}},
        {"=if(1,\"Ab\",0)", {"Macro result", "Ab"}},
        {"1 2", {"Macro execution", "", "Missing operator"}},
        {"=IF(1,2)", {"Macro execution", "Function IF", "Bad argument number"}},
        {"=nosuch(1)", {"Macro execution", "NOSUCH", "Unknown function"}},
        {"=a=\"x\"+\"y\":a=1", {"Macro execution", "", "Variable type mismatch"}},
    };
    for (const auto& row : rows) {
        std::string typed = row.Typed;
        EXPECT_EQ(Lines(text_, typed), row.Shown) << row.Typed;
    }
}

TEST_F(MacroTest, CommandsAreUpperCasedOutsideStringsAndComments)
{
    std::string typed = "=write(\"Ab\") ' Keep this";
    Lines(text_, typed);
    EXPECT_EQ(typed, "=WRITE(\"Ab\") ' Keep this");
    std::string unclosed = "a=\"b";
    Lines(text_, unclosed);
    EXPECT_EQ(unclosed, "A=\"b");
    std::string accented = "=\xe9t\xe9=1";
    EXPECT_EQ(Lines(text_, accented), (std::vector<std::string>{"Macro result", "1"}));
    EXPECT_EQ(accented, "=\xc9T\xc9=1");
}

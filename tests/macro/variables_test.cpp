// The variable table, the failing function's name, and memory running out.
#include "macro_test_support.h"

#include "macro/variables.h"
#include "platform/exec/memory.h"

#include <cstring>
#include <string>

TEST_F(MacroTest, VariablesKeepTheirRowsWhileTheTableGrows)
{
    for (int i = 0; i < 21; ++i) {
        const std::string name = "V" + std::to_string(i);
        EXPECT_EQ(FindVariable(text_, name.c_str()), i);
        EXPECT_EQ(text_->MacroVariableCount, i < 20 ? 20 : 40);
        EXPECT_EQ(Run(name + "=" + std::to_string(i * 3)), std::to_string(i * 3));
    }
    EXPECT_EQ(FindVariable(text_, "v7"), 7);
    EXPECT_EQ(Run("V0+V7+V20"), "81");
    EXPECT_EQ(Run("W=\"s\":V19"), "57");
    EXPECT_EQ(FindVariable(text_, "W"), 21);
}

TEST_F(MacroTest, TheFailingFunctionIsNamed)
{
    const struct {
        const char* Commands;
        const char* Scratch;
    } rows[] = {
        {"IF(1,2)", "Function IF"},
        {"IF(\"x\",1,2)", "Function IF"},
        {"WHILE(1)", "Function WHILE"},
        {"A=0:WHILE(1,A=A+1)", "Function WHILE"},
        {"DEF F(X)=X\nF(1,2)", "Function F"},
        {"DEF F(X)=1/X\nF(0)", "Function F"},
        {"DEF F", "Function DEF"},
        {"NOSUCH(1)", "NOSUCH"},
        {"1/0", ""},
    };
    for (const auto& row : rows) {
        Renew();
        Run(row.Commands);
        EXPECT_STREQ(text_->MacroScratch, row.Scratch) << row.Commands;
    }
}

// Each string assignment needs the tokens, the literal, the stack and the
// variable's copy, in that order: the copy is the fourth allocation.
TEST_F(MacroTest, AStringAssignmentWithoutMemoryLeavesTheVariableUntyped)
{
    ASSERT_EQ(Run("A=\"old\""), "\"old\"");
    SetAllocationFailureCountdown(3);
    const std::string failed = Run("A=\"new\"");
    SetAllocationFailureCountdown(-1);
    EXPECT_EQ(failed, "#218");
    EXPECT_EQ(Run("A"), "0");
    EXPECT_EQ(Run("A=1"), "1");
}

TEST_F(MacroTest, DefinitionsWithoutMemoryLeaveTheTablesAsTheyWere)
{
    ASSERT_EQ(Run("DEF F(X)=X+1"), "\"F\"");
    for (long countdown = 0; countdown < 12; ++countdown) {
        SetAllocationFailureCountdown(countdown);
        const std::string result = Run("DEF F(X)=X*10") + Run("DEF G(X)=X");
        SetAllocationFailureCountdown(-1);
        const std::string f = Run("F(2)");
        EXPECT_TRUE(f == "3" || f == "20") << countdown << ": " << result;
        const std::string g = Run("G(2)");
        EXPECT_TRUE(g == "2" || g == "#223") << countdown << ": " << result;
    }
}

TEST_F(MacroTest, RecursionStopsWithStackOverflow)
{
    const LanguageRow rows[] = {
        {"DEF F(X)=X\nDEF G(X)=F(X)\nDEF F(X)=G(X)\nF(1)", "#205"},
        {"A=\"EXEC(A)\":EXEC(A)", "#205"},
    };
    CheckRows(rows);
    // The deepest nesting a command can hold compiles and runs, or stops
    // with the message where frames are large.
    const std::string deep = std::string(16000, '(') + "1" + std::string(16000, ')');
    const std::string result = Run(deep);
    EXPECT_TRUE(result == "1" || result == "#205") << result;
}

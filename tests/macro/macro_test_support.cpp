#include "macro_test_support.h"

#include "builtins/builtin_table.h"
#include "macro/command_pool.h"
#include "macro/evaluator.h"
#include "macro/user_functions.h"
#include "macro/variables.h"
#include "text/record/create_text_record.h"

#include <sstream>

TextRecord* NewMacroRecord()
{
    InstallBuiltinFunctions();
    TextRecord* record = CreateTextRecord("/");
    EXPECT_NE(record, nullptr);
    return record;
}

void FreeMacroRecord(TextRecord* record)
{
    FreeMacroVariables(record);
    FreeTextRecord(record);
}

void MacroTest::SetUp() { text_ = NewMacroRecord(); }

void MacroTest::TearDown()
{
    FreeMacroRecord(text_);
    FreeUserFunctions();
}

void MacroTest::Renew()
{
    FreeMacroRecord(text_);
    FreeUserFunctions();
    text_ = NewMacroRecord();
}

std::string MacroTest::Run(const std::string& commands)
{
    std::istringstream lines(commands);
    if (commands.empty())
        return RunCommand(text_, commands);
    std::string line, last;
    while (std::getline(lines, line))
        last = RunCommand(text_, line);
    return last;
}

#pragma once
// A text on the in-memory display with the built-in functions installed,
// for tests that run macro commands on it; its variables are freed at the
// end so the leak checker sees only what a test itself lost.
#include "../text/editing_test_support.h"
#include "builtins/builtin_table.h"
#include "macro/variables.h"

class MacroEditTest : public EditTest {
protected:
    void SetUp() override
    {
        EditTest::SetUp();
        InstallBuiltinFunctions();
    }
    void TearDown() override
    {
        FreeMacroVariables(text_);
        EditTest::TearDown();
    }
};

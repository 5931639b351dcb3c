#include "macro/function_table.h"

MacroFunctionTable InstalledFunctions{};

void SetMacroFunctions(const MacroFunctionTable& table)
{
    InstalledFunctions = table;
}

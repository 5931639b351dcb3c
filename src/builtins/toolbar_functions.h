#pragma once
// TOOLBAR("bar"): a name asks the main process to load that toolbar, and
// the value is its answer as an integer; an empty name raises the toolbar
// windows, and the value is the name of the first toolbar, or "".
#include "macro/function_table.h"

int32_t ToolbarFunction(int32_t slot, MacroStack* stack, MacroContext* context);

#pragma once
// The built-in functions on the key map: MAP, UNMAP and READMAP. Each reads
// its first argument as a key description ("Shift-F3", "Alt-Ctrl-x") and
// fails with 215 for one that isn't.
#include "macro/function_table.h"

// MAP("keys","command"): 1 bound, 0 refused (another text edits the keys)
// or without memory.
int32_t MapFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// UNMAP("keys"): the binding goes; the value is the argument.
int32_t UnmapFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// READMAP("keys"): the command bound to the key, or "".
int32_t ReadMapFunction(int32_t slot, MacroStack* stack, MacroContext* context);

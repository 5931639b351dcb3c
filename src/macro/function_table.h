#pragma once
// The shape of the table of built-in functions: one row per function, with
// everything the compiler, the evaluator and the list of functions need.
// Row 0 is DEF, which has no handler and is never searched; a call of row r
// compiles to token code 26 + r.
//
// The rows themselves live in builtins/, above every subsystem whose
// operations they call; the program installs them once at start, before
// any text runs a command. Rows are ordered by the first letter of their
// names, which the lookup relies on.
#include "macro/macro_types.h"

#include <cstdint>

// A handler gets the stack slot of its first argument (or, for a lazy form,
// the slot below it), runs the rest of its arguments itself, and leaves
// its value at that slot (lazy: the slot above). Result: the value's slot,
// or negative on failure after setting the context's error.
using MacroHandler = int32_t (*)(int32_t slot, MacroStack* stack, MacroContext* context);

// CallFlags: the low 4 bits are the exact number of arguments, 0 for any.
constexpr uint8_t CallNoParentheses = 0x40; // no argument list; one hidden slot
constexpr uint8_t CallLazy = 0x80;          // the handler runs every argument itself
constexpr uint8_t CallUser = 0x20;          // in a user function's row only
constexpr uint8_t CallCountMask = 0x0F;

// FirstArgument: what the first argument may be once run.
constexpr uint16_t ArgInteger = 0x01;
constexpr uint16_t ArgString = 0x02;
constexpr uint16_t ArgVariable = 0x04;
constexpr uint16_t ArgResolve = 0x08;                                       // read a variable's value first
constexpr uint16_t ArgWindow = 0x10;                                        // the text's window must be shown
constexpr uint16_t ArgIntegerValue = ArgInteger | ArgVariable | ArgResolve; // 0x0D
constexpr uint16_t ArgStringValue = ArgString | ArgResolve;                 // 0x0A

struct MacroFunction {
    char Name[9]; // upper-case, at most 8 characters
    uint8_t CallFlags;
    uint16_t FirstArgument;
    MacroHandler Handler;
    const char* Usage; // the line the list of functions shows
};

struct MacroFunctionTable {
    const MacroFunction* Rows;
    int32_t Count; // rows including row 0
    // For each character, the first row (from 1) whose name starts with a
    // character not below it, compared unsigned; Count when there is none.
    const int32_t* FirstRows;
};

// The table every compile and run uses from now on.
void SetMacroFunctions(const MacroFunctionTable& table);

extern MacroFunctionTable InstalledFunctions;

inline const MacroFunction& MacroFunctionRow(int32_t row)
{
    return InstalledFunctions.Rows[row];
}

inline int32_t MacroFunctionCount()
{
    return InstalledFunctions.Count;
}

inline int32_t FirstFunctionRow(unsigned char c)
{
    return InstalledFunctions.FirstRows[c];
}

#pragma once
// The variables of a text: its VariableTable, how values read from it, and
// assignment. Everything here runs in the process that owns the text.
#include "macro/macro_types.h"

struct TextRecord;

// Rows are added this many at a time.
constexpr int32_t VariableTableGrowth = 20;

// The row named `name` (case ignored), made as an untyped variable if the
// name is new. -1 when the table can't grow.
int32_t FindVariable(TextRecord* record, const char* name);

// The integer a variable holds, 0 when it is untyped. False for a string
// variable.
inline bool VariableInteger(const MacroVariable& row, int32_t* integer)
{
    if (row.Kind == KindString)
        return false;
    *integer = row.Kind == KindInteger ? row.Integer : 0;
    return true;
}

// The integer `value` stands for, read from `variables` (the running
// text's table) without changing the value: an integer, or a reference to
// an integer or untyped variable. False for anything else. Inline for the
// evaluator's operators.
inline bool ReadInteger(const MacroVariable* variables, const MacroValue& value, int32_t* integer)
{
    if (value.Kind == KindInteger) {
        *integer = value.Integer;
        return true;
    }
    return value.Kind == KindVariable && VariableInteger(variables[value.Index], integer);
}

// In place, by ReadInteger: the value becomes the integer it stands for.
// Anything else: 232.
int ResolveToInteger(const TextRecord* record, MacroValue* value);
// In place. A string stays; a reference to a string variable becomes its
// text without a copy ("" after RESET); otherwise as ResolveToInteger.
int ResolveValue(const TextRecord* record, MacroValue* value);

// `left = right` for the operator `=`; `left` must be a reference (221).
// A variable keeps the type of its first assignment (232 for the other
// type). An integer assigned leaves `left` that integer; a string is
// copied into the variable's own block and `left` stays the reference.
// The variable's old text joins the context's pool. Without memory for
// the copy the variable is left untyped with no value: 218.
int AssignVariable(MacroContext* context, MacroValue* left, const MacroValue* right);

// For INIT (untype) and RESET (keep the type): the value becomes 0 or no
// text; the old text joins the context's pool.
void ClearVariable(MacroContext* context, int32_t index, bool untype);

// Frees every variable's text, last row first, and the rows: the text is
// closing. Nothing may run against the text afterwards.
void FreeMacroVariables(TextRecord* record);

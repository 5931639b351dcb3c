#pragma once
// The operators on strings: `+` joins into the pool, `<<` and `>>` cut
// characters off the front or the back, comparisons go byte by byte as
// unsigned values, case counting. Other operators are 231.
#include "macro/macro_types.h"

// `left op right`, with `left` a string and `right` resolved: a string, or
// for `<<` and `>>` an integer. The result replaces `left`. 0 or the
// error: 215 for a negative count, 218 when memory is short.
int ApplyStringOperator(MacroContext* context, int16_t op, MacroValue* left, const MacroValue* right);

#pragma once
// The functions on numbers and character codes: signs and magnitudes,
// numbers as text and back, the class of a character. Each is a handler of
// the table of built-in functions and follows its slot convention.
#include "macro/macro_types.h"

// ABS(n): the magnitude; the smallest integer stays as it is.
int32_t AbsFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// SGN(int): -1, 0 or 1.
int32_t SgnFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// STR(int): decimal, with a minus sign when negative.
int32_t StrFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// STRBIN(int): 32 binary digits, most significant first.
int32_t StrBinFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// STRHEX(int): lower-case hexadecimal without leading zeros; a negative
// number shows all 8 digits.
int32_t StrHexFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// VAL("string"): the number the string starts with, after blanks, in any
// form the language writes numbers in, with a sign; 211 or 206 as the
// compiler gives them when there is none.
int32_t ValFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// TYPE(char): the classes of a character code 0 to 255 as a bit mask;
// 215 for any other number.
int32_t TypeFunction(int32_t slot, MacroStack* stack, MacroContext* context);

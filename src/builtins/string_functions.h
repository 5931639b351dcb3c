#pragma once
// The functions on strings: characters and their codes, length, case,
// searching and cutting. Each is a handler of the table of built-in
// functions and follows its slot convention. Positions count from 1.
#include "macro/macro_types.h"

// ASC("string",n): the code, 0 to 255, of the n-th character; 215 when n
// is outside 1 to the length.
int32_t AscFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// CHR(char): a string of that one character; 215 outside 1 to 255.
int32_t ChrFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// LEN("string"): the length in bytes.
int32_t LenFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// LOWER("String"), UPPER("string"): a new string, each character in the
// other case by the ISO 8859-1 rules; the argument stays as it was.
int32_t LowerFunction(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t UpperFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// POS("sub","string"): where `sub` first occurs, or 0. Matches are exact
// in case; under IgnoreCase the first character of a candidate is
// compared without case, which only changes the answer for an empty `sub`:
// the length plus 1 without the option, 0 with it.
int32_t PosFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// SUBS("string",pos,len): `len` characters from `pos`, cut at the end;
// 215 unless pos is from 1 to the length and len at least 1.
int32_t SubsFunction(int32_t slot, MacroStack* stack, MacroContext* context);

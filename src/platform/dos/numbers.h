#pragma once
// Reading a decimal number from the start of a string.

// Skips leading blanks and tabs, takes an optional '+' or '-', then decimal
// digits up to the first non-digit. Gives the number of characters used
// (blanks and sign included) and stores the number in *value; gives -1 and
// leaves *value alone when no digit was read. A number beyond the range of
// long is held at LONG_MAX or LONG_MIN, and its remaining digits still count
// as used.
long StrToLong(const char* string, long* value);

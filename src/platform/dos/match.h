#pragma once
// Matching a string against a pattern compiled by patterns.h.
//
// The matcher remembers which parts of the pattern matched which stretches
// of the string, so its cost grows with the product of pattern and string
// lengths, never exponentially ("#?#?#?#?x" against a long name is cheap).
// The tokens must come from ParsePattern or ParsePatternNoCase; those of a
// failed parse match nothing. Strings of 1 MiB or more match nothing.

// True when `tokens` match the whole of `string`, characters compared
// exactly.
bool MatchPattern(const char* tokens, const char* string);

// As MatchPattern with the case of letters ignored (ISO 8859-1 letters).
bool MatchPatternNoCase(const char* tokens, const char* string);

// For a token buffer whose ParsePattern gave 0: the plain name it stands for,
// escapes removed, written into `name` (of `size` bytes). False when the
// tokens hold a wildcard or the name does not fit.
bool PatternPlainName(const char* tokens, char* name, long size);

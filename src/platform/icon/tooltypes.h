#pragma once
// Tool types: "NAME=VALUE" strings (or a bare "NAME") of an icon.
// Names and values compare without regard to case over ISO 8859-1.

// The value of the entry named `typeName` in the null-terminated array
// `toolTypes`: the text after '=', or "" for a bare name. The first match
// wins. Null when absent or when `toolTypes` is null. An entry whose name
// differs, such as a disabled "(NAME=...)", never matches.
const char* FindToolType(const char* const* toolTypes, const char* typeName);

// True when `value` equals one of the '|'-separated alternatives of
// `typeString` ("ON|YES" matches "yes", not "ye").
bool MatchToolValue(const char* typeString, const char* value);

#pragma once
// Measures of a line's text. They work on any zero-terminated string and
// need no record; only TrimLineEnd writes, and only trailing spaces.
#include <cstdint>

// Length without trailing spaces.
int32_t VisibleLength(const char* text);
// Overwrites the trailing spaces with 0 and gives the new length.
int32_t TrimLineEnd(char* text);
// True for spaces only, and for the empty string.
bool IsBlankText(const char* text);
// Number of leading spaces.
int32_t IndentOf(const char* text);

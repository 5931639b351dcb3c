#pragma once
// Spaces turned into tabs when a text is saved with "Save tabs".
#include <cstddef>
#include <cstdint>

// Copies `text` of `length` characters (its strlen, which the caller
// knows) to `out` (at least length + 1 bytes; never longer
// than the source) with runs of spaces that reach a tab stop (every 8
// columns) replaced by one tab each, never a single space. Compression
// stops for good at the first control character (below 32, a tab
// included), double quote, apostrophe, back quote or opening parenthesis:
// from there on the line is copied unchanged, so quoted text keeps its
// spaces. Gives the length of `out`.
int32_t CompressTabs(const char* text, size_t length, char* out);

#pragma once
// Wildcard patterns, compiled into a token buffer that MatchPattern reads.
//
//   ?       any one character
//   #x      zero or more of the item x, so "#?" is any text
//   (a|b)   a group holding alternatives; '|' outside a group is a character
//   [a-z]   a class of characters and ranges; [~a-z] the complement; a '-'
//           first or last in the class is itself
//   ~x      any text (empty too) that the item x does not match:
//           "~(#?.info)" is every name not ending in ".info"
//   %       the empty text
//   'c      the character c itself, also inside a class
//
// Every other character stands for itself. A pattern always has to match the
// whole string.

// Compiles `source` into `tokens` (a buffer of `size` bytes; 2 * strlen + 2
// always suffices). Gives 1 when the pattern uses any wildcard, 0 when it is
// a plain name (escapes alone don't make a wildcard: "a'?" is the name "a?"),
// and -1 when it can't be parsed (an open group or class, a '#' or '~' with
// nothing to apply to, a ')' with no group, a trailing "'", a reversed range,
// groups nested deeper than 64, more than 500 uses of #, ~, % and
// groups: ERROR_BAD_TEMPLATE) or the buffer is too
// small (ERROR_BUFFER_OVERFLOW). After -1 the tokens match nothing.
int ParsePattern(const char* source, char* tokens, long size);

// As ParsePattern, for MatchPatternNoCase: letters are kept in upper case.
int ParsePatternNoCase(const char* source, char* tokens, long size);

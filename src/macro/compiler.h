#pragma once
// The compiler: one line of text to an array of tokens, operators in
// postfix order, calls and signs in prefix order, each argument and each
// sign's operand a segment closed by an end token. `1+2*3` is
// 20 20 20 3 1 0. Every compile error stops at once with nothing emitted
// worth running; the error is the context's and the result.
//
// The context's Tokens, Capacity, Pool and Text must be set; Tokens grows
// by copy, 20 at a time.
#include "macro/macro_types.h"

// Tokens a compile starts with, and how many more each growth adds.
constexpr int32_t InitialTokens = 40;
constexpr int32_t TokenGrowth = 20;

// 0 or a MessageId. Compiles `text` from its start and ends the program
// with an end token.
int CompileExpression(const char* text, MacroContext* context);

// The function named at Position. A built-in's row (Position behind its
// `(`, or behind its name when it takes none), the complement ~index of a
// user function (Position behind its `(`), or 0 with Position unchanged.
int32_t FindFunction(const char* text, MacroContext* context);

// A variable name at Position: emits token 21 and skips the blanks behind.
// 0, or the error: 223 when `(` follows (the name then in the text's
// MacroScratch), 222 beyond 21 characters, 220 when no row can be made.
int ParseVariable(const char* text, MacroContext* context);

// A number at Position, with an optional sign: decimal, $ or 0X hex, &H
// hex, &D decimal, &O octal, &B binary. Digits above 9 are capitals.
// Wraps modulo 2^32. 0 with the value and Position behind the digits, or
// the error: 211 when no number starts there, 206 for a prefix without a
// digit.
int ParseNumber(const char* text, MacroContext* context, int32_t* value);

// Upper-cases a command in place, leaving strings alone, and stops at the
// first `'` outside a string: the rest is a comment.
void UpperCaseCommand(char* text);

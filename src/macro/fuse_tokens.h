#pragma once
// The compiled shapes that loops and user functions run most, each turned
// into one step: an integer operator on a variable and a constant or on two
// variables, alone or assigned to a variable, and on an argument and a
// constant or two arguments. See the fused codes in macro_types.h.
#include "macro/macro_types.h"

// Rewrites the `count` tokens of a compiled program in place. Runs after
// anything that still reads its variable tokens by their code (the binding
// of a user function's arguments); the program then runs as before, only
// sooner.
void FuseTokens(MacroToken* tokens, int32_t count);

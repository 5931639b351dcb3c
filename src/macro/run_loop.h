#pragma once
// The body of WHILE and FOR: a test and its actions run again and again,
// with a limit on the turns and a way for the user to stop it.
#include "macro/macro_types.h"

// Runs the test, then while it is not 0 the `count - 1` actions and the
// test again, the test's value at slot + 1. The turn that reaches
// LoopIterationLimit, read once at the start, stops the loop with 224
// before its test's value is looked at: at most limit - 1 turns finish.
//
// While it runs, a shown text window reports only its close gadget and raw
// keys, and the loop watches it: the close gadget or Ctrl+Alt+Esc stops
// the loop with 229; every other message that arrives meanwhile is
// dropped. The window's events are as before when the loop ends, on every
// path. The port is looked at only when a message has arrived since the
// last look, through the task's exception on the port's signal, so a turn
// costs no more than reading a flag. With no window shown the loop ends by
// its test or its limit alone.
//
// The token index ends behind the last action. slot + 1, or -1 on error.
int32_t RunLoop(int32_t slot, MacroStack* stack, MacroContext* context, int32_t count);

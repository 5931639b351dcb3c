#pragma once
// How much of the calling thread's stack is still free, for code that
// recurses on input it doesn't control (the macro language) and must stop
// with a message before the stack runs out.
#include <cstddef>

// Bytes between the caller's frame and the lowest address of its thread's
// stack. The bounds are looked up once per thread.
size_t StackSpaceLeft();

#pragma once
// How much of the calling thread's stack is still free, for code that
// recurses on input it doesn't control (the macro language) and must stop
// with a message before the stack runs out.
#include <cstddef>
#include <cstdint>

// The lowest address of the calling thread's stack, looked up.
uintptr_t LookUpStackBottom();

// Kept per thread, 0 until the first question.
inline thread_local uintptr_t CachedStackBottom = 0;

// Bytes between the caller's frame and the lowest address of its thread's
// stack. Cheap: the bounds are looked up once per thread.
inline size_t StackSpaceLeft()
{
    if (CachedStackBottom == 0)
        CachedStackBottom = LookUpStackBottom();
    const auto here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
    return here > CachedStackBottom ? here - CachedStackBottom : 0;
}

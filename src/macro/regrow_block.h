#pragma once
// Growing an array by copy, as the token array, the value stack and the
// variable table do.
#include <cstddef>
#include <cstdint>

// A new block of `newSize` bytes (AllocVec `flags`) that starts with the
// first `usedSize` bytes of `old`, which is freed; null with `old` left as
// it was when memory is short. `old` may be null when `usedSize` is 0.
void* RegrowBlock(void* old, size_t usedSize, size_t newSize, uint32_t flags);

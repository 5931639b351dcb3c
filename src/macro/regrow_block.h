#pragma once
// Growing an array by copy, as the token array, the value stack and the
// variable table do.
#include <cstddef>
#include <cstdint>

// A new block of `newSize` bytes (AllocVec `flags`) that starts with the
// first `usedSize` bytes of `old`, which is freed; null with `old` left as
// it was when memory is short. `old` may be null when `usedSize` is 0.
void* RegrowBlock(void* old, size_t usedSize, size_t newSize, uint32_t flags);

// RegrowBlock for an array: `*array` of `*capacity` elements, the first
// `used` kept, becomes one of `newCapacity` elements. False with both left
// as they were when memory is short.
template <typename T>
bool RegrowArray(T** array, int32_t* capacity, int32_t used, int32_t newCapacity, uint32_t flags)
{
    void* block = RegrowBlock(*array, size_t(used) * sizeof(T), size_t(newCapacity) * sizeof(T), flags);
    if (!block)
        return false;
    *array = static_cast<T*>(block);
    *capacity = newCapacity;
    return true;
}

#include "platform/exec/memory.h"

#include "platform/exec/failure_countdown.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>

std::atomic<long> allocationFailureCountdown{-1};

namespace {

// The block's size sits in front of it; 16 bytes keep the block aligned.
constexpr size_t kHeaderSize = 16;

} // namespace

bool CountAllocationDown()
{
    long left = allocationFailureCountdown.load(std::memory_order_relaxed);
    while (left >= 0) {
        if (left == 0)
            return false;
        if (allocationFailureCountdown.compare_exchange_weak(left, left - 1, std::memory_order_relaxed))
            return true;
    }
    return true;
}

void SetAllocationFailureCountdown(long count)
{
    allocationFailureCountdown.store(count < 0 ? -1 : count, std::memory_order_relaxed);
}

void* AllocVec(size_t size, uint32_t flags)
{
    if (size > SIZE_MAX - kHeaderSize || !AllocationAllowed())
        return nullptr;
    void* block = (flags & MEMF_CLEAR) ? std::calloc(1, kHeaderSize + size)
                                       : std::malloc(kHeaderSize + size);
    if (!block)
        return nullptr;
    *static_cast<size_t*>(block) = size;
    return static_cast<char*>(block) + kHeaderSize;
}

void FreeVec(void* memory)
{
    if (memory)
        std::free(static_cast<char*>(memory) - kHeaderSize);
}

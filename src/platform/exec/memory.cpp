#include "platform/exec/memory.h"

#include "platform/exec/failure_countdown.h"
#include "platform/exec/huge_pages.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>

std::atomic<long> allocationFailureCountdown{-1};

namespace {

// In front of every block, keeping it aligned to 16 bytes: its size, and
// for a block mapped from the kernel the bytes asked for there.
struct VecHeader {
    size_t size;
    size_t mappedBytes;   // 0 for a heap block
};

static_assert(sizeof(VecHeader) == 16);

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

// Blocks of huge-page size and more, such as the line table of a large
// text, are mapped from the kernel: zeroed already, and filled with a few
// page faults.
void* AllocVec(size_t size, uint32_t flags)
{
    if (size > SIZE_MAX / 2 || !AllocationAllowed())
        return nullptr;
    const size_t total = sizeof(VecHeader) + size;
    const bool mapped = total >= kHugePageSize;
    void* block;
    if (mapped)
        block = MapHugePages(total);
    else
        block = (flags & MEMF_CLEAR) ? std::calloc(1, total) : std::malloc(total);
    if (!block)
        return nullptr;
    auto* header = static_cast<VecHeader*>(block);
    header->size = size;
    header->mappedBytes = mapped ? total : 0;
    return header + 1;
}

void FreeVec(void* memory)
{
    if (!memory)
        return;
    VecHeader* header = static_cast<VecHeader*>(memory) - 1;
    if (header->mappedBytes)
        UnmapHugePages(header, header->mappedBytes);
    else
        std::free(header);
}

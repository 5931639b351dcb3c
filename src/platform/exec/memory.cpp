#include "platform/exec/memory.h"

#include "platform/exec/failure_countdown.h"
#include "platform/exec/huge_pages.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <sys/mman.h>
#include <unistd.h>

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

namespace {

// A block of `total` bytes with its header filled in, or null. Blocks of
// huge-page size and more, such as the line table of a large text, are
// mapped from the kernel: zeroed already, and filled with a few page
// faults.
VecHeader* NewBlock(size_t total, uint32_t flags)
{
    const bool mapped = total >= kHugePageSize;
    void* block;
    if (mapped)
        block = MapHugePages(total);
    else
        block = (flags & MEMF_CLEAR) ? std::calloc(1, total) : std::malloc(total);
    if (!block)
        return nullptr;
    auto* header = static_cast<VecHeader*>(block);
    header->size = total - sizeof(VecHeader);
    header->mappedBytes = mapped ? total : 0;
    return header;
}

void FreeBlock(VecHeader* header)
{
    if (header->mappedBytes)
        UnmapHugePages(header, header->mappedBytes);
    else
        std::free(header);
}

} // namespace

void* AllocVec(size_t size, uint32_t flags)
{
    if (size > SIZE_MAX / 2 || !AllocationAllowed())
        return nullptr;
    VecHeader* header = NewBlock(sizeof(VecHeader) + size, flags);
    return header ? header + 1 : nullptr;
}

void* ReallocVec(void* memory, size_t size)
{
    if (!memory)
        return AllocVec(size, MEMF_ANY);
    if (size > SIZE_MAX / 2 || !AllocationAllowed())
        return nullptr;
    VecHeader* header = static_cast<VecHeader*>(memory) - 1;
    const size_t total = sizeof(VecHeader) + size;
    // A heap block stays on the heap while it can: the C library grows it
    // in place or, for a block it mapped itself, remaps its pages, neither
    // copying the bytes nor touching fresh pages for them.
    if (!header->mappedBytes && total < kHugePageSize) {
        auto* grown = static_cast<VecHeader*>(std::realloc(header, total));
        if (!grown)
            return nullptr;
        grown->size = size;
        return grown + 1;
    }
    VecHeader* moved = NewBlock(total, MEMF_ANY);
    if (!moved)
        return nullptr;
    std::memcpy(moved + 1, memory, std::min(header->size, size));
    FreeBlock(header);
    return moved + 1;
}

void PrefaultVec(void* memory)
{
    const VecHeader* header = static_cast<VecHeader*>(memory) - 1;
    const auto start = reinterpret_cast<uintptr_t>(memory);
    const uintptr_t page = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
    const uintptr_t first = (start + page - 1) & ~(page - 1);
    const uintptr_t end = (start + header->size) & ~(page - 1);
    if (end <= first)
        return;
    // The kernel fills the pages without a fault each; a kernel that can't
    // gets them touched one by one, a read and a write of a byte that keep
    // it.
    if (::madvise(reinterpret_cast<void*>(first), end - first, MADV_POPULATE_WRITE) == 0)
        return;
    for (uintptr_t at = first; at < end; at += page) {
        auto* byte = reinterpret_cast<volatile char*>(at);
        *byte = *byte;
    }
}

void FreeVec(void* memory)
{
    if (memory)
        FreeBlock(static_cast<VecHeader*>(memory) - 1);
}

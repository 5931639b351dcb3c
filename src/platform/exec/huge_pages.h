#pragma once
// Internal to the exec layer: memory straight from the kernel for large
// blocks and big puddles, aligned so that the kernel can back it with huge
// pages. Filling such memory then costs one page fault for every 2 MB
// instead of one for every 4 KB, which is most of the time of taking a
// large file in. The memory comes zeroed.
#include <cstddef>
#include <cstdint>
#include <sys/mman.h>

constexpr size_t kHugePageSize = size_t{2} << 20;

// `bytes` rounded up to whole huge pages.
inline size_t HugePageBytes(size_t bytes)
{
    return (bytes + kHugePageSize - 1) & ~(kHugePageSize - 1);
}

// `bytes` of zeroed memory aligned to a huge page; null on failure. Huge
// pages are asked for only where the block fills them, so that a block just
// above a huge page doesn't take two; and they are only asked for: without
// them the memory is ordinary pages.
inline void* MapHugePages(size_t bytes)
{
    const size_t mapped = HugePageBytes(bytes);
    const size_t span = mapped + kHugePageSize;
    void* raw = ::mmap(nullptr, span, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (raw == MAP_FAILED)
        return nullptr;
    const auto start = reinterpret_cast<uintptr_t>(raw);
    const uintptr_t aligned = (start + kHugePageSize - 1) & ~(kHugePageSize - 1);
    if (aligned > start)
        ::munmap(raw, aligned - start);
    if (const size_t tail = start + span - (aligned + mapped))
        ::munmap(reinterpret_cast<void*>(aligned + mapped), tail);
    const size_t filled = bytes & ~(kHugePageSize - 1);
    if (filled)
        ::madvise(reinterpret_cast<void*>(aligned), filled, MADV_HUGEPAGE);
    if (filled < mapped)
        ::madvise(reinterpret_cast<void*>(aligned + filled), mapped - filled, MADV_NOHUGEPAGE);
    return reinterpret_cast<void*>(aligned);
}

// Gives back what MapHugePages(bytes) gave.
inline void UnmapHugePages(void* memory, size_t bytes)
{
    ::munmap(memory, HugePageBytes(bytes));
}

#include "platform/exec/memory.h"

#include "platform/exec/failure_countdown.h"
#include "platform/exec/huge_pages.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <cstdlib>
#include <cstring>

// A pool carves its small blocks byte by byte from puddles with one bump
// pointer. The byte in front of a block tells its size, so a block that is
// freed without a size costs one byte of bookkeeping instead of a header:
// a text of a million short lines is mostly its own characters. A block is
// aligned only as far as its size asks (memory.h), which for a string is not
// at all. Freed small blocks wait on one free list per rounded size and go
// out again for that size.
//
// Puddles double in size as the pool grows, up to a huge page. Those come
// straight from mmap, aligned so the kernel can back them with huge pages:
// a pool that takes in a large file then costs a few dozen page faults
// instead of tens of thousands. Fresh puddles are zero already (calloc or
// mmap), so a clearing pool zeroes only blocks it hands out again.
//
// Large blocks are plain heap blocks chained in a doubly linked list, so
// that each can be freed on its own and DeletePool finds them all.

namespace {

// A freed block holds the link of its free list.
constexpr size_t kMinBlock = sizeof(void*);
constexpr size_t kMaxAlign = 16;
// At most this many free lists; pools with a high threshold round their
// block sizes to a coarser granule to stay within it.
constexpr size_t kMaxFreeLists = 512;

// The tag byte right in front of a block: a small block's rounded size less
// kMinBlock, or one of these two marks.
constexpr unsigned char kLongTag = 0xFE;    // the size is in the 8 bytes before the tag
constexpr unsigned char kLargeTag = 0xFF;   // a LargeBlock header lies before the block
constexpr size_t kShortTagLimit = kMinBlock + 0xFD;

struct Puddle {
    Puddle* next;
    size_t mappedBytes;   // 0 for a heap puddle
};

struct LargeBlock {
    LargeBlock* prev;
    LargeBlock* next;
    unsigned char unused[15];
    unsigned char tag;   // right in front of the block, as for small blocks
};

static_assert(sizeof(LargeBlock) % kMaxAlign == 0);

size_t RoundUp(size_t size, size_t granule)
{
    return (size + granule - 1) & ~(granule - 1);
}

size_t AlignmentOf(size_t rounded)
{
    return std::min(kMaxAlign, rounded & (~rounded + 1));
}

size_t HeaderBytes(size_t rounded)
{
    return rounded <= kShortTagLimit ? 1 : 1 + sizeof(size_t);
}

size_t RoundedSize(const char* block)
{
    const auto tag = static_cast<unsigned char>(block[-1]);
    if (tag != kLongTag)
        return tag + kMinBlock;
    size_t rounded;
    std::memcpy(&rounded, block - 1 - sizeof rounded, sizeof rounded);
    return rounded;
}

// Free list links are copied, as a block of an odd size has no alignment.
char* NextFree(const char* block)
{
    char* next;
    std::memcpy(&next, block, sizeof next);
    return next;
}

void SetNextFree(char* block, char* next)
{
    std::memcpy(block, &next, sizeof next);
}

} // namespace

struct MemPool {
    uint32_t flags;
    size_t threshSize;
    size_t granule;             // power of two that small sizes are rounded to
    unsigned granuleShift;      // its logarithm
    size_t firstPuddleBytes;
    size_t nextPuddleBytes;
    Puddle* puddles;
    char* bumpNext;
    char* bumpEnd;
    LargeBlock large;   // sentinel of the circular large block list
    char** freeLists;   // indexed by rounded size / granule, right behind the record

    char*& FreeList(size_t rounded) { return freeLists[rounded >> granuleShift]; }
    size_t Rounded(size_t size) const { return RoundUp(std::max(size, kMinBlock), granule); }
};

MemPool* CreatePool(uint32_t flags, size_t puddleSize, size_t threshSize)
{
    if (threshSize == 0 || threshSize > puddleSize || puddleSize > SIZE_MAX / 4)
        return nullptr;
    if (!AllocationAllowed())
        return nullptr;
    unsigned granuleShift = 0;
    while (RoundUp(threshSize, size_t{1} << granuleShift) >> granuleShift > kMaxFreeLists)
        ++granuleShift;
    const size_t granule = size_t{1} << granuleShift;
    const size_t largestSmall = RoundUp(std::max(threshSize, kMinBlock), granule);
    const size_t listCount = largestSmall / granule + 1;
    auto* pool = static_cast<MemPool*>(std::calloc(1, sizeof(MemPool) + listCount * sizeof(char*)));
    if (!pool)
        return nullptr;
    pool->flags = flags;
    pool->threshSize = threshSize;
    pool->granule = granule;
    pool->granuleShift = granuleShift;
    // Every puddle holds the largest small block with its header and padding.
    pool->firstPuddleBytes = sizeof(Puddle) + std::max(puddleSize, largestSmall + HeaderBytes(largestSmall) + kMaxAlign);
    pool->nextPuddleBytes = pool->firstPuddleBytes;
    pool->large.prev = &pool->large;
    pool->large.next = &pool->large;
    pool->freeLists = reinterpret_cast<char**>(pool + 1);
    return pool;
}

void DeletePool(MemPool* pool)
{
    if (!pool)
        return;
    for (Puddle* puddle = pool->puddles; puddle;) {
        Puddle* next = puddle->next;
        if (puddle->mappedBytes)
            UnmapHugePages(puddle, puddle->mappedBytes);
        else
            std::free(puddle);
        puddle = next;
    }
    for (LargeBlock* block = pool->large.next; block != &pool->large;) {
        LargeBlock* next = block->next;
        std::free(block);
        block = next;
    }
    std::free(pool);
}

namespace {

bool AddPuddle(MemPool* pool)
{
    const size_t bytes = pool->nextPuddleBytes;
    const bool mapped = bytes >= kHugePageSize;
    void* raw;
    if (mapped)
        raw = MapHugePages(bytes);
    else
        raw = (pool->flags & MEMF_CLEAR) ? std::calloc(1, bytes) : std::malloc(bytes);
    if (!raw)
        return false;
    auto* puddle = static_cast<Puddle*>(raw);
    puddle->mappedBytes = mapped ? HugePageBytes(bytes) : 0;
    puddle->next = pool->puddles;
    pool->puddles = puddle;
    pool->bumpNext = reinterpret_cast<char*>(puddle + 1);
    pool->bumpEnd = static_cast<char*>(raw) + (puddle->mappedBytes ? puddle->mappedBytes : bytes);
    pool->nextPuddleBytes = std::max(pool->firstPuddleBytes, std::min(2 * bytes, kHugePageSize));
    return true;
}

// Room behind the bump pointer for a block of `rounded` bytes with its
// header and alignment.
bool HasRoom(const MemPool* pool, size_t rounded)
{
    return static_cast<size_t>(pool->bumpEnd - pool->bumpNext) >= HeaderBytes(rounded) + AlignmentOf(rounded) - 1 + rounded;
}

// A block of `rounded` bytes behind the bump pointer, which has room for
// it, with its tag in front.
char* Carve(MemPool* pool, size_t rounded)
{
    const size_t header = HeaderBytes(rounded);
    char* block = pool->bumpNext + header;
    block += (0 - reinterpret_cast<uintptr_t>(block)) & (AlignmentOf(rounded) - 1);
    pool->bumpNext = block + rounded;
    if (header == 1) {
        block[-1] = static_cast<char>(rounded - kMinBlock);
    } else {
        block[-1] = static_cast<char>(kLongTag);
        std::memcpy(block - header, &rounded, sizeof rounded);
    }
    return block;
}

// The two rare ways of AllocSmall, out of line so that its common way, a
// block carved from a puddle with room, stays a few instructions. The rest
// of a puddle too small for a block stays unused.
[[gnu::noinline]] char* CarveFromNewPuddle(MemPool* pool, size_t rounded)
{
    return AddPuddle(pool) ? Carve(pool, rounded) : nullptr;
}

[[gnu::noinline]] char* Recycle(MemPool* pool, size_t rounded, size_t size)
{
    char*& freeList = pool->FreeList(rounded);
    char* block = freeList;
    freeList = NextFree(block);
    if (pool->flags & MEMF_CLEAR)
        std::memset(block, 0, size);
    return block;
}

void* AllocSmall(MemPool* pool, size_t size)
{
    const size_t rounded = pool->Rounded(size);
    if (pool->FreeList(rounded))
        return Recycle(pool, rounded, size);
    if (!HasRoom(pool, rounded))
        return CarveFromNewPuddle(pool, rounded);
    return Carve(pool, rounded);
}

void* AllocLarge(MemPool* pool, size_t size)
{
    if (size > SIZE_MAX - sizeof(LargeBlock))
        return nullptr;
    const size_t total = sizeof(LargeBlock) + size;
    void* raw = (pool->flags & MEMF_CLEAR) ? std::calloc(1, total) : std::malloc(total);
    if (!raw)
        return nullptr;
    auto* block = static_cast<LargeBlock*>(raw);
    block->tag = kLargeTag;
    block->prev = &pool->large;
    block->next = pool->large.next;
    pool->large.next->prev = block;
    pool->large.next = block;
    return block + 1;
}

void* AllocBlock(MemPool* pool, size_t size)
{
    if (!pool || !AllocationAllowed())
        return nullptr;
    return size <= pool->threshSize ? AllocSmall(pool, size) : AllocLarge(pool, size);
}

void FreeBlock(MemPool* pool, void* memory)
{
    if (!pool || !memory)
        return;
    auto* block = static_cast<char*>(memory);
    if (static_cast<unsigned char>(block[-1]) == kLargeTag) {
        LargeBlock* large = reinterpret_cast<LargeBlock*>(block) - 1;
        large->prev->next = large->next;
        large->next->prev = large->prev;
        std::free(large);
        return;
    }
    char*& freeList = pool->FreeList(RoundedSize(block));
    SetNextFree(block, freeList);
    freeList = block;
}

} // namespace

void* AllocPooled(MemPool* pool, size_t size)
{
    return AllocBlock(pool, size);
}

void FreePooled(MemPool* pool, void* memory, [[maybe_unused]] size_t size)
{
    assert(!pool || !memory
           || (size > pool->threshSize ? static_cast<unsigned char*>(memory)[-1] == kLargeTag
                                       : RoundedSize(static_cast<char*>(memory)) == pool->Rounded(size)));
    FreeBlock(pool, memory);
}

void* AllocVecPooled(MemPool* pool, size_t size)
{
    return AllocBlock(pool, size);
}

void FreeVecPooled(MemPool* pool, void* memory)
{
    FreeBlock(pool, memory);
}

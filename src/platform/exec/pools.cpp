#include "platform/exec/memory.h"

#include "platform/exec/failure_countdown.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

// A pool hands out small blocks from puddles with a bump pointer and keeps
// freed small blocks on one free list per 16-byte size class, so that a text
// that edits its lines all day reuses the same memory. Large blocks are
// plain heap blocks chained in a doubly linked list, so that each can be
// freed on its own and DeletePool finds them all.

namespace {

constexpr size_t kGranule = 16;

size_t RoundUp(size_t size)
{
    return (size + kGranule - 1) & ~(kGranule - 1);
}

struct Puddle {
    Puddle* next;
    size_t pad;   // keeps the puddle's blocks 16-byte aligned
};

struct FreeBlock {
    FreeBlock* next;
};

struct LargeBlock {
    LargeBlock* prev;
    LargeBlock* next;
};

static_assert(sizeof(Puddle) == kGranule && sizeof(LargeBlock) == kGranule);

// Header of AllocVecPooled blocks: the size asked for.
constexpr size_t kVecHeaderSize = kGranule;

} // namespace

struct MemPool {
    uint32_t flags;
    size_t threshSize;
    size_t puddleCapacity;
    Puddle* puddles;
    char* bumpNext;
    char* bumpEnd;
    LargeBlock large;   // sentinel of the circular large block list
    FreeBlock** freeLists;   // one per size class, right behind the record

    FreeBlock*& FreeList(size_t roundedSize) { return freeLists[roundedSize / kGranule - 1]; }
};

MemPool* CreatePool(uint32_t flags, size_t puddleSize, size_t threshSize)
{
    if (threshSize == 0 || threshSize > puddleSize || puddleSize > SIZE_MAX / 2)
        return nullptr;
    if (!AllocationAllowed())
        return nullptr;
    size_t classCount = RoundUp(threshSize) / kGranule;
    auto* pool = static_cast<MemPool*>(std::calloc(1, sizeof(MemPool) + classCount * sizeof(FreeBlock*)));
    if (!pool)
        return nullptr;
    pool->flags = flags;
    pool->threshSize = threshSize;
    pool->puddleCapacity = RoundUp(puddleSize);
    pool->large.prev = &pool->large;
    pool->large.next = &pool->large;
    pool->freeLists = reinterpret_cast<FreeBlock**>(pool + 1);
    return pool;
}

void DeletePool(MemPool* pool)
{
    if (!pool)
        return;
    for (Puddle* puddle = pool->puddles; puddle;) {
        Puddle* next = puddle->next;
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

static void* AllocLarge(MemPool* pool, size_t size)
{
    if (size > SIZE_MAX - sizeof(LargeBlock))
        return nullptr;
    size_t total = sizeof(LargeBlock) + size;
    void* raw = (pool->flags & MEMF_CLEAR) ? std::calloc(1, total) : std::malloc(total);
    if (!raw)
        return nullptr;
    auto* block = static_cast<LargeBlock*>(raw);
    block->prev = &pool->large;
    block->next = pool->large.next;
    pool->large.next->prev = block;
    pool->large.next = block;
    return block + 1;
}

static void* AllocSmall(MemPool* pool, size_t size)
{
    size_t rounded = size == 0 ? kGranule : RoundUp(size);
    FreeBlock*& freeList = pool->FreeList(rounded);
    void* block = freeList;
    if (block) {
        freeList = freeList->next;
    } else {
        if (static_cast<size_t>(pool->bumpEnd - pool->bumpNext) < rounded) {
            // The rest of the current puddle is too small; it stays unused.
            auto* puddle = static_cast<Puddle*>(std::malloc(sizeof(Puddle) + pool->puddleCapacity));
            if (!puddle)
                return nullptr;
            puddle->next = pool->puddles;
            pool->puddles = puddle;
            pool->bumpNext = reinterpret_cast<char*>(puddle + 1);
            pool->bumpEnd = pool->bumpNext + pool->puddleCapacity;
        }
        block = pool->bumpNext;
        pool->bumpNext += rounded;
    }
    if (pool->flags & MEMF_CLEAR)
        std::memset(block, 0, rounded);
    return block;
}

static void* AllocPooledBlock(MemPool* pool, size_t size)
{
    return size <= pool->threshSize ? AllocSmall(pool, size) : AllocLarge(pool, size);
}

void* AllocPooled(MemPool* pool, size_t size)
{
    if (!pool || !AllocationAllowed())
        return nullptr;
    return AllocPooledBlock(pool, size);
}

void FreePooled(MemPool* pool, void* memory, size_t size)
{
    if (!pool || !memory)
        return;
    if (size <= pool->threshSize) {
        auto* block = static_cast<FreeBlock*>(memory);
        FreeBlock*& freeList = pool->FreeList(size == 0 ? kGranule : RoundUp(size));
        block->next = freeList;
        freeList = block;
        return;
    }
    LargeBlock* block = static_cast<LargeBlock*>(memory) - 1;
    block->prev->next = block->next;
    block->next->prev = block->prev;
    std::free(block);
}

void* AllocVecPooled(MemPool* pool, size_t size)
{
    if (!pool || size > SIZE_MAX - kVecHeaderSize || !AllocationAllowed())
        return nullptr;
    void* block = AllocPooledBlock(pool, kVecHeaderSize + size);
    if (!block)
        return nullptr;
    *static_cast<size_t*>(block) = size;
    return static_cast<char*>(block) + kVecHeaderSize;
}

void FreeVecPooled(MemPool* pool, void* memory)
{
    if (!memory)
        return;
    char* block = static_cast<char*>(memory) - kVecHeaderSize;
    FreePooled(pool, block, kVecHeaderSize + *reinterpret_cast<size_t*>(block));
}

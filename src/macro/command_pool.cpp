#include "macro/command_pool.h"

#include "platform/exec/memory.h"

#include <cstring>

// The header of a block; the bytes follow it, 16-aligned as AllocVec's.
struct alignas(16) PoolBlock {
    PoolBlock* Next;
    bool Made; // the pool's own chunk or long string, not a variable's block
};

namespace {

PoolBlock* BlockOf(char* data)
{
    return reinterpret_cast<PoolBlock*>(data) - 1;
}
char* DataOf(PoolBlock* block)
{
    return reinterpret_cast<char*>(block + 1);
}

// The chunks strings are carved from, and the longest string carved; a
// longer one has a block of its own, so a chunk wastes at most that much.
constexpr size_t ChunkSize = 64 * 1024;
constexpr size_t LongestCarved = ChunkSize / 16;

// A block of the pool's own on its chain; null when memory is short.
char* MadeBlock(CommandPool* pool, size_t size)
{
    char* block = AllocLooseBlock(size);
    if (!block)
        return nullptr;
    BlockOf(block)->Made = true;
    AdoptLooseBlock(pool, block);
    return block;
}

} // namespace

char* AllocLooseBlock(size_t size)
{
    auto* block = static_cast<PoolBlock*>(AllocVec(sizeof(PoolBlock) + size, MEMF_ANY));
    if (!block)
        return nullptr;
    block->Next = nullptr;
    block->Made = false;
    return DataOf(block);
}

void AdoptLooseBlock(CommandPool* pool, char* data)
{
    if (!data)
        return;
    PoolBlock* block = BlockOf(data);
    block->Next = pool->First;
    pool->First = block;
}

void FreeLooseBlock(char* data)
{
    if (data)
        FreeVec(BlockOf(data));
}

char* PoolAllocate(CommandPool* pool, size_t size)
{
    if (size <= pool->Left) {
        char* carved = pool->Free;
        pool->Free += size;
        pool->Left -= size;
        return carved;
    }
    // A loop that reads a line a turn makes millions of short strings: one
    // allocation each cost more than the rest of the loop.
    if (size > LongestCarved)
        return MadeBlock(pool, size);
    char* chunk = MadeBlock(pool, ChunkSize);
    if (!chunk)
        return nullptr;
    pool->Free = chunk + size;
    pool->Left = ChunkSize - size;
    return chunk;
}

char* PoolString(CommandPool* pool, const char* text, size_t length)
{
    char* copy = PoolAllocate(pool, length + 1);
    if (!copy)
        return nullptr;
    std::memcpy(copy, text, length);
    copy[length] = '\0';
    return copy;
}

void FreeCommandPool(CommandPool* pool)
{
    while (PoolBlock* block = pool->First) {
        pool->First = block->Next;
        FreeVec(block);
    }
    pool->Free = nullptr;
    pool->Left = 0;
}

PoolMark MarkPool(const CommandPool* pool)
{
    return {pool->First, pool->Free, pool->Left};
}

void ReleasePoolTo(CommandPool* pool, const PoolMark& mark)
{
    PoolBlock* kept = mark.First;
    for (PoolBlock* block = pool->First; block != mark.First;) {
        PoolBlock* next = block->Next;
        if (block->Made) {
            FreeVec(block);
        } else {
            block->Next = kept;
            kept = block;
        }
        block = next;
    }
    pool->First = kept;
    pool->Free = mark.Free;
    pool->Left = mark.Left;
}

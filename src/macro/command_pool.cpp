#include "macro/command_pool.h"

#include "platform/exec/memory.h"

#include <cstring>

// The header of a block; the bytes follow it, 16-aligned as AllocVec's.
struct alignas(16) PoolBlock {
    PoolBlock* Next;
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

} // namespace

char* AllocLooseBlock(size_t size)
{
    auto* block = static_cast<PoolBlock*>(AllocVec(sizeof(PoolBlock) + size, MEMF_ANY));
    if (!block)
        return nullptr;
    block->Next = nullptr;
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
    char* block = AllocLooseBlock(size);
    AdoptLooseBlock(pool, block);
    return block;
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
}

#include "macro/regrow_block.h"

#include "platform/exec/memory.h"

#include <cstring>

void* RegrowBlock(void* old, size_t usedSize, size_t newSize, uint32_t flags)
{
    void* block = AllocVec(newSize, flags);
    if (!block)
        return nullptr;
    if (usedSize > 0)
        std::memcpy(block, old, usedSize);
    FreeVec(old);
    return block;
}

#include "config/shared_copy.h"

#include "platform/exec/memory.h"

#include <cstring>

char* SharedCopy(const char* text)
{
    size_t size = std::strlen(text) + 1;
    auto* copy = static_cast<char*>(AllocVec(size, MEMF_SHARED));
    if (copy)
        std::memcpy(copy, text, size);
    return copy;
}

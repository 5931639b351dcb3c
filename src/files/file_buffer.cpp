#include "files/file_buffer.h"

#include "platform/exec/memory.h"
#include "requesters/no_memory.h"

char* GetFileBuffer(TextRecord* record, int32_t* size)
{
    for (int32_t tried = *size; tried > 2000; tried /= 2) {
        if (char* block = NewFileBuffer(tried)) {
            *size = tried;
            return block;
        }
    }
    NoMemoryRequester(record);
    return nullptr;
}

char* NewFileBuffer(int32_t size)
{
    auto* block = static_cast<char*>(AllocVec(static_cast<size_t>(size), MEMF_ANY));
    if (block)
        PrefaultVec(block);
    return block;
}

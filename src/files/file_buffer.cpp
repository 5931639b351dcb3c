#include "files/file_buffer.h"

#include "platform/exec/memory.h"
#include "requesters/no_memory.h"

char* GetFileBuffer(TextRecord* record, int32_t* size)
{
    for (int32_t tried = *size; tried > 2000; tried /= 2) {
        if (auto* block = static_cast<char*>(AllocVec(static_cast<size_t>(tried), MEMF_ANY))) {
            *size = tried;
            return block;
        }
    }
    NoMemoryRequester(record);
    return nullptr;
}

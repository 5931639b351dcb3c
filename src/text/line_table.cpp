#include "text/line_table.h"

#include "platform/exec/memory.h"
#include "text/line_strings.h"
#include "text/no_memory.h"
#include "text/text_record.h"

#include <cassert>
#include <cstring>

MemPool* CreateLinePool()
{
    return CreatePool(MEMF_CLEAR, LinePoolPuddleSize, LinePoolThreshold);
}

bool EnsureLineRoom(TextRecord* record, int32_t n)
{
    assert(n > 0);
    if (record->LineCount < record->LineCapacity) {
        return true;
    }
    const int32_t capacity = record->LineCount + n;
    auto** table = static_cast<char**>(AllocVec(sizeof(char*) * static_cast<size_t>(capacity), MEMF_ANY));
    if (table == nullptr) {
        NoMemoryRequester(record);
        return false;
    }
    std::memcpy(table, record->LineTable, sizeof(char*) * static_cast<size_t>(record->LineCount));
    FreeVec(record->LineTable);
    record->LineTable = table;
    record->LineCapacity = capacity;
    return true;
}

bool StoreLine(TextRecord* record, char* text, int32_t index)
{
    assert(index >= 0 && index <= record->LineCount);
    const int32_t length = TrimLineEnd(text);
    if (!EnsureLineRoom(record, StoreLineRoom)) {
        return false;
    }
    if (length == 0) {
        record->LineTable[index] = nullptr;
        return true;
    }
    auto* copy = static_cast<char*>(AllocVecPooled(record->LinePool, static_cast<size_t>(length) + 1));
    if (copy == nullptr) {
        NoMemoryRequester(record);
        return false;
    }
    std::memcpy(copy, text, static_cast<size_t>(length) + 1);
    record->LineTable[index] = copy;
    return true;
}

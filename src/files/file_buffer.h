#pragma once
// The block a load or a save reads or writes through.
#include <cstdint>

struct TextRecord;

// The size a load or a save asks for first.
constexpr int32_t FileBufferRequest = 32768;

// A block of *size bytes (from AllocVec; FreeVec gives it back). When that
// can't be had the size is halved and tried again, as long as it stays
// above 2000, so 32768 tries 32768, 16384, 8192, 4096 and 2048; *size is
// the size got. Null after NoMemoryRequester when every size failed.
char* GetFileBuffer(TextRecord* record, int32_t* size);

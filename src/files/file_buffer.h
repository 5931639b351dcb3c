#pragma once
// The block a load or a save reads or writes through.
#include <cstdint>

struct TextRecord;

// The size a load or a save asks for first. Large blocks take a large file
// in and out with few system calls, and let the kernel write a save out in
// large pieces; 1 MB measured best for both, and still lies in the
// processor's second-level cache.
constexpr int32_t FileBufferRequest = 1048576;

// A block of *size bytes (from AllocVec; FreeVec gives it back). When that
// can't be had the size is halved and tried again, as long as it stays
// above 2000 (down to 2048 bytes); *size is the size got. Null after
// NoMemoryRequester when every size failed.
char* GetFileBuffer(TextRecord* record, int32_t* size);

// A block of `size` bytes whose pages are all there, or null: the first
// pass through a fresh block would otherwise take a page fault for every
// 4 KB, which costs most while other threads of the program are mapping
// memory, as the display does when the program starts.
char* NewFileBuffer(int32_t size);

#pragma once
// The table of line pointers and the pool of line strings.
#include <cstdint>

struct TextRecord;
struct MemPool;

// The pool of a text's line strings: cleared blocks carved from puddles of
// 4096 bytes; strings longer than 255 characters get blocks of their own.
constexpr uint32_t LinePoolPuddleSize = 4096;
constexpr uint32_t LinePoolThreshold = 256;
// Slots added when the table is full: storing a line asks for 256 (a load
// grows the table in big steps), inserting a line for 32.
constexpr int32_t StoreLineRoom = 256;
constexpr int32_t InsertLineRoom = 32;

MemPool* CreateLinePool();

// Makes sure that slot LineCount exists. With a free slot nothing happens;
// else the table is replaced by one of LineCount + n slots holding the same
// entries. False after NoMemoryRequester, with the old table kept.
bool EnsureLineRoom(TextRecord* record, int32_t n);

// Makes `text` the string of entry `index` (0 .. LineCount; LineCount
// appends a slot that the caller then counts). The caller's buffer loses
// its trailing spaces first; an empty result makes the entry null, anything
// else is copied into the pool. The old string of the entry is the caller's
// to free. False after NoMemoryRequester, with the entry untouched.
bool StoreLine(TextRecord* record, char* text, int32_t index);

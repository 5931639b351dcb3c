#pragma once
// Memory that every task may use, and pools that free all their blocks at
// once. All of it is thread-safe except a single pool, which belongs to the
// task that created it (as a text owns its line pool).
#include <cstddef>
#include <cstdint>

constexpr uint32_t MEMF_ANY = 0;
constexpr uint32_t MEMF_PUBLIC = 1u << 0;
constexpr uint32_t MEMF_CLEAR = 1u << 16;
constexpr uint32_t MEMF_SHARED = 1u << 12;

// Null on failure. With MEMF_CLEAR the block is zeroed.
void* AllocVec(size_t size, uint32_t flags);
void FreeVec(void* memory);   // null is allowed

struct MemPool;
// Blocks up to `threshSize` are carved from puddles of `puddleSize` bytes;
// larger ones get blocks of their own. Null on failure.
MemPool* CreatePool(uint32_t flags, size_t puddleSize, size_t threshSize);
// Frees every block of the pool at once; null is allowed.
void DeletePool(MemPool* pool);
void* AllocPooled(MemPool* pool, size_t size);
void FreePooled(MemPool* pool, void* memory, size_t size);
// Sized by the pool itself, freed without a size (null is allowed).
void* AllocVecPooled(MemPool* pool, size_t size);
void FreeVecPooled(MemPool* pool, void* memory);

// Test hook: after `count` more successful allocations (AllocVec and pool
// allocations alike), every allocation fails until reset with -1.
void SetAllocationFailureCountdown(long count);

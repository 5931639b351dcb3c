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

// Null on failure. With MEMF_CLEAR the block is zeroed. A size of 0 gives a
// valid block of no usable bytes. The size is kept with the block, which is
// aligned to 16 bytes.
void* AllocVec(size_t size, uint32_t flags);
void FreeVec(void* memory);   // null is allowed
// Fills in every page of a block from AllocVec now, in one request to the
// kernel where it can, so that what writes into it next takes no page
// fault per page. The contents are kept.
void PrefaultVec(void* memory);
// The block resized to `size` bytes, its first bytes kept, the rest not
// cleared; it may move. Null on failure, with the old block untouched. A
// null block is allocated.
void* ReallocVec(void* memory, size_t size);

struct MemPool;
// Blocks up to `threshSize` are carved from puddles, the first of
// `puddleSize` bytes and each further one twice as large, up to 2 MB
// (or `puddleSize` when that is larger);
// larger blocks get blocks of their own. With MEMF_CLEAR in `flags` every
// block handed out is zeroed. Null on failure, and when `threshSize` is 0
// or larger than `puddleSize`.
//
// A pool block is aligned only as far as its size asks: to the largest
// power of two that divides the size, at most 16 (a block of 1 to 8 bytes
// is 8-aligned). That suits any array of that total size and packs strings
// byte to byte; a record with a tail of bytes asks for a size rounded up to
// the record's alignment.
MemPool* CreatePool(uint32_t flags, size_t puddleSize, size_t threshSize);
// Frees every block of the pool at once; null is allowed.
void DeletePool(MemPool* pool);
// A block of `size` bytes, or null. A small block costs its size (at least
// 8) and a byte, and what its alignment skips. A freed small block is reused by
// later allocations of the same rounded size; puddles go back only with the
// pool.
void* AllocPooled(MemPool* pool, size_t size);
// `size` must be the size the block was allocated with; null is allowed.
void FreePooled(MemPool* pool, void* memory, size_t size);
// Sized by the pool itself, freed without a size (null is allowed).
void* AllocVecPooled(MemPool* pool, size_t size);
void FreeVecPooled(MemPool* pool, void* memory);

// Test hook: after `count` more successful allocations (AllocVec, CreatePool
// and pool allocations alike, one for each call), every allocation fails
// until reset with -1.
void SetAllocationFailureCountdown(long count);

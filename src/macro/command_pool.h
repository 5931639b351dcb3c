#pragma once
// The pool of one command: every string made while a command compiles and
// runs (literals, joins, results of built-ins) is a block on the pool's
// chain, and all of them go at once when the command's owner frees the
// pool. A loop that builds strings keeps each one until the command ends.
//
// A variable's own text is a block of the same kind outside any pool. When
// an assignment, INIT or RESET lets go of it, the block joins the running
// command's pool instead of being freed: a value taken from the variable
// earlier in the command may still be on the stack, and it stays readable
// until the command ends.
#include <cstddef>

struct PoolBlock;

// Strings are carved one behind the other from chunks on the chain, so a
// string costs its bytes and no allocation of its own; a string too long
// for a chunk's share gets a block of its own on the chain.
struct CommandPool {
    PoolBlock* First = nullptr;
    char* Free = nullptr; // the unused rest of the newest chunk
    size_t Left = 0;      // its bytes
};

// A copy of `length` bytes of `text`, zero-terminated, on the pool's chain;
// null when memory is short.
char* PoolString(CommandPool* pool, const char* text, size_t length);
// `size` bytes on the pool's chain, for the caller to fill; null when
// memory is short.
char* PoolAllocate(CommandPool* pool, size_t size);

// A block of `size` bytes on no chain; null when memory is short.
char* AllocLooseBlock(size_t size);
// Puts a loose block on the pool's chain; null is allowed.
void AdoptLooseBlock(CommandPool* pool, char* block);
// Frees a loose block; null is allowed.
void FreeLooseBlock(char* block);

// Frees every block of the chain and empties it.
void FreeCommandPool(CommandPool* pool);

// Where the pool stood at a moment of the command.
struct PoolMark {
    PoolBlock* First;
    char* Free;
    size_t Left;
};
PoolMark MarkPool(const CommandPool* pool);
// Whether the pool made or took a block since `mark`: when not, there is
// nothing to release.
inline bool PoolChangedSince(const CommandPool* pool, const PoolMark& mark)
{
    return pool->First != mark.First || pool->Free != mark.Free;
}
// Frees every string the pool made since `mark`: the caller knows that no
// value can reach them any more. The blocks that variables let go of stay
// on the chain, as a value taken earlier may still point into them.
void ReleasePoolTo(CommandPool* pool, const PoolMark& mark);

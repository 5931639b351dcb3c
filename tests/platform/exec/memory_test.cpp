#include "platform/exec/memory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

bool AllBytes(const void* memory, size_t size, unsigned char value)
{
    const auto* bytes = static_cast<const unsigned char*>(memory);
    return std::all_of(bytes, bytes + size, [=](unsigned char b) { return b == value; });
}

TEST(Memory, FailureCountdownFailsEveryKindOfAllocation)
{
    MemPool* pool = CreatePool(MEMF_ANY, 4096, 256);
    ASSERT_NE(pool, nullptr);
    SetAllocationFailureCountdown(2);
    void* first = AllocVec(10, MEMF_CLEAR);
    EXPECT_NE(first, nullptr);
    EXPECT_NE(AllocPooled(pool, 10), nullptr);
    EXPECT_EQ(AllocVec(10, 0), nullptr);
    EXPECT_EQ(AllocVecPooled(pool, 1000), nullptr);
    EXPECT_EQ(CreatePool(MEMF_ANY, 4096, 256), nullptr);
    SetAllocationFailureCountdown(-1);
    void* again = AllocVec(10, 0);
    EXPECT_NE(again, nullptr);
    FreeVec(first);
    FreeVec(again);
    DeletePool(pool);
}

// Blocks of all sizes around the threshold, each filled with its own byte:
// an overlap between two live blocks shows as a wrong byte. Half of them are
// freed and allocated again, to run recycled blocks through the same check
// and the clearing. The pool goes with every block still live; the leak
// checker of the sanitizer build proves they all went with it.
TEST(Memory, PoolBlocksNeverOverlapAndGoWithThePool)
{
    MemPool* pool = CreatePool(MEMF_CLEAR, 4096, 256);
    ASSERT_NE(pool, nullptr);
    struct Block {
        unsigned char* memory;
        size_t size;
    };
    std::vector<Block> blocks(20000);
    auto allocate = [&](size_t i) {
        size_t size = (i * 37) % 300;   // small and large blocks, 0 included
        auto* memory = static_cast<unsigned char*>(AllocVecPooled(pool, size));
        ASSERT_NE(memory, nullptr);
        ASSERT_TRUE(AllBytes(memory, size, 0)) << "block " << i << " not cleared";
        std::memset(memory, static_cast<int>(i % 251), size);
        blocks[i] = {memory, size};
    };
    for (size_t i = 0; i < blocks.size(); ++i)
        allocate(i);
    for (size_t i = 0; i < blocks.size(); i += 2)
        FreeVecPooled(pool, blocks[i].memory);
    for (size_t i = 0; i < blocks.size(); i += 2)
        allocate(i);
    for (size_t i = 0; i < blocks.size(); ++i)
        ASSERT_TRUE(AllBytes(blocks[i].memory, blocks[i].size, i % 251)) << "block " << i;
    FreePooled(pool, AllocPooled(pool, 257), 257);
    DeletePool(pool);
}

} // namespace

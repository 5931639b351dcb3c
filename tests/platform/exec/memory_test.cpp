#include "platform/exec/memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

namespace {

class Memory : public ::testing::Test {
protected:
    void TearDown() override { SetAllocationFailureCountdown(-1); }
};

bool AllBytes(const void* memory, size_t size, unsigned char value)
{
    const auto* bytes = static_cast<const unsigned char*>(memory);
    for (size_t i = 0; i < size; ++i) {
        if (bytes[i] != value)
            return false;
    }
    return true;
}

TEST_F(Memory, AllocVecClearsAndAligns)
{
    for (size_t size : {size_t{0}, size_t{1}, size_t{44}, size_t{5000}}) {
        void* block = AllocVec(size, MEMF_PUBLIC | MEMF_CLEAR);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % 16, 0u);
        EXPECT_TRUE(AllBytes(block, size, 0));
        FreeVec(block);
    }
    FreeVec(nullptr);
}

TEST_F(Memory, FailureCountdownFailsEveryKindOfAllocation)
{
    MemPool* pool = CreatePool(MEMF_ANY, 4096, 256);
    ASSERT_NE(pool, nullptr);
    SetAllocationFailureCountdown(2);
    void* first = AllocVec(10, 0);
    void* second = AllocPooled(pool, 10);
    EXPECT_NE(first, nullptr);
    EXPECT_NE(second, nullptr);
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

TEST_F(Memory, PoolRejectsThresholdAbovePuddle)
{
    EXPECT_EQ(CreatePool(MEMF_ANY, 256, 257), nullptr);
    EXPECT_EQ(CreatePool(MEMF_ANY, 256, 0), nullptr);
}

// Blocks of all sizes around the threshold, each filled with its own byte:
// an overlap between two live blocks shows as a wrong byte. Half of them are
// freed and allocated again, to run the recycled blocks through the same
// check. The pool is deleted with every block still live; the leak checker
// of the sanitizer build proves they all went with it.
TEST_F(Memory, PoolBlocksNeverOverlapAndGoWithThePool)
{
    MemPool* pool = CreatePool(MEMF_CLEAR, 4096, 256);
    ASSERT_NE(pool, nullptr);
    struct Block {
        unsigned char* memory;
        size_t size;
    };
    std::vector<Block> blocks;
    auto allocate = [&](size_t i) {
        size_t size = (i * 37) % 300;   // small and large blocks, 0 included
        auto* memory = static_cast<unsigned char*>(AllocVecPooled(pool, size));
        ASSERT_NE(memory, nullptr);
        ASSERT_TRUE(AllBytes(memory, size, 0)) << "block " << i << " not cleared";
        std::memset(memory, static_cast<int>(i % 251), size);
        blocks[i] = {memory, size};
    };
    blocks.resize(20000);
    for (size_t i = 0; i < blocks.size(); ++i)
        allocate(i);
    for (size_t i = 0; i < blocks.size(); i += 2)
        FreeVecPooled(pool, blocks[i].memory);
    for (size_t i = 0; i < blocks.size(); i += 2)
        allocate(i);
    for (size_t i = 0; i < blocks.size(); ++i)
        ASSERT_TRUE(AllBytes(blocks[i].memory, blocks[i].size, i % 251)) << "block " << i;

    // Sized frees of small and large blocks alike.
    void* small = AllocPooled(pool, 256);
    void* large = AllocPooled(pool, 257);
    ASSERT_TRUE(small && large);
    FreePooled(pool, small, 256);
    FreePooled(pool, large, 257);
    DeletePool(pool);
    DeletePool(nullptr);
}

} // namespace

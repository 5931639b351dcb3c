#include "platform/exec/memory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
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

// Heap blocks and blocks mapped from the kernel (from 2 MB with the
// header) alike: aligned, cleared when asked, usable to the last byte.
TEST(Memory, AllocVecBlocksOfEverySize)
{
    constexpr size_t hugePage = size_t{2} << 20;
    for (size_t size : {size_t{0}, size_t{1}, size_t{1000}, hugePage - 17, hugePage - 16, 5 * hugePage + 3}) {
        auto* memory = static_cast<unsigned char*>(AllocVec(size, MEMF_CLEAR));
        ASSERT_NE(memory, nullptr) << size;
        EXPECT_EQ(reinterpret_cast<uintptr_t>(memory) % 16, 0u) << size;
        EXPECT_TRUE(AllBytes(memory, size, 0)) << size;
        std::memset(memory, 0xA5, size);
        EXPECT_TRUE(AllBytes(memory, size, 0xA5)) << size;
        FreeVec(memory);
    }
}

// A block grown and shrunk across the size from which blocks are mapped
// from the kernel keeps its first bytes each time; a failed resize keeps
// the old block as it was.
TEST(Memory, ReallocVecKeepsTheBytesAcrossEverySize)
{
    constexpr size_t hugePage = size_t{2} << 20;
    auto* memory = static_cast<unsigned char*>(ReallocVec(nullptr, 100));
    ASSERT_NE(memory, nullptr);
    size_t kept = 100;
    std::memset(memory, 0x5A, kept);
    for (size_t size : {size_t{5000}, hugePage - 100, hugePage + 100, 3 * hugePage, size_t{300}, size_t{4000}}) {
        auto* resized = static_cast<unsigned char*>(ReallocVec(memory, size));
        ASSERT_NE(resized, nullptr) << size;
        EXPECT_EQ(reinterpret_cast<uintptr_t>(resized) % 16, 0u) << size;
        EXPECT_TRUE(AllBytes(resized, std::min(kept, size), 0x5A)) << size;
        memory = resized;
        kept = size;
        std::memset(memory, 0x5A, kept);
        PrefaultVec(memory);
        EXPECT_TRUE(AllBytes(memory, kept, 0x5A)) << "prefaulting keeps the bytes, " << size;
    }
    SetAllocationFailureCountdown(0);
    EXPECT_EQ(ReallocVec(memory, 2 * hugePage), nullptr);
    EXPECT_EQ(ReallocVec(memory, 10), nullptr);
    SetAllocationFailureCountdown(-1);
    EXPECT_TRUE(AllBytes(memory, kept, 0x5A));
    FreeVec(memory);
}

struct PoolShape {
    const char* name;
    uint32_t flags;
    size_t puddleSize;
    size_t threshSize;
    size_t largestBlock;   // sizes run from 0 to here, past the threshold
    size_t blockCount;     // enough to fill puddles of huge-page size
};

const PoolShape poolShapes[] = {
    {"LinePool", MEMF_CLEAR, 4096, 256, 300, 20000},
    {"Uncleared", MEMF_ANY, 4096, 256, 300, 20000},
    {"SizesBeyondOneByteTags", MEMF_CLEAR, 8192, 8192, 9000, 1500},
    {"ThresholdIsPuddleSize", MEMF_CLEAR, 64, 64, 80, 60000},
};

class PoolShapes : public testing::TestWithParam<PoolShape> {};

// A pool block is aligned as an array of its size needs.
size_t ExpectedAlignment(size_t size)
{
    return size <= 8 ? 8 : std::min<size_t>(16, size & (~size + 1));
}

// Blocks of all sizes around the threshold, each filled with its own byte:
// an overlap between two live blocks shows as a wrong byte. Half of them are
// freed, one way or the other, and allocated again, to run recycled blocks
// through the same checks and the clearing. The pool goes with every block
// still live; the leak checker of the sanitizer build proves that the heap
// puddles and large blocks all went with it.
TEST_P(PoolShapes, BlocksAlignedApartClearedAndGoWithThePool)
{
    const PoolShape& shape = GetParam();
    MemPool* pool = CreatePool(shape.flags, shape.puddleSize, shape.threshSize);
    ASSERT_NE(pool, nullptr);
    struct Block {
        unsigned char* memory;
        size_t size;
    };
    std::vector<Block> blocks(shape.blockCount);
    auto allocate = [&](size_t i) {
        const size_t size = (i * 37) % (shape.largestBlock + 1);
        auto* memory = static_cast<unsigned char*>(i % 3 ? AllocVecPooled(pool, size) : AllocPooled(pool, size));
        ASSERT_NE(memory, nullptr);
        ASSERT_EQ(reinterpret_cast<uintptr_t>(memory) % ExpectedAlignment(size), 0u) << "block " << i << " of " << size;
        if (shape.flags & MEMF_CLEAR) {
            ASSERT_TRUE(AllBytes(memory, size, 0)) << "block " << i << " not cleared";
        }
        std::memset(memory, static_cast<int>(i % 251), size);
        blocks[i] = {memory, size};
    };
    for (size_t i = 0; i < blocks.size(); ++i)
        allocate(i);
    for (size_t i = 0; i < blocks.size(); i += 2) {
        if (i % 4)
            FreeVecPooled(pool, blocks[i].memory);
        else
            FreePooled(pool, blocks[i].memory, blocks[i].size);
    }
    for (size_t i = 0; i < blocks.size(); i += 2)
        allocate(i);
    for (size_t i = 0; i < blocks.size(); ++i)
        ASSERT_TRUE(AllBytes(blocks[i].memory, blocks[i].size, i % 251)) << "block " << i;
    DeletePool(pool);
}

INSTANTIATE_TEST_SUITE_P(Memory, PoolShapes, testing::ValuesIn(poolShapes),
                         [](const auto& info) { return std::string(info.param.name); });

// A text that edits a line all day reuses one block for it.
TEST(Memory, FreedBlockServesTheNextOfItsSize)
{
    MemPool* pool = CreatePool(MEMF_CLEAR, 4096, 256);
    ASSERT_NE(pool, nullptr);
    for (size_t size : {1, 8, 37, 256}) {
        void* first = AllocVecPooled(pool, size);
        std::memset(first, 'x', size);
        FreeVecPooled(pool, first);
        void* again = AllocVecPooled(pool, size);
        EXPECT_EQ(again, first) << size;
        EXPECT_TRUE(AllBytes(again, size, 0)) << size;
    }
    DeletePool(pool);
}

} // namespace

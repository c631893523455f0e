// The core allocator's accounting and its refusals.
#include "MxtMemoryControllerController"

#include "core_test_support.h"

#include <cstdint>

namespace {

using MemoryController = CoreTest;

TEST_F(MemoryController, CountsLiveBlocksAndBytesAndNullsTheBlockItFrees)
{
    const std::size_t blocks = MxtMemoryControllerController::liveBlocks();
    const std::size_t bytes = MxtMemoryControllerController::liveBytes();
    unsigned char* block = MxtMemoryControllerController::allocateArray(3, 40);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(MxtMemoryControllerController::liveBlocks(), blocks + 1);
    EXPECT_EQ(MxtMemoryControllerController::liveBytes(), bytes + 120);

    MxtMemoryControllerController::deallocateArray(block);
    EXPECT_EQ(block, nullptr);
    MxtMemoryControllerController::deallocateArray(block);  // null is accepted
    EXPECT_TRUE(MxtAssert::reports().empty());
}

TEST_F(MemoryController, RefusesEmptyOrOversizedRequestsAndFailsOnceWhenAsked)
{
    EXPECT_EQ(MxtMemoryControllerController::allocateArray(0, 8), nullptr);
    EXPECT_EQ(MxtMemoryControllerController::allocateArray(-1, 8), nullptr);
    EXPECT_EQ(MxtMemoryControllerController::allocateArray(4, 0), nullptr);
    EXPECT_EQ(MxtMemoryControllerController::allocateArray(INT32_MAX, SIZE_MAX / 2), nullptr);

    MxtMemoryControllerController::failNextAllocation();
    EXPECT_EQ(MxtMemoryControllerController::allocateArray(1, 8), nullptr);
    unsigned char* block = MxtMemoryControllerController::allocateArray(1, 8);
    EXPECT_NE(block, nullptr);
    MxtMemoryControllerController::deallocateArray(block);
}

TEST_F(MemoryController, ABlockItDidNotHandOutIsReportedAndLeftAlone)
{
    unsigned char foreign[16] = {};
    unsigned char* block = foreign;
    MxtMemoryControllerController::deallocateArray(block);
    EXPECT_EQ(block, foreign);
    ASSERT_EQ(MxtAssert::reports().size(), 1u);
    EXPECT_EQ(MxtAssert::reports()[0].condition, "block was allocated by allocateArray");
}

}  // namespace

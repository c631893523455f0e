// The contract reports of MxtArray: condition text, source path and line, and what the array does
// after reporting.
#include "MxtArray"

#include "core_test_support.h"

namespace {

using testing::ElementsAre;
using ArrayContract = CoreTest;

TEST_F(ArrayContract, AccessOutsideTheCountReportsAndStillReadsTheSlot)
{
    MxtArray<int> numbers;
    numbers.setLength(6);
    numbers[5] = 55;
    numbers.setLength(3);
    MxtAssert::clearReports();

    numbers[3] = 33;
    const MxtArray<int>& readOnly = numbers;
    EXPECT_EQ(readOnly[5], 55);
    EXPECT_EQ(readOnly[3], 33);
    EXPECT_THAT(MxtAssert::reports(),
                ElementsAre(IsReport("isValid( index )", 514), IsReport("isValid( index )", 524),
                            IsReport("isValid( index )", 524)));
}

TEST_F(ArrayContract, NegativeLengthsAreReportedAndLeaveTheStorageAlone)
{
    MxtArray<int> numbers;
    numbers.setAtGrow(2, 7);
    const int* storage = numbers.getData();

    numbers.setLength(-1);
    numbers.setPhysicalLength(-1);
    EXPECT_THAT(MxtAssert::reports(),
                ElementsAre(IsReport("len>=0", 604), IsReport("newPhysicalLen >= 0", 655)));
    EXPECT_EQ(numbers.getData(), storage);
    EXPECT_EQ(numbers.getPhysicalLength(), 8);
    EXPECT_EQ(storage[2], 7);
}

TEST_F(ArrayContract, FreeingAbsentStorageKeepsTheCountANegativeLengthLeft)
{
    MxtArray<int> numbers;
    numbers.setLength(-3);
    numbers.setPhysicalLength(0);

    EXPECT_THAT(MxtAssert::reports(), ElementsAre(IsReport("len>=0", 604)));
    EXPECT_EQ(numbers.getLength(), -3);
    EXPECT_EQ(numbers.getPhysicalLength(), 0);
    EXPECT_EQ(numbers.getData(), nullptr);
}

TEST_F(ArrayContract, AllocationThatReturnsNothingIsReportedBeforeTheBlockIsUsed)
{
    // The array goes on with the null block as the core library's does, which ends the process;
    // the report on the error stream is what remains of it.
    EXPECT_DEATH(
        {
            MxtMemoryControllerController::failNextAllocation();
            MxtArray<int> numbers;
            numbers.setLength(1);
        },
        "pElements != NULL && numElements > 0.*Sources/Base/QRNRoots/Exp/MxtArray:101");
}

}  // namespace

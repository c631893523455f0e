// The fuzz targets' models on the documented cases of the rules they stand for: a model that got a
// rule wrong would pass a fault that matches its own, or report faults the code does not have.
#include "array_model.h"
#include "path_merge_model.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using fuzz::ArrayModel;
using fuzz::ContractReport;
using fuzz::mergePaths;

TEST(PathMergeModel, AppendsFoldersThePathDoesNotMentionInAnyLetterCase)
{
    EXPECT_EQ(mergePaths(L"c:\\a;c:\\b", {L"C:\\B", L"c:\\c"}), L"c:\\a;c:\\b;c:\\c");
    EXPECT_EQ(mergePaths(L"c:\\abc", {L"c:\\ab"}), L"c:\\abc");
    EXPECT_EQ(mergePaths(L"", {L"x", L"y"}), L";x;y");
    EXPECT_EQ(mergePaths(L"c:\\a", {L"d:\\n", L"D:\\N"}), L"c:\\a;d:\\n;D:\\N");
}

TEST(PathMergeModel, FoldsCapitalsBeyondAsciiToTheirSmallLettersOnly)
{
    EXPECT_EQ(mergePaths(L"c:\\\u00e4\u03c3\u0436", {L"C:\\\u00c4\u03a3\u0416"}), L"c:\\\u00e4\u03c3\u0436");
    EXPECT_EQ(mergePaths(L"d:\\i", {L"D:\\\u0130"}), L"d:\\i");
    // Small letters stay as they are: final sigma is no sigma, dotless i no i.
    EXPECT_EQ(mergePaths(L"\u03c3", {L"\u03c2"}), L"\u03c3;\u03c2");
    EXPECT_EQ(mergePaths(L"i", {L"\u0131"}), L"i;\u0131");
}

TEST(ArrayModel, GrowsInWholeStepsOfEightAndKeepsStorageWhenShrinking)
{
    ArrayModel array;
    array.setLength(1);
    EXPECT_EQ(array.physicalLength(), 8);
    array.setLength(9);
    EXPECT_EQ(array.physicalLength(), 16);
    array.setLength(3);
    EXPECT_EQ(array.count(), 3);
    EXPECT_EQ(array.physicalLength(), 16);
}

TEST(ArrayModel, OnlyAShrinkToThreeQuartersOrLessReallocates)
{
    ArrayModel array;
    array.setLength(16);
    array.write(15, 7);
    array.setPhysicalLength(13);
    EXPECT_EQ(array.physicalLength(), 16);
    EXPECT_EQ(array.slots()[15], 7);
    array.setPhysicalLength(12);
    EXPECT_EQ(array.physicalLength(), 12);
    EXPECT_EQ(array.count(), 12);
}

TEST(ArrayModel, SetAtGrowPastTheEndLeavesFreshSlotsBefore)
{
    ArrayModel array;
    array.setAtGrow(8, 5);
    EXPECT_EQ(array.count(), 9);
    EXPECT_EQ(array.physicalLength(), 16);
    EXPECT_EQ(array.slots(), (std::vector<int>{0, 0, 0, 0, 0, 0, 0, 0, 5, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(ArrayModel, ContractViolationsAreReportedAndTheOperationGoesOn)
{
    ArrayModel array;
    array.setLength(-2);
    EXPECT_EQ(array.count(), -2);
    array.setPhysicalLength(-1);
    EXPECT_EQ(array.takeReports(), (std::vector<ContractReport>{{"len>=0", 604}, {"newPhysicalLen >= 0", 655}}));

    array.setLength(2);
    array.write(5, 9);  // past the count, within the storage
    EXPECT_EQ(array.read(5), 9);
    EXPECT_EQ(array.read(1), 0);
    EXPECT_EQ(array.takeReports(),
              (std::vector<ContractReport>{{"isValid( index )", 514}, {"isValid( index )", 524}}));
}

TEST(ArrayModel, SlotsPastTheCountKeepTheirValuesUntilReallocated)
{
    ArrayModel array;
    array.setLength(4);
    array.write(3, 1);
    array.setLength(2);
    array.setLength(4);
    EXPECT_EQ(array.slots()[3], 1);
    array.setLength(2);
    array.setPhysicalLength(4);  // copies the elements below the count only
    array.setLength(4);
    EXPECT_EQ(array.physicalLength(), 4);
    EXPECT_EQ(array.slots()[3], 0);
}

}  // namespace

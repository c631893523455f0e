// Growth, reallocation and copying of MxtArray, for plain values, strings and records.
#include "MxtArray"

#include "core_test_support.h"

#include <functional>
#include <string>

namespace {

using ArrayGrowth = CoreTest;

struct MenuItemRecord {
    int index = -1;
    MxtString label;
    MxtString macro;
};

std::size_t allocationsDuring(const std::function<void()>& step)
{
    const std::size_t before = MxtMemoryControllerController::allocationCount();
    step();
    return MxtMemoryControllerController::allocationCount() - before;
}

TEST_F(ArrayGrowth, SetLengthGrowsToWholeMultiplesOfEightAndNeverGivesStorageBack)
{
    MxtArray<int> numbers;
    EXPECT_EQ(numbers.getGrowBy(), 8);
    EXPECT_EQ(numbers.getPhysicalLength(), 0);
    EXPECT_EQ(numbers.getData(), nullptr);

    EXPECT_EQ(allocationsDuring([&] { numbers.setLength(1); }), 1u);
    EXPECT_EQ(numbers.getPhysicalLength(), 8);
    EXPECT_EQ(allocationsDuring([&] { numbers.setLength(8); }), 0u);
    EXPECT_EQ(numbers.getPhysicalLength(), 8);
    numbers.setLength(9);
    EXPECT_EQ(numbers.getPhysicalLength(), 16);
    numbers.setLength(3);
    EXPECT_EQ(numbers.getLength(), 3);
    EXPECT_EQ(numbers.getPhysicalLength(), 16);
    numbers.setLength(17);
    EXPECT_EQ(numbers.getPhysicalLength(), 24);
    EXPECT_TRUE(MxtAssert::reports().empty());
}

TEST_F(ArrayGrowth, SetPhysicalLengthIgnoresShrinksAboveThreeQuartersAndOtherwiseReallocatesExactly)
{
    MxtArray<MxtString> names;
    names.setLength(14);
    for (int i = 0; i < 14; ++i)
        names[i] = std::to_wstring(i).c_str();
    const MxtString* storage = names.getData();

    EXPECT_EQ(allocationsDuring([&] { names.setPhysicalLength(13); }), 0u);  // 13 > 0.75 * 16
    EXPECT_EQ(names.getData(), storage);
    EXPECT_EQ(names.getPhysicalLength(), 16);

    names.setPhysicalLength(12);
    EXPECT_EQ(names.getPhysicalLength(), 12);
    EXPECT_EQ(names.getLength(), 12);
    EXPECT_EQ(names[11], MxtString(L"11"));

    names.setPhysicalLength(20);  // growing is exact, not rounded to the grow-by
    EXPECT_EQ(names.getPhysicalLength(), 20);
    EXPECT_EQ(names[0], MxtString(L"0"));

    names.setPhysicalLength(0);
    EXPECT_EQ(names.getData(), nullptr);
    EXPECT_EQ(names.getLength(), 0);
    EXPECT_EQ(names.getPhysicalLength(), 0);
    EXPECT_EQ(allocationsDuring([&] { names.setPhysicalLength(0); }), 0u);
}

TEST_F(ArrayGrowth, SlotsPastTheCountKeepTheirValuesUntilTheStorageIsReplaced)
{
    MxtArray<MxtString> names;
    names.setLength(3);
    names[0] = L"zero";
    names[1] = L"one";
    names[2] = L"two";

    names.setLength(1);
    names.setLength(3);
    EXPECT_EQ(names[1], MxtString(L"one"));
    EXPECT_EQ(names[2], MxtString(L"two"));

    // Reallocation carries only the elements in use over; the rest start afresh.
    names.setLength(1);
    names.setPhysicalLength(32);
    EXPECT_EQ(names[0], MxtString(L"zero"));
    EXPECT_TRUE(names.getData()[1].isEmpty());
    EXPECT_TRUE(names.getData()[2].isEmpty());
}

TEST_F(ArrayGrowth, SetAtGrowOnAnEmptyArrayValueInitialisesTheSlotsBeforeTheIndex)
{
    MxtArray<int> numbers;
    numbers.setAtGrow(8, 42);
    EXPECT_EQ(numbers.getLength(), 9);
    EXPECT_EQ(numbers.getPhysicalLength(), 16);
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(numbers.getData()[i], i == 8 ? 42 : 0) << "slot " << i;

    MxtArray<MenuItemRecord> items;
    items.setAtGrow(8, MenuItemRecord{3, L"&Open", L"^C^C_open"});
    EXPECT_EQ(items[0].index, -1);  // the record's own default, not zero bytes
    EXPECT_TRUE(items[7].label.isEmpty());
    EXPECT_EQ(items[8].macro, MxtString(L"^C^C_open"));

    items.setAtGrow(2, MenuItemRecord{5, L"Close", L""});  // inside the count: no growth
    EXPECT_EQ(items.getLength(), 9);
    EXPECT_EQ(items[2].index, 5);
}

TEST_F(ArrayGrowth, AppendingAnElementOfTheSameArrayWhileItReallocatesCopiesTheValue)
{
    MxtArray<MxtString> names;
    for (int i = 0; i < 8; ++i)
        names.add(i == 0 ? L"first" : L"other");
    ASSERT_EQ(names.getPhysicalLength(), 8);

    EXPECT_EQ(names.add(names[0]), 8);
    EXPECT_EQ(names.getPhysicalLength(), 16);
    EXPECT_EQ(names[8], MxtString(L"first"));
}

TEST_F(ArrayGrowth, CopiesAreDeepAndIndependent)
{
    MxtArray<MenuItemRecord> items;
    for (int i = 0; i < 10; ++i)
        items.add(MenuItemRecord{i, L"label", L"macro"});

    MxtArray<MenuItemRecord> copy(items);
    EXPECT_NE(copy.getData(), items.getData());
    ASSERT_EQ(copy.getLength(), 10);
    copy[9].label = L"changed";
    EXPECT_EQ(items[9].label, MxtString(L"label"));
    EXPECT_EQ(copy[9].index, 9);

    MxtArray<MenuItemRecord> assigned;
    assigned.setLength(20);
    assigned = items;
    EXPECT_EQ(assigned.getLength(), 10);
    EXPECT_EQ(assigned[4].index, 4);

    const MxtArray<MenuItemRecord>& itself = assigned;
    assigned = itself;
    EXPECT_EQ(assigned.getLength(), 10);
    EXPECT_EQ(assigned[9].label, MxtString(L"label"));
}

}  // namespace

// References that an array of owning host-object pointers holds through growth, shrinking and
// destruction.
#include "MxtArray"

#include "core_test_support.h"
#include "test_widget.h"

namespace {

using ArrayReferences = CoreTest;

TEST_F(ArrayReferences, ReallocationLeavesExactlyOneReferencePerSlot)
{
    TestWidget first;
    TestWidget second;
    {
        MxtArray<ITestWidgetPtr> objects;
        for (int i = 0; i < 8; ++i)
            objects.add(ITestWidgetPtr(&first));
        objects.add(ITestWidgetPtr(&second));  // the ninth element moves everything to new storage
        EXPECT_EQ(objects.getPhysicalLength(), 16);
        EXPECT_EQ(first.references(), 8u);
        EXPECT_EQ(second.references(), 1u);
        EXPECT_EQ(objects[8].GetInterfacePtr(), static_cast<ITestWidget*>(&second));
    }
    EXPECT_EQ(first.references(), 0u);
    EXPECT_EQ(second.references(), 0u);
}

TEST_F(ArrayReferences, SlotsPastTheCountHoldTheirReferencesUntilReallocationOrDestruction)
{
    TestWidget kept;
    TestWidget dropped;
    TestWidget leftOver;
    {
        MxtArray<ITestWidgetPtr> objects;
        objects.add(ITestWidgetPtr(&kept));
        objects.add(ITestWidgetPtr(&dropped));
        objects.setLength(1);
        EXPECT_EQ(dropped.references(), 1u) << "shrinking the count releases nothing";

        objects.setPhysicalLength(4);  // 4 <= 0.75 * 8: new storage, one element carried over
        EXPECT_EQ(kept.references(), 1u);
        EXPECT_EQ(dropped.references(), 0u);

        objects.add(ITestWidgetPtr(&leftOver));
        objects.setLength(0);
        EXPECT_EQ(leftOver.references(), 1u);
    }
    EXPECT_EQ(kept.references(), 0u);
    EXPECT_EQ(leftOver.references(), 0u) << "destruction releases slots past the count too";
}

TEST_F(ArrayReferences, SetAtGrowReplacesReferencesAndLeavesSkippedSlotsNull)
{
    TestWidget first;
    TestWidget second;
    MxtArray<ITestWidgetPtr> objects;
    objects.setAtGrow(8, ITestWidgetPtr(&first));
    EXPECT_EQ(objects.getLength(), 9);
    for (int i = 0; i < 8; ++i)
        EXPECT_FALSE(objects[i]) << "slot " << i;

    objects.setAtGrow(8, ITestWidgetPtr(&first));
    EXPECT_EQ(first.references(), 1u);
    objects.setAtGrow(8, ITestWidgetPtr(&second));
    EXPECT_EQ(first.references(), 0u);
    EXPECT_EQ(second.references(), 1u);

    {
        const MxtArray<ITestWidgetPtr> copy(objects);
        EXPECT_EQ(second.references(), 2u);
    }
    EXPECT_EQ(second.references(), 1u);
}

}  // namespace

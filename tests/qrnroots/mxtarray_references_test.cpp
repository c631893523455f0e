// References that an array of owning host-object pointers holds through growth, shrinking and
// destruction.
#include "MxtArray"

#include "core_test_support.h"
#include "counted_object.h"

namespace {

using ArrayReferences = CoreTest;

TEST_F(ArrayReferences, ReallocationLeavesExactlyOneReferencePerSlot)
{
    CountedObject first;
    CountedObject second;
    {
        MxtArray<ICountedPtr> objects;
        for (int i = 0; i < 8; ++i)
            objects.add(ICountedPtr(&first));
        objects.add(ICountedPtr(&second));  // the ninth element moves everything to new storage
        EXPECT_EQ(objects.getPhysicalLength(), 16);
        EXPECT_EQ(first.references(), 8u);
        EXPECT_EQ(second.references(), 1u);
        EXPECT_EQ(objects[8].GetInterfacePtr(), static_cast<ICounted*>(&second));
    }
    EXPECT_EQ(first.references(), 0u);
    EXPECT_EQ(second.references(), 0u);
}

TEST_F(ArrayReferences, SlotsPastTheCountHoldTheirReferencesUntilReallocationOrDestruction)
{
    CountedObject kept;
    CountedObject dropped;
    CountedObject leftOver;
    {
        MxtArray<ICountedPtr> objects;
        objects.add(ICountedPtr(&kept));
        objects.add(ICountedPtr(&dropped));
        objects.setLength(1);
        EXPECT_EQ(dropped.references(), 1u) << "shrinking the count releases nothing";

        objects.setPhysicalLength(4);  // 4 <= 0.75 * 8: new storage, one element carried over
        EXPECT_EQ(kept.references(), 1u);
        EXPECT_EQ(dropped.references(), 0u);

        objects.add(ICountedPtr(&leftOver));
        objects.setLength(0);
        EXPECT_EQ(leftOver.references(), 1u);
    }
    EXPECT_EQ(kept.references(), 0u);
    EXPECT_EQ(leftOver.references(), 0u) << "destruction releases slots past the count too";
}

TEST_F(ArrayReferences, SetAtGrowReplacesReferencesAndLeavesSkippedSlotsNull)
{
    CountedObject first;
    CountedObject second;
    MxtArray<ICountedPtr> objects;
    objects.setAtGrow(8, ICountedPtr(&first));
    EXPECT_EQ(objects.getLength(), 9);
    for (int i = 0; i < 8; ++i)
        EXPECT_FALSE(objects[i]) << "slot " << i;

    objects.setAtGrow(8, ICountedPtr(&first));
    EXPECT_EQ(first.references(), 1u);
    objects.setAtGrow(8, ICountedPtr(&second));
    EXPECT_EQ(first.references(), 0u);
    EXPECT_EQ(second.references(), 1u);

    {
        const MxtArray<ICountedPtr> copy(objects);
        EXPECT_EQ(second.references(), 2u);
    }
    EXPECT_EQ(second.references(), 1u);
}

}  // namespace

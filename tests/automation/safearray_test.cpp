// One-dimensional safe arrays: bounds, copying elements in and out, locking, and ownership.
#include <gtest/gtest.h>

#include "automation.h"
#include "test_text.h"
#include "test_widget.h"

namespace {

// Destroys the array at scope exit.
struct ArrayOwner {
    SAFEARRAY* array;
    ~ArrayOwner() { SafeArrayDestroy(array); }
};

BSTR stringAt(SAFEARRAY* array, LONG index)
{
    BSTR copy = nullptr;
    EXPECT_EQ(SafeArrayGetElement(array, &index, &copy), S_OK);
    return copy;
}

}  // namespace

TEST(SafeArray, ReportsItsTypeAndBoundsAndRefusesIndicesOutsideThem)
{
    ArrayOwner owner{SafeArrayCreateVector(VT_BSTR, 1, 3)};
    ASSERT_NE(owner.array, nullptr);
    LONG lowerBound = 0;
    LONG upperBound = 0;
    EXPECT_EQ(SafeArrayGetDim(owner.array), 1u);
    EXPECT_EQ(SafeArrayGetLBound(owner.array, 1, &lowerBound), S_OK);
    EXPECT_EQ(SafeArrayGetUBound(owner.array, 1, &upperBound), S_OK);
    EXPECT_EQ(lowerBound, 1);
    EXPECT_EQ(upperBound, 3);
    EXPECT_EQ(SafeArrayGetLBound(owner.array, 2, &lowerBound), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetUBound(owner.array, 0, &upperBound), DISP_E_BADINDEX);

    BSTR text = SysAllocString(L"x");
    for (LONG outside : {0L, 4L}) {
        EXPECT_EQ(SafeArrayPutElement(owner.array, &outside, text), DISP_E_BADINDEX);
        BSTR copy = nullptr;
        EXPECT_EQ(SafeArrayGetElement(owner.array, &outside, &copy), DISP_E_BADINDEX);
    }
    SysFreeString(text);

    SAFEARRAYBOUND bound{4, -2};
    ArrayOwner created{SafeArrayCreate(VT_R8, 1, &bound)};
    ASSERT_NE(created.array, nullptr);
    SafeArrayGetUBound(created.array, 1, &upperBound);
    EXPECT_EQ(upperBound, 1);
    VARTYPE type = VT_EMPTY;
    EXPECT_EQ(SafeArrayGetVartype(created.array, &type), S_OK);
    EXPECT_EQ(type, VT_R8);

    // Deep copies are VariantCopy's tests; a copy of no array is none.
    SAFEARRAY* none = created.array;
    EXPECT_EQ(SafeArrayCopy(nullptr, &none), S_OK);
    EXPECT_EQ(none, nullptr);
}

TEST(SafeArray, AnElementHoldsExactlyOneValueOfItsType)
{
    ArrayOwner longs{SafeArrayCreateVector(VT_I4, 0, 1)};
    ArrayOwner doubles{SafeArrayCreateVector(VT_R8, 0, 1)};
    ArrayOwner strings{SafeArrayCreateVector(VT_BSTR, 0, 1)};
    EXPECT_EQ(SafeArrayGetElemsize(longs.array), sizeof(LONG));
    EXPECT_EQ(SafeArrayGetElemsize(doubles.array), sizeof(double));
    EXPECT_EQ(SafeArrayGetElemsize(strings.array), sizeof(BSTR));

    LONG index = 0;
    LONG value = -123456;
    ASSERT_EQ(SafeArrayPutElement(longs.array, &index, &value), S_OK);
    LONG read = 0;
    ASSERT_EQ(SafeArrayGetElement(longs.array, &index, &read), S_OK);
    EXPECT_EQ(read, -123456);
}

TEST(SafeArray, StringsAndVariantsAreCopiedInAndOut)
{
    ArrayOwner owner{SafeArrayCreateVector(VT_BSTR, 0, 2)};
    BSTR text = SysAllocString(L"label");
    LONG index = 1;
    ASSERT_EQ(SafeArrayPutElement(owner.array, &index, text), S_OK);
    SysFreeString(text);  // the array keeps its own copy

    BSTR first = stringAt(owner.array, 1);
    BSTR second = stringAt(owner.array, 1);
    EXPECT_EQ(textOf(first), L"label");
    EXPECT_NE(first, second);
    SysFreeString(first);
    SysFreeString(second);

    // The unset element is a null string.
    BSTR unset = stringAt(owner.array, 0);
    EXPECT_EQ(SysStringLen(unset), 0u);
    SysFreeString(unset);

    ArrayOwner variants{SafeArrayCreateVector(VT_VARIANT, 0, 1)};
    index = 0;
    _variant_t inside(L"inside");
    ASSERT_EQ(SafeArrayPutElement(variants.array, &index, &inside), S_OK);
    inside.Clear();  // the array keeps its own copy
    _variant_t copy;
    ASSERT_EQ(SafeArrayGetElement(variants.array, &index, &copy), S_OK);
    EXPECT_EQ(V_VT(&copy), VT_BSTR);
    EXPECT_EQ(textOf(V_BSTR(&copy)), L"inside");
}

TEST(SafeArray, DataAccessLocksTheArray)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_R8, 0, 3);
    double* values = nullptr;
    ASSERT_EQ(SafeArrayAccessData(array, reinterpret_cast<void**>(&values)), S_OK);
    values[2] = 9.5;
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayUnaccessData(array), E_UNEXPECTED);

    LONG index = 2;
    double read = 0;
    SafeArrayGetElement(array, &index, &read);
    EXPECT_EQ(read, 9.5);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, HoldsAReferenceToEachObject)
{
    TestWidget widget;
    SAFEARRAY* array = SafeArrayCreateVector(VT_DISPATCH, 0, 2);
    for (LONG index = 0; index < 2; ++index)
        ASSERT_EQ(SafeArrayPutElement(array, &index, static_cast<IDispatch*>(&widget)), S_OK);
    EXPECT_EQ(widget.references(), 2u);

    LONG index = 0;
    IDispatch* element = nullptr;
    ASSERT_EQ(SafeArrayGetElement(array, &index, &element), S_OK);
    EXPECT_EQ(element, static_cast<IDispatch*>(&widget));
    element->Release();

    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
    EXPECT_EQ(widget.references(), 0u);
}

#if AUTOMATION_HAS_TEST_HOOKS
TEST(SafeArray, ReplacingOrDestroyingFreesTheStrings)
{
    const unsigned long before = automation_testing::liveStrings();
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 0, 1);
    LONG index = 0;
    BSTR text = SysAllocString(L"old");
    SafeArrayPutElement(array, &index, text);
    SafeArrayPutElement(array, &index, text);
    SysFreeString(text);
    EXPECT_EQ(automation_testing::liveStrings(), before + 1);
    SafeArrayDestroy(array);
    EXPECT_EQ(automation_testing::liveStrings(), before);
}
#endif

// VariantInit, VariantClear and VariantCopy: deep copies of what a variant owns, and the types
// that are refused.
#include <gtest/gtest.h>

#include "automation.h"
#include "test_text.h"
#include "test_widget.h"

namespace {

// A VT_ARRAY|VT_BSTR variant holding `first` and `second` at positions 1 and 2.
VARIANT stringArray(const wchar_t* first, const wchar_t* second)
{
    VARIANT variant;
    VariantInit(&variant);
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 1, 2);
    LONG index = 1;
    BSTR text = SysAllocString(first);
    SafeArrayPutElement(array, &index, text);
    SysFreeString(text);
    index = 2;
    text = SysAllocString(second);
    SafeArrayPutElement(array, &index, text);
    SysFreeString(text);
    V_VT(&variant) = VT_ARRAY | VT_BSTR;
    V_ARRAY(&variant) = array;
    return variant;
}

BSTR elementAt(SAFEARRAY* array, LONG index)
{
    BSTR* elements = nullptr;
    SafeArrayAccessData(array, reinterpret_cast<void**>(&elements));
    LONG lowerBound = 0;
    SafeArrayGetLBound(array, 1, &lowerBound);
    BSTR element = elements[index - lowerBound];
    SafeArrayUnaccessData(array);
    return element;
}

}  // namespace

TEST(VariantCopy, DuplicatesTheString)
{
    VARIANT source;
    VariantInit(&source);
    V_VT(&source) = VT_BSTR;
    V_BSTR(&source) = SysAllocStringLen(L"a\0b", 3);
    VARIANT copy;
    VariantInit(&copy);

    ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_EQ(V_VT(&copy), VT_BSTR);
    EXPECT_NE(V_BSTR(&copy), V_BSTR(&source));
    EXPECT_EQ(VariantClear(&source), S_OK);
    EXPECT_EQ(textOf(V_BSTR(&copy)), std::wstring(L"a\0b", 3));  // still there, embedded null and all
    VariantClear(&copy);
}

TEST(VariantCopy, ANullStringBecomesAnAllocatedEmptyOne)
{
    VARIANT source;
    VariantInit(&source);
    V_VT(&source) = VT_BSTR;
    V_BSTR(&source) = nullptr;
    VARIANT copy;
    VariantInit(&copy);
    ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_EQ(V_VT(&copy), VT_BSTR);
    ASSERT_NE(V_BSTR(&copy), nullptr);
    EXPECT_EQ(SysStringLen(V_BSTR(&copy)), 0u);
    VariantClear(&copy);
}

TEST(VariantCopy, DuplicatesAStringArrayAndEachElement)
{
    VARIANT source = stringArray(L"first", L"second");
    VARIANT copy;
    VariantInit(&copy);

    ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_EQ(V_VT(&copy), VT_ARRAY | VT_BSTR);
    ASSERT_NE(V_ARRAY(&copy), V_ARRAY(&source));
    LONG lowerBound = 0;
    LONG upperBound = 0;
    SafeArrayGetLBound(V_ARRAY(&copy), 1, &lowerBound);
    SafeArrayGetUBound(V_ARRAY(&copy), 1, &upperBound);
    EXPECT_EQ(lowerBound, 1);
    EXPECT_EQ(upperBound, 2);
    for (LONG index = 1; index <= 2; ++index)
        EXPECT_NE(elementAt(V_ARRAY(&copy), index), elementAt(V_ARRAY(&source), index));

    VariantClear(&source);
    EXPECT_EQ(textOf(elementAt(V_ARRAY(&copy), 1)), L"first");
    EXPECT_EQ(textOf(elementAt(V_ARRAY(&copy), 2)), L"second");
    VariantClear(&copy);
}

TEST(VariantCopy, DuplicatesADoubleArray)
{
    VARIANT source;
    VariantInit(&source);
    V_VT(&source) = VT_ARRAY | VT_R8;
    V_ARRAY(&source) = SafeArrayCreateVector(VT_R8, 0, 2);
    double coordinates[] = {1.5, -2.25};
    for (LONG index = 0; index < 2; ++index)
        SafeArrayPutElement(V_ARRAY(&source), &index, &coordinates[index]);
    VARIANT copy;
    VariantInit(&copy);

    ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
    VariantClear(&source);
    double copied[2] = {};
    for (LONG index = 0; index < 2; ++index)
        ASSERT_EQ(SafeArrayGetElement(V_ARRAY(&copy), &index, &copied[index]), S_OK);
    EXPECT_EQ(copied[0], 1.5);
    EXPECT_EQ(copied[1], -2.25);
    VariantClear(&copy);
}

TEST(VariantCopy, AddsAReferenceAndVariantClearTakesItBack)
{
    TestWidget* widget = new TestWidget;
    VARIANT source;
    VariantInit(&source);
    V_VT(&source) = VT_DISPATCH;
    V_DISPATCH(&source) = widget;  // the variant adopts the creator's reference
    VARIANT copy;
    VariantInit(&copy);

    ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_EQ(V_DISPATCH(&copy), static_cast<IDispatch*>(widget));
    EXPECT_EQ(widget->references(), 2u);
    VariantClear(&copy);
    EXPECT_EQ(widget->references(), 1u);
    EXPECT_EQ(V_VT(&copy), VT_EMPTY);
    widget->AddRef();
    VariantClear(&source);
    EXPECT_EQ(widget->Release(), 0u);
}

TEST(VariantCopy, AReferenceIsCopiedAsAReference)
{
    LONG value = 7;
    VARIANT source;
    VariantInit(&source);
    V_VT(&source) = VT_BYREF | VT_I4;
    V_I4REF(&source) = &value;
    VARIANT copy;
    VariantInit(&copy);
    ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_EQ(V_I4REF(&copy), &value);
    EXPECT_EQ(VariantClear(&copy), S_OK);
    EXPECT_EQ(value, 7);
}

TEST(VariantCopy, InvalidTypesAreRefusedAndTheDestinationKept)
{
    for (VARTYPE invalid : {VARTYPE(15), VARTYPE(VT_VECTOR | VT_I4), VARTYPE(VT_ARRAY | VT_EMPTY)}) {
        VARIANT source;
        VariantInit(&source);
        V_VT(&source) = invalid;
        V_ARRAY(&source) = nullptr;
        VARIANT destination;
        VariantInit(&destination);
        V_VT(&destination) = VT_I4;
        V_I4(&destination) = 5;

        EXPECT_EQ(VariantCopy(&destination, &source), DISP_E_BADVARTYPE) << invalid;
        EXPECT_EQ(V_VT(&destination), VT_I4);
        EXPECT_EQ(VariantClear(&source), DISP_E_BADVARTYPE) << invalid;
    }
}

#if AUTOMATION_HAS_TEST_HOOKS
TEST(VariantClear, FreesTheStringsItOwns)
{
    const unsigned long before = automation_testing::liveStrings();
    VARIANT text;
    VariantInit(&text);
    V_VT(&text) = VT_BSTR;
    V_BSTR(&text) = SysAllocString(L"owned");
    VARIANT strings = stringArray(L"one", L"two");
    EXPECT_EQ(automation_testing::liveStrings(), before + 3);

    VariantClear(&text);
    VariantClear(&strings);
    EXPECT_EQ(automation_testing::liveStrings(), before);
}
#endif

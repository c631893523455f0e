// VariantInit, VariantClear and VariantCopy: deep copies of what a variant owns, and the types
// that are refused.
#include <gtest/gtest.h>

#include "automation.h"
#include "test_text.h"
#include "test_widget.h"

namespace {

// A VT_ARRAY|VT_BSTR variant holding `first` and `second` at positions 1 and 2.
_variant_t stringArray(const wchar_t* first, const wchar_t* second)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 1, 2);
    LONG index = 1;
    for (const wchar_t* text : {first, second}) {
        SafeArrayPutElement(array, &index, _bstr_t(text).GetBSTR());
        ++index;
    }
    VARIANT variant;
    VariantInit(&variant);
    V_VT(&variant) = VT_ARRAY | VT_BSTR;
    V_ARRAY(&variant) = array;
    return _variant_t(variant, false);
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

TEST(VariantCopy, DuplicatesTheStringAndMakesANullOneAnAllocatedEmptyOne)
{
    _variant_t source;
    V_VT(&source) = VT_BSTR;
    V_BSTR(&source) = SysAllocStringLen(L"a\0b", 3);
    _variant_t copy;
    ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_EQ(V_VT(&copy), VT_BSTR);
    EXPECT_NE(V_BSTR(&copy), V_BSTR(&source));
    EXPECT_EQ(VariantClear(&source), S_OK);
    EXPECT_EQ(textOf(V_BSTR(&copy)), std::wstring(L"a\0b", 3));  // still there, embedded null and all

    V_VT(&source) = VT_BSTR;
    V_BSTR(&source) = nullptr;
    ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
    ASSERT_NE(V_BSTR(&copy), nullptr);
    EXPECT_EQ(SysStringLen(V_BSTR(&copy)), 0u);
}

TEST(VariantCopy, DuplicatesArraysAndEachString)
{
    _variant_t source = stringArray(L"first", L"second");
    _variant_t copy;
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

    // The host's point form.
    double coordinates[] = {1.5, -2.25};
    V_VT(&source) = VT_ARRAY | VT_R8;
    V_ARRAY(&source) = SafeArrayCreateVector(VT_R8, 0, 2);
    for (LONG index = 0; index < 2; ++index)
        SafeArrayPutElement(V_ARRAY(&source), &index, &coordinates[index]);
    ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
    VariantClear(&source);
    for (LONG index = 0; index < 2; ++index) {
        double copied = 0;
        ASSERT_EQ(SafeArrayGetElement(V_ARRAY(&copy), &index, &copied), S_OK);
        EXPECT_EQ(copied, coordinates[index]);
    }
}

TEST(VariantCopy, AddsAReferenceAndVariantClearTakesItBack)
{
    TestWidget widget;
    VARIANT source;
    VariantInit(&source);
    V_VT(&source) = VT_DISPATCH;
    V_DISPATCH(&source) = &widget;
    widget.AddRef();  // the variant's own
    _variant_t copy;

    ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_EQ(V_DISPATCH(&copy), static_cast<IDispatch*>(&widget));
    EXPECT_EQ(widget.references(), 2u);
    VariantClear(&copy);
    EXPECT_EQ(widget.references(), 1u);
    EXPECT_EQ(V_VT(&copy), VT_EMPTY);
    VariantClear(&source);
    EXPECT_EQ(widget.references(), 0u);
}

TEST(VariantCopy, AReferenceIsCopiedAsAReference)
{
    LONG value = 7;
    _variant_t source;
    V_VT(&source) = VT_BYREF | VT_I4;
    V_I4REF(&source) = &value;
    _variant_t copy;
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
        _variant_t destination(5L);
        EXPECT_EQ(VariantCopy(&destination, &source), DISP_E_BADVARTYPE) << invalid;
        EXPECT_EQ(V_VT(&destination), VT_I4);
        EXPECT_EQ(VariantClear(&source), DISP_E_BADVARTYPE) << invalid;
    }
}

#if AUTOMATION_HAS_TEST_HOOKS
TEST(VariantClear, FreesTheStringsItOwns)
{
    const unsigned long before = automation_testing::liveStrings();
    _variant_t text(L"owned");
    _variant_t strings = stringArray(L"one", L"two");
    EXPECT_EQ(automation_testing::liveStrings(), before + 3);

    VariantClear(&text);
    VariantClear(&strings);
    EXPECT_EQ(automation_testing::liveStrings(), before);
}
#endif

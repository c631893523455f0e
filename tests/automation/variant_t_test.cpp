// _variant_t: which variant type each C++ value becomes, deep copies, taking variants over, and
// conversions.
#include <gtest/gtest.h>

#include "automation.h"
#include "automation_failure.h"
#include "test_text.h"
#include "test_widget.h"

namespace {

VARTYPE typeOf(const _variant_t& value) { return V_VT(&value); }

}  // namespace

TEST(VariantT, EachValueTypeBecomesThePlatformsVariantType)
{
    EXPECT_EQ(typeOf(_variant_t(3L)), VT_I4);
    EXPECT_EQ(typeOf(_variant_t(3)), VT_INT);
    EXPECT_EQ(typeOf(_variant_t(short(3))), VT_I2);
    EXPECT_EQ(typeOf(_variant_t(3.0)), VT_R8);
    EXPECT_EQ(typeOf(_variant_t(3.0f)), VT_R4);
    EXPECT_EQ(typeOf(_variant_t(3u)), VT_UINT);
    EXPECT_EQ(typeOf(_variant_t(L"3")), VT_BSTR);
    EXPECT_EQ(typeOf(_variant_t("3")), VT_BSTR);
    EXPECT_EQ(typeOf(_variant_t(_bstr_t(L"3"))), VT_BSTR);

    const _variant_t yes(true);
    EXPECT_EQ(V_VT(&yes), VT_BOOL);
    EXPECT_EQ(V_BOOL(&yes), VARIANT_TRUE);
    EXPECT_EQ(_variant_t(false).boolVal, VARIANT_FALSE);
}

TEST(VariantT, AnExplicitTypeChoosesAmongTheAllowedOnes)
{
    const _variant_t error(static_cast<long>(E_FAIL), VT_ERROR);
    EXPECT_EQ(V_VT(&error), VT_ERROR);
    EXPECT_EQ(V_ERROR(&error), E_FAIL);
    const _variant_t flag(5L, VT_BOOL);
    EXPECT_EQ(V_BOOL(&flag), VARIANT_TRUE);
    EXPECT_EQ(_variant_t(short(0), VT_BOOL).boolVal, VARIANT_FALSE);

    // A long is VT_I4, VT_ERROR or VT_BOOL: VT_INT comes from an int only.
    EXPECT_EQ(failureOf([] { _variant_t(5L, VT_INT); }).Error(), E_INVALIDARG);
    EXPECT_EQ(failureOf([] { _variant_t(short(5), VT_I4); }).Error(), E_INVALIDARG);
    EXPECT_EQ(failureOf([] { _variant_t(5.0, VT_I4); }).Error(), E_INVALIDARG);
}

TEST(VariantT, TheMissingArgumentIsParamNotFound)
{
    EXPECT_EQ(V_VT(&vtMissing), VT_ERROR);
    EXPECT_EQ(V_ERROR(&vtMissing), DISP_E_PARAMNOTFOUND);
    const _variant_t missing(DISP_E_PARAMNOTFOUND, VT_ERROR);
    EXPECT_TRUE(missing == vtMissing);
}

TEST(VariantT, CopiesAreDeepAndCompareByContent)
{
    const _variant_t original(L"text");
    _variant_t copy = original;
    EXPECT_NE(V_BSTR(&copy), V_BSTR(&original));
    EXPECT_TRUE(copy == original);
    copy = L"other";
    EXPECT_TRUE(copy != original);
    EXPECT_EQ(textOf(V_BSTR(&original)), L"text");

    EXPECT_TRUE(_variant_t(1L) != _variant_t(1));  // VT_I4 is not VT_INT
}

TEST(VariantT, AttachAndDetachMoveTheContents)
{
    VARIANT raw;
    VariantInit(&raw);
    V_VT(&raw) = VT_BSTR;
    V_BSTR(&raw) = SysAllocString(L"moved");
    const BSTR moved = V_BSTR(&raw);

    _variant_t holder(raw, false);
    EXPECT_EQ(V_VT(&raw), VT_EMPTY);
    EXPECT_EQ(V_BSTR(&holder), moved);

    VARIANT back = holder.Detach();
    EXPECT_EQ(V_VT(&holder), VT_EMPTY);
    EXPECT_EQ(V_BSTR(&back), moved);

    _variant_t second;
    second.Attach(back);
    EXPECT_EQ(V_VT(&back), VT_EMPTY);
    EXPECT_EQ(V_BSTR(&second), moved);
}

TEST(VariantT, AssignmentKeepsABooleanOrErrorTypeForALong)
{
    _variant_t flag(true);
    flag = 0L;
    EXPECT_EQ(V_VT(&flag), VT_BOOL);
    EXPECT_EQ(V_BOOL(&flag), VARIANT_FALSE);

    _variant_t number(L"text");
    number = 7L;
    EXPECT_EQ(V_VT(&number), VT_I4);
    EXPECT_EQ(V_I4(&number), 7);
}

// The conversions themselves are VariantChangeType's: each extractor is tried once.
TEST(VariantT, ConvertsThroughVariantChangeType)
{
    EXPECT_EQ(static_cast<long>(_variant_t(L"12")), 12);
    EXPECT_EQ(static_cast<double>(_variant_t(3L)), 3.0);
    EXPECT_EQ(textOf(static_cast<_bstr_t>(_variant_t(42L))), L"42");
    EXPECT_FALSE(static_cast<bool>(_variant_t(0L)));
    EXPECT_EQ(failureOf([] { static_cast<void>(static_cast<long>(_variant_t(L"abc"))); }).Error(),
              DISP_E_TYPEMISMATCH);

    _variant_t value(2.5);
    value.ChangeType(VT_I4);
    EXPECT_EQ(V_VT(&value), VT_I4);
    EXPECT_EQ(V_I4(&value), 2);
}

TEST(VariantT, HoldsOneReferenceToAnObject)
{
    TestWidget widget;
    {
        const _variant_t held(static_cast<IDispatch*>(&widget));
        EXPECT_EQ(widget.references(), 1u);
        IDispatch* out = held;  // the conversion adds a reference for the caller
        EXPECT_EQ(widget.references(), 2u);
        out->Release();
        widget.AddRef();  // the reference `adopted` takes over
        const _variant_t adopted(static_cast<IDispatch*>(&widget), false);
    }
    EXPECT_EQ(widget.references(), 0u);
}

// VariantChangeType between numbers, text and booleans, and between interfaces.
#include <gtest/gtest.h>

#include "automation.h"
#include "test_text.h"
#include "test_widget.h"

namespace {

// `value` converted to `type` through VariantChangeType, with the status.
struct Converted {
    HRESULT status;
    _variant_t value;
};

Converted convert(const _variant_t& value, VARTYPE type, USHORT flags = 0)
{
    Converted result{S_OK, _variant_t()};
    result.status = VariantChangeType(&result.value, const_cast<_variant_t*>(&value), flags, type);
    return result;
}

// The converted value; the conversion must succeed.
_variant_t converted(const _variant_t& value, VARTYPE type)
{
    Converted result = convert(value, type);
    EXPECT_EQ(result.status, S_OK) << "to type " << type;
    return result.value;
}

std::wstring textFrom(const _variant_t& value, USHORT flags = 0)
{
    const Converted converted = convert(value, VT_BSTR, flags);
    EXPECT_EQ(converted.status, S_OK);
    EXPECT_NE(V_BSTR(&converted.value), nullptr);
    return textOf(V_BSTR(&converted.value));
}

}  // namespace

TEST(VariantChangeType, WritesNumbersAndBooleansAsText)
{
    EXPECT_EQ(textFrom(_variant_t(42L)), L"42");
    EXPECT_EQ(textFrom(_variant_t(-7)), L"-7");
    EXPECT_EQ(textFrom(_variant_t(1.5)), L"1.5");
    EXPECT_EQ(textFrom(_variant_t(0.1)), L"0.1");
    EXPECT_EQ(textFrom(_variant_t(1e20)), L"1E+20");
    EXPECT_EQ(textFrom(_variant_t(123456789012.0)), L"123456789012");
    EXPECT_EQ(textFrom(_variant_t(true)), L"-1");
    EXPECT_EQ(textFrom(_variant_t()), L"");
    EXPECT_EQ(textFrom(_variant_t(false), VARIANT_ALPHABOOL), L"False");
}

TEST(VariantChangeType, ReadsNumbersAndBooleansFromTextAndNothingFromNull)
{
    EXPECT_EQ(converted(_variant_t(L" 12 "), VT_I4).lVal, 12);
    EXPECT_EQ(converted(_variant_t(L"1,000"), VT_I4).lVal, 1000);
    EXPECT_EQ(converted(_variant_t(L"1.5e3"), VT_R8).dblVal, 1500.0);
    EXPECT_EQ(converted(_variant_t(L"True"), VT_BOOL).boolVal, VARIANT_TRUE);
    EXPECT_EQ(converted(_variant_t(L"0"), VT_BOOL).boolVal, VARIANT_FALSE);

    for (const wchar_t* notANumber : {L"abc", L"", L"0x10", L"12abc"})
        EXPECT_EQ(convert(_variant_t(notANumber), VT_I4).status, DISP_E_TYPEMISMATCH) << notANumber;

    // Empty is zero; null and the missing argument are nothing.
    EXPECT_EQ(converted(_variant_t(), VT_I4).lVal, 0);
    _variant_t null;
    V_VT(&null) = VT_NULL;
    EXPECT_EQ(convert(null, VT_I4).status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(convert(null, VT_EMPTY).status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(convert(vtMissing, VT_I4).status, DISP_E_TYPEMISMATCH);
}

TEST(VariantChangeType, RoundsHalfToEvenAndReportsOverflow)
{
    EXPECT_EQ(converted(_variant_t(2.5), VT_I4).lVal, 2);
    EXPECT_EQ(converted(_variant_t(3.5), VT_I4).lVal, 4);
    EXPECT_EQ(converted(_variant_t(-2.5), VT_I4).lVal, -2);
    EXPECT_EQ(converted(_variant_t(L"2.5"), VT_I4).lVal, 2);

    EXPECT_EQ(convert(_variant_t(70000L), VT_I2).status, DISP_E_OVERFLOW);
    EXPECT_EQ(convert(_variant_t(L"-7"), VT_UI1).status, DISP_E_OVERFLOW);
    EXPECT_EQ(convert(_variant_t(3e9), VT_I4).status, DISP_E_OVERFLOW);
}

TEST(VariantChangeType, ConvertsInPlaceOrThroughAReferenceAndKeepsTheDestinationOnFailure)
{
    _variant_t value(L"15");
    ASSERT_EQ(VariantChangeType(&value, &value, 0, VT_I2), S_OK);
    EXPECT_EQ(V_VT(&value), VT_I2);
    EXPECT_EQ(V_I2(&value), 15);

    double number = 4.0;
    _variant_t reference;
    V_VT(&reference) = VT_BYREF | VT_R8;
    V_R8REF(&reference) = &number;
    EXPECT_EQ(converted(reference, VT_I4).lVal, 4);

    _variant_t destination(L"kept");
    _variant_t source(L"not a number");
    EXPECT_EQ(VariantChangeType(&destination, &source, 0, VT_I4), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(V_VT(&destination), VT_BSTR);
    EXPECT_EQ(textOf(V_BSTR(&destination)), L"kept");
}

TEST(VariantChangeType, AsksAnObjectForTheOtherInterface)
{
    TestWidget widget;
    {
        _variant_t unknown(static_cast<IUnknown*>(static_cast<ITestWidget*>(&widget)));
        const Converted dispatch = convert(unknown, VT_DISPATCH);
        ASSERT_EQ(dispatch.status, S_OK);
        EXPECT_EQ(V_DISPATCH(&dispatch.value), static_cast<IDispatch*>(&widget));
        EXPECT_EQ(widget.references(), 2u);
    }
    EXPECT_EQ(widget.references(), 0u);

    // An error record has no IDispatch.
    ICreateErrorInfo* record = nullptr;
    ASSERT_EQ(CreateErrorInfo(&record), S_OK);
    _variant_t plainUnknown(static_cast<IUnknown*>(record), false);
    EXPECT_EQ(convert(plainUnknown, VT_DISPATCH).status, E_NOINTERFACE);
}

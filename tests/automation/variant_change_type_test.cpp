// VariantChangeType where a single answer says too little: in place, an object's default value
// and its references, and sweeps of dates, integers and amounts through
// their own text. Single answers, pair by pair, are the differential probe's (conversions).
#include <gtest/gtest.h>

#include <cstdint>
#include <cwchar>
#include <string>

#include "automation.h"
#include "test_text.h"
#include "test_widget.h"
#include "untyped_dispatch.h"

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

std::wstring textFrom(const _variant_t& value)
{
    const Converted converted = convert(value, VT_BSTR);
    EXPECT_EQ(converted.status, S_OK);
    return V_VT(&converted.value) == VT_BSTR ? textOf(V_BSTR(&converted.value)) : std::wstring();
}

_variant_t date(double day)
{
    return _variant_t(day, VT_DATE);
}

_variant_t currency(std::int64_t tenThousandths)
{
    VARIANT amount;
    VariantInit(&amount);
    V_VT(&amount) = VT_CY;
    V_CY(&amount).int64 = tenThousandths;
    return _variant_t(amount, false);
}

// An object whose default member gives `value`, counting the calls and the references it holds;
// the test owns it.
class ValuedObject final : public UntypedDispatch<IDispatch> {
public:
    explicit ValuedObject(const _variant_t& value) : m_value(value) {}
    ValuedObject(const ValuedObject&) = delete;
    ValuedObject& operator=(const ValuedObject&) = delete;

    int calls() const { return m_calls; }
    ULONG references() const { return m_references; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        *object = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ? this : nullptr;
        if (*object == nullptr)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_references; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override
    {
        ++m_calls;
        if (member != DISPID_VALUE || flags != DISPATCH_PROPERTYGET || parameters == nullptr ||
            parameters->cArgs != 0 || result == nullptr)
            return DISP_E_MEMBERNOTFOUND;
        return VariantCopy(result, &m_value);
    }

private:
    _variant_t m_value;
    int m_calls = 0;
    ULONG m_references = 0;
};

// The calendar day a date's text names, read back from that text.
struct Day {
    int month, day, year;
};

Day dayOf(double serial)
{
    const std::wstring text = textFrom(date(serial));
    Day day{0, 0, 0};
    EXPECT_EQ(swscanf(text.c_str(), L"%d/%d/%d", &day.month, &day.day, &day.year), 3) << text;
    return day;
}

bool isLeap(int year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int lengthOf(int month, int year)
{
    static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeap(year) ? 29 : kDays[month - 1];
}

}  // namespace

// Through references and into a destination kept on failure are the conversion probe's cases; the
// probe never converts a variant into itself.
TEST(VariantChangeType, ConvertsInPlace)
{
    _variant_t value(L"15");
    ASSERT_EQ(VariantChangeType(&value, &value, 0, VT_I2), S_OK);
    EXPECT_EQ(V_VT(&value), VT_I2);
    EXPECT_EQ(V_I2(&value), 15);
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
}

TEST(VariantChangeType, AnObjectStandsForItsDefaultValueOnceAndIsLeftAsItWas)
{
    ValuedObject object(_variant_t(L"12"));
    {
        _variant_t held(static_cast<IDispatch*>(&object));
        const Converted number = convert(held, VT_I4);
        ASSERT_EQ(number.status, S_OK);
        EXPECT_EQ(V_I4(&number.value), 12);
        EXPECT_EQ(object.calls(), 1);

        EXPECT_EQ(convert(held, VT_R8, VARIANT_NOVALUEPROP).status, DISP_E_TYPEMISMATCH);
        EXPECT_EQ(object.calls(), 1);
        EXPECT_EQ(object.references(), 1u);
    }
    EXPECT_EQ(object.references(), 0u);
}

// Day after day across the centuries whose leap rules differ, each date's text names the day
// after the one before, and reads back as that date.
TEST(VariantChangeType, EveryDayOfTheCalendarIsTheDayAfterTheOneBefore)
{
    // The first days of the years 100, 1599, 1699 and 1999, 31 December 1899, and the first days of
    // 2099 and 9998: each window holds a year whose February the leap rules decide.
    for (const double firstDay : {-657434.0, -109936.0, -73411.0, 1.0, 36161.0, 72686.0, 2957736.0}) {
        Day previous = dayOf(firstDay);
        for (double serial = firstDay + 1; serial < firstDay + 730 && serial <= 2958465.0; ++serial) {
            const Day day = dayOf(serial);
            const bool nextInMonth = day.day == previous.day + 1 && day.month == previous.month;
            const bool nextMonth = previous.day == lengthOf(previous.month, previous.year) && day.day == 1 &&
                                   (day.month == previous.month % 12 + 1);
            ASSERT_TRUE(nextInMonth || nextMonth) << serial;
            ASSERT_EQ(day.year, previous.year + (previous.month == 12 && day.month == 1 ? 1 : 0)) << serial;

            const Converted back = convert(_variant_t(textFrom(date(serial)).c_str()), VT_DATE);
            ASSERT_EQ(back.status, S_OK) << serial;
            ASSERT_EQ(V_DATE(&back.value), serial);
            previous = day;
        }
    }
}

// Times to the second, before and after day 0, read back from their text as the same text.
TEST(VariantChangeType, DatesWithTimesReadBackFromTheirText)
{
    for (double day = -657434.0; day <= 2958465.0; day += 7919.0) {
        for (int second = 0; second < 86400; second += 4817) {
            const double serial = day + (day < 0 ? -1.0 : 1.0) * second / 86400.0;
            const std::wstring text = textFrom(date(serial));
            const Converted back = convert(_variant_t(text.c_str()), VT_DATE);
            ASSERT_EQ(back.status, S_OK) << text;
            ASSERT_EQ(textFrom(back.value), text);
        }
    }
}

TEST(VariantChangeType, IntegersAndAmountsReadBackFromTheirText)
{
    for (std::int64_t number = INT32_MIN; number <= INT32_MAX; number += 65521) {
        const _variant_t value(static_cast<long>(number));
        const Converted back = convert(_variant_t(textFrom(value).c_str()), VT_I4);
        ASSERT_EQ(back.status, S_OK) << number;
        ASSERT_EQ(V_I4(&back.value), static_cast<long>(number));
    }
    // Amounts whose ten-thousandths a double still holds exactly.
    for (std::int64_t amount = -100000000000000; amount <= 100000000000000; amount += 10000000019) {
        const Converted back = convert(_variant_t(textFrom(currency(amount)).c_str()), VT_CY);
        ASSERT_EQ(back.status, S_OK) << amount;
        ASSERT_EQ(V_CY(&back.value).int64, amount);
    }
}

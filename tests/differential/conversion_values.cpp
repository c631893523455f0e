// The source values of the conversion matrix, by type.
#include "conversion_values.h"

#include "automation/com_object.h"
#include "probe.h"

#include <cstdint>
#include <deque>
#include <limits>

namespace conversion {
namespace {

using Values = std::deque<SourceValue>;

// An object whose default member (DISPID_VALUE) gives `value`, or fails with `failure` when that
// is set, as a script's object does when it is passed where a number or a text is expected.
class DefaultValueObject final : public automation::ComObject<DefaultValueObject, IDispatch> {
public:
    DefaultValueObject(const _variant_t& value, HRESULT failure) : m_value(value), m_failure(failure) {}

    void* interfaceFor(REFIID iid)
    {
        return IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ? static_cast<IDispatch*>(this)
                                                                               : nullptr;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override
    {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override
    {
        if (member != DISPID_VALUE || (flags & DISPATCH_PROPERTYGET) == 0)
            return DISP_E_MEMBERNOTFOUND;
        if (parameters == nullptr || parameters->cArgs != 0 || result == nullptr)
            return DISP_E_BADPARAMCOUNT;
        if (FAILED(m_failure))
            return m_failure;
        return VariantCopy(result, &m_value);
    }

private:
    friend class automation::ComObject<DefaultValueObject, IDispatch>;
    ~DefaultValueObject() = default;

    _variant_t m_value;
    HRESULT m_failure;
};

// An object that has no IDispatch.
class PlainObject final : public automation::ComObject<PlainObject, IUnknown> {
public:
    void* interfaceFor(REFIID iid)
    {
        return IsEqualIID(iid, IID_IUnknown) ? static_cast<IUnknown*>(this) : nullptr;
    }

private:
    friend class automation::ComObject<PlainObject, IUnknown>;
    ~PlainObject() = default;
};

VARIANT plain(VARTYPE type)
{
    VARIANT value;
    VariantInit(&value);
    V_VT(&value) = type;
    return value;
}

template <class Number, class Stored>
void addNumbers(Values& values, VARTYPE type, Stored VARIANT::*member, std::initializer_list<Number> numbers)
{
    for (const Number number : numbers) {
        VARIANT value = plain(type);
        value.*member = static_cast<Stored>(number);
        values.emplace_back(SourceValue{probe::value(value), _variant_t(value)});
    }
}

void addCurrencies(Values& values, std::initializer_list<std::int64_t> tenThousandths)
{
    for (const std::int64_t amount : tenThousandths) {
        VARIANT value = plain(VT_CY);
        V_CY(&value).int64 = amount;
        values.emplace_back(SourceValue{probe::value(value), _variant_t(value)});
    }
}

void addTextsOf(Values& values, std::initializer_list<const wchar_t*> texts)
{
    for (const wchar_t* text : texts) {
        _variant_t value(text);
        values.emplace_back(SourceValue{probe::value(value), value});
    }
}

void addObject(Values& values, const std::string& label, const _variant_t& defaultValue,
               HRESULT failure = S_OK)
{
    IDispatch* object = new DefaultValueObject(defaultValue, failure);
    values.emplace_back(SourceValue{"DISPATCH " + label, _variant_t(object, false)});
}

// A reference to a copy of `referent` that the table keeps at a fixed place.
void addReference(Values& values, std::deque<_variant_t>& referents, const _variant_t& referent)
{
    _variant_t& kept = referents.emplace_back(referent);
    VARIANT reference = plain(VT_BYREF | V_VT(&kept));
    V_BYREF(&reference) = &kept.llVal;
    values.emplace_back(SourceValue{probe::value(reference), _variant_t(reference)});
}

void addVariantReference(Values& values, std::deque<_variant_t>& referents, const _variant_t& referent)
{
    _variant_t& kept = referents.emplace_back(referent);
    VARIANT reference = plain(VT_BYREF | VT_VARIANT);
    V_VARIANTREF(&reference) = &kept;
    values.emplace_back(SourceValue{"BYREF VARIANT " + probe::value(kept), _variant_t(reference)});
}

void addIntegers(Values& values)
{
    using std::numeric_limits;
    values.emplace_back(SourceValue{"EMPTY", _variant_t()});
    values.emplace_back(SourceValue{"NULL", _variant_t(plain(VT_NULL))});
    addNumbers<int>(values, VT_I1, &VARIANT::cVal, {-128, -1, 0, 1, 127});
    addNumbers<int>(values, VT_UI1, &VARIANT::bVal, {0, 1, 255});
    addNumbers<int>(values, VT_I2, &VARIANT::iVal, {-32768, -1, 0, 1, 32767});
    addNumbers<int>(values, VT_UI2, &VARIANT::uiVal, {0, 32768, 65535});
    addNumbers<std::int64_t>(values, VT_I4, &VARIANT::lVal,
                             {-2147483647 - 1, -32769, -1, 0, 1, 32768, 65536, 2147483647});
    addNumbers<std::uint32_t>(values, VT_UI4, &VARIANT::ulVal,
                              {0u, 1u, 2147483647u, 2147483648u, 4294967295u});
    addNumbers<std::int32_t>(values, VT_INT, &VARIANT::intVal, {-2147483647 - 1, -1, 0, 2147483647});
    addNumbers<std::uint32_t>(values, VT_UINT, &VARIANT::uintVal, {0u, 2147483648u, 4294967295u});
    addNumbers<std::int64_t>(values, VT_I8, &VARIANT::llVal,
                             {numeric_limits<std::int64_t>::min(), -2147483649LL, -2147483648LL, 0LL,
                              2147483647LL, 2147483648LL, 922337203685476LL, 922337203685477LL,
                              numeric_limits<std::int64_t>::max()});
    addNumbers<std::uint64_t>(
        values, VT_UI8, &VARIANT::ullVal,
        {0ULL, 2147483648ULL, 4294967296ULL, 922337203685477ULL, numeric_limits<std::uint64_t>::max()});
    addNumbers<int>(values, VT_BOOL, &VARIANT::boolVal, {VARIANT_FALSE, VARIANT_TRUE, 1});
    addNumbers<std::int32_t>(values, VT_ERROR, &VARIANT::scode, {DISP_E_PARAMNOTFOUND, S_OK});
}

void addReals(Values& values)
{
    using std::numeric_limits;
    addNumbers<float>(values, VT_R4, &VARIANT::fltVal,
                      {0.0f, -0.0f, 0.5f, 1.5f, 2.5f, -0.5f, -1.5f, 0.1f, 123456.7f, 16777216.0f, 32767.5f,
                       -32768.5f, 2147483648.0f, -2147483648.0f, 1e-45f, 3.4028235e38f,
                       numeric_limits<float>::quiet_NaN(), numeric_limits<float>::infinity(),
                       -numeric_limits<float>::infinity()});
    addNumbers<double>(values, VT_R8, &VARIANT::dblVal,
                       {0.0,
                        -0.0,
                        0.5,
                        1.5,
                        2.5,
                        -0.5,
                        -1.5,
                        -2.5,
                        0.1,
                        1.0 / 3.0,
                        100.125,
                        1e-5,
                        1.5e-10,
                        123456789012345.0,
                        1234567890123456.0,
                        1e15,
                        1e16,
                        1e20,
                        1e-300,
                        127.5,
                        -128.5,
                        255.5,
                        32767.5,
                        -32768.5,
                        65535.5,
                        2147483647.4,
                        2147483647.5,
                        -2147483648.5,
                        -2147483648.6,
                        4294967295.5,
                        36526.75,
                        922337203685477.0,
                        922337203685477.5807,
                        922337203685478.0,
                        2958465.999999,
                        2958466.0,
                        -657434.0,
                        -657435.0,
                        0.00005,
                        0.00015,
                        -0.00005,
                        4611686018427387904.0,
                        9223372036854775808.0,
                        18446744073709551616.0,
                        3.5e38,
                        numeric_limits<double>::max(),
                        numeric_limits<double>::quiet_NaN(),
                        numeric_limits<double>::infinity(),
                        -numeric_limits<double>::infinity()});
    addCurrencies(values,
                  {0, 1, 5000, 15000, 25000, -5000, -15000, 10000, -10000, 1234, 12345678, 21474836475000,
                   -21474836485000, 9223372036854775807LL, -9223372036854775807LL - 1});
    addNumbers<double>(values, VT_DATE, &VARIANT::date,
                       {0.0,           1.0,       -1.0,      0.5,
                        0.25,          1.5,       2.5,       -1.5,
                        -0.25,         36526.0,   36526.75,  45000.123456,
                        1.0 / 86400.0, 0.999999,  0.9999999, 2958465.9999,
                        2958466.0,     -657434.0, -657435.0, numeric_limits<double>::quiet_NaN()});
}

void addTexts(Values& values)
{
    // A copy of a variant holding a null string holds an empty one: this one is made in place.
    SourceValue& nullText = values.emplace_back(SourceValue{"BSTR null", _variant_t()});
    V_VT(&nullText.value) = VT_BSTR;
    V_BSTR(&nullText.value) = nullptr;
    addTextsOf(values, {
                           // numbers, as the US English locale writes them, and near misses
                           L"",
                           L" ",
                           L"0",
                           L"12",
                           L" 12 ",
                           L"\t12\t",
                           L"+12",
                           L"-12",
                           L"12-",
                           L"(12)",
                           L"- 12",
                           L"1,000",
                           L"1,2,3",
                           L",5",
                           L"1 000",
                           L"1.5",
                           L".5",
                           L"5.",
                           L"1.2.3",
                           L"2.5",
                           L"-2.5",
                           L"3.5",
                           L"1.5e3",
                           L"1E+20",
                           L"1e-5",
                           L"1e",
                           L"e5",
                           L"1e308",
                           L"1e309",
                           L"2147483647",
                           L"2147483648",
                           L"-2147483648",
                           L"2147483647.5",
                           L"-2147483648.5",
                           L"4294967295",
                           L"4294967296",
                           L"922337203685477.5807",
                           L"922337203685477.5808",
                           L"123456789012345678901234567890",
                           L"0.000000000000000000001",
                           L"1.23456789012345678",
                           L"0012",
                           L"0.06",
                           L"12abc",
                           L"abc",
                           L"1,5",
                           L"12\u00A0",
                           L"\u0661\u0662",
                           // hexadecimal and octal
                           L"&H10",
                           L"&h1f",
                           L"&HFFFF",
                           L"&HFFFFFFFF",
                           L"&H100000000",
                           L"&H",
                           L"&HG",
                           L"&O17",
                           L"&o8",
                           L"0x10",
                           L"-&H10",
                           // currency
                           L"$12",
                           L"$1,234.56",
                           L"-$1.50",
                           L"1.23456",
                           // yes and no
                           L"True",
                           L"true",
                           L"TRUE",
                           L"False",
                           L"false",
                           L"#TRUE#",
                           L"#FALSE#",
                           L"#true#",
                           L"yes",
                           L"no",
                           L"on",
                           L" True",
                           // dates and times
                           L"1/2/2000",
                           L"12/31/1899",
                           L"2000-01-02",
                           L"1/2/2000 3:04:05 PM",
                           L"12:00:00 AM",
                           L"3:04 PM",
                           L"15:04:05",
                           L"January 2, 2000",
                           L"2 Jan 2000",
                           L"13/1/2000",
                           L"2/30/2000",
                           L"2/29/1900",
                           L"2/29/2000",
                           L"1/2/99",
                           L"1/2",
                           L"12/31/9999",
                           L"1/1/10000",
                       });
}

void addObjectsAndReferences(Values& values)
{
    static std::deque<_variant_t> referents;
    VARIANT nullDispatch = plain(VT_DISPATCH);
    V_DISPATCH(&nullDispatch) = nullptr;
    values.emplace_back(SourceValue{"DISPATCH null", _variant_t(nullDispatch)});
    addObject(values, "valued I4 42", _variant_t(42L));
    addObject(values, "valued R8 2.5", _variant_t(2.5));
    addObject(values, "valued BSTR \"12\"", _variant_t(L"12"));
    addObject(values, "valued BSTR \"abc\"", _variant_t(L"abc"));
    addObject(values, "valued BOOL -1", _variant_t(true));
    addObject(values, "valued EMPTY", _variant_t());
    addObject(values, "valued NULL", _variant_t(plain(VT_NULL)));
    addObject(values, "without a value", _variant_t(), DISP_E_MEMBERNOTFOUND);
    VARIANT nullUnknown = plain(VT_UNKNOWN);
    V_UNKNOWN(&nullUnknown) = nullptr;
    values.emplace_back(SourceValue{"UNKNOWN null", _variant_t(nullUnknown)});
    IUnknown* withDispatch = new DefaultValueObject(_variant_t(7L), S_OK);
    values.emplace_back(SourceValue{"UNKNOWN of a dispatch valued I4 7", _variant_t(withDispatch, false)});
    values.emplace_back(SourceValue{"UNKNOWN without a dispatch",
                                    _variant_t(static_cast<IUnknown*>(new PlainObject), false)});

    addReference(values, referents, _variant_t(7L));
    addReference(values, referents, _variant_t(2.5));
    addReference(values, referents, _variant_t(L"12"));
    addReference(values, referents, _variant_t(true));
    VARIANT currency = plain(VT_CY);
    V_CY(&currency).int64 = 25000;
    addReference(values, referents, _variant_t(currency));
    addReference(values, referents, _variant_t(36526.5, VT_DATE));
    addVariantReference(values, referents, _variant_t(5L));
    addVariantReference(values, referents, _variant_t(L"True"));
    VARIANT nowhere = plain(VT_BYREF | VT_I4);
    V_BYREF(&nowhere) = nullptr;
    values.emplace_back(SourceValue{probe::value(nowhere), _variant_t(nowhere)});
}

}  // namespace

const std::deque<SourceValue>& sourceValues()
{
    static const Values values = [] {
        Values all;
        for (auto addPart : {addIntegers, addReals, addTexts, addObjectsAndReferences})
            addPart(all);
        return all;
    }();
    return values;
}

}  // namespace conversion

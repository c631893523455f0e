// The locale of the conversions: texts of numbers, amounts, dates and yes/no values written and
// read through VariantChangeTypeEx in US English named outright and in the user's and the
// system's defaults, which both builds must take for US English; and one locale the portable
// runtime does not know.
#include "probe.h"

#include <string>

namespace {

struct LocaleConversion {
    const char* name;
    VARTYPE target;
    USHORT flags;
    _variant_t (*value)();
};

_variant_t currency(long long tenThousandths)
{
    VARIANT amount;
    VariantInit(&amount);
    V_VT(&amount) = VT_CY;
    V_CY(&amount).int64 = tenThousandths;
    return _variant_t(amount);
}

const LocaleConversion kConversions[] = {
    {"real_to_text", VT_BSTR, 0, [] { return _variant_t(1234.5); }},
    {"date_to_text", VT_BSTR, 0, [] { return _variant_t(36526.75, VT_DATE); }},
    {"currency_to_text", VT_BSTR, 0, [] { return currency(-15000); }},
    {"yes_to_text", VT_BSTR, VARIANT_ALPHABOOL, [] { return _variant_t(true); }},
    {"text_to_real", VT_R8, 0, [] { return _variant_t(L"1,234.5"); }},
    {"text_to_date", VT_DATE, 0, [] { return _variant_t(L"1/2/2000 3:04 PM"); }},
    {"text_to_currency", VT_CY, 0, [] { return _variant_t(L"$1,234.56"); }},
    {"text_to_yes", VT_BOOL, 0, [] { return _variant_t(L"true"); }},
};

struct Locale {
    LCID id;
    const char* name;
};

const Locale kUsEnglishLocales[] = {
    {0x0409, "us_english"},
    {LOCALE_USER_DEFAULT, "user_default"},
    {LOCALE_SYSTEM_DEFAULT, "system_default"},
};

std::string convert(const LocaleConversion& conversion, LCID locale)
{
    _variant_t source = conversion.value();
    VARIANT result;
    VariantInit(&result);
    const HRESULT status = VariantChangeTypeEx(&result, &source, locale, conversion.flags, conversion.target);
    std::string outcome = probe::status(status);
    if (SUCCEEDED(status))
        outcome += " " + probe::value(result);
    VariantClear(&result);
    return outcome;
}

bool addLocaleCases()
{
    for (const Locale& locale : kUsEnglishLocales) {
        for (const LocaleConversion& conversion : kConversions) {
            probe::add("locale", (std::string(locale.name) + "." + conversion.name).c_str(),
                       [&conversion, &locale] { return convert(conversion, locale.id); });
        }
    }
    return true;
}

const bool kLocaleCasesAdded = addLocaleCases();

}  // namespace

PROBE_CASE(locale, german_real_to_text)
{
    return convert(kConversions[0], 0x0407);
}

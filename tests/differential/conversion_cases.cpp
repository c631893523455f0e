// VariantChangeType over the types the runtime holds and the types the host's members take: every
// source value of the table converted to every target type, with the flags that change a text's
// meaning where a text is involved.
#include "conversion_values.h"
#include "probe.h"

namespace {

struct Target {
    VARTYPE type;
    const char* name;
};

const Target kTargets[] = {
    {VT_EMPTY, "EMPTY"},     {VT_NULL, "NULL"},       {VT_I1, "I1"},       {VT_UI1, "UI1"},
    {VT_I2, "I2"},           {VT_UI2, "UI2"},         {VT_I4, "I4"},       {VT_UI4, "UI4"},
    {VT_INT, "INT"},         {VT_UINT, "UINT"},       {VT_I8, "I8"},       {VT_UI8, "UI8"},
    {VT_R4, "R4"},           {VT_R8, "R8"},           {VT_CY, "CY"},       {VT_DATE, "DATE"},
    {VT_BSTR, "BSTR"},       {VT_BOOL, "BOOL"},       {VT_ERROR, "ERROR"}, {VT_DISPATCH, "DISPATCH"},
    {VT_UNKNOWN, "UNKNOWN"}, {VT_VARIANT, "VARIANT"},
};

struct Flags {
    USHORT value;
    const char* suffix;
};

const Flags kPlain{0, ""};
const Flags kAlphaBool{VARIANT_ALPHABOOL, " (alphabool)"};
const Flags kNoValueProperty{VARIANT_NOVALUEPROP, " (novalueprop)"};

// A status no conversion gives, left in the destination to see that a failure leaves it alone.
constexpr SCODE kUntouched = static_cast<SCODE>(0x80041234u);

// The type of the value itself, through a reference.
VARTYPE valueType(const VARIANT& source)
{
    if (V_VT(&source) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(&source) != nullptr)
        return V_VT(V_VARIANTREF(&source));
    return V_VT(&source) & VT_TYPEMASK;
}

std::string convert(const VARIANT& source, VARTYPE target, USHORT flags)
{
    VARIANT result;
    VariantInit(&result);
    V_VT(&result) = VT_ERROR;
    V_ERROR(&result) = kUntouched;
    const HRESULT status = VariantChangeType(&result, const_cast<VARIANT*>(&source), flags, target);
    std::string outcome = probe::status(status);
    if (SUCCEEDED(status))
        outcome += " " + probe::value(result);
    else if (V_VT(&result) != VT_ERROR || V_ERROR(&result) != kUntouched)
        outcome += ", destination changed to " + probe::value(result);
    VariantClear(&result);
    return outcome;
}

void addCase(const conversion::SourceValue& source, const Target& target, const Flags& flags)
{
    const VARIANT* value = &source.value;
    probe::add("convert", (source.label + " to " + target.name + flags.suffix).c_str(),
               [value, target, flags] { return convert(*value, target.type, flags.value); });
}

bool addMatrix()
{
    for (const conversion::SourceValue& source : conversion::sourceValues()) {
        const VARTYPE from = valueType(source.value);
        for (const Target& target : kTargets) {
            addCase(source, target, kPlain);
            if (from == VT_BSTR || from == VT_DISPATCH || target.type == VT_BSTR)
                addCase(source, target, kAlphaBool);
            if (from == VT_DISPATCH)
                addCase(source, target, kNoValueProperty);
        }
    }
    return true;
}

const bool kMatrixAdded = addMatrix();

}  // namespace

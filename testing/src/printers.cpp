#include "simtest/printers.h"

#include "sim/journal.h"
#include "automation/utf8.h"

#include <string_view>

namespace {

void printText(const wchar_t* text, std::size_t length, std::ostream* out)
{
    if (text == nullptr)
        *out << "null";
    else
        *out << '"' << automation_text::toUtf8(std::wstring_view(text, length)) << '"';
}

}  // namespace

void PrintTo(const MxtString& text, std::ostream* out)
{
    const wchar_t* characters = text.getStringW();
    printText(characters, characters == nullptr ? 0 : std::wstring_view(characters).size(), out);
}

void PrintTo(const _bstr_t& text, std::ostream* out)
{
    printText(static_cast<const wchar_t*>(text), text.length(), out);
}

void PrintTo(const _variant_t& value, std::ostream* out)
{
    *out << sim::variantTypeName(V_VT(&value));
    if (V_VT(&value) == VT_EMPTY || V_VT(&value) == VT_NULL)
        return;
    // The value as the runtime converts it to text; a type that has no text shows its type alone.
    _variant_t source(value);
    _variant_t text;
    if (FAILED(VariantChangeType(&text, &source, VARIANT_ALPHABOOL, VT_BSTR)))
        return;
    *out << ' ';
    if (V_VT(&value) == VT_BSTR)
        printText(V_BSTR(&text), SysStringLen(V_BSTR(&text)), out);
    else
        *out << automation_text::toUtf8(std::wstring_view(V_BSTR(&text), SysStringLen(V_BSTR(&text))));
}

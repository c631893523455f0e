// The probe's runner and the texts its outcomes are written in.
#include "probe.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>
#include <utility>
#include <vector>

namespace probe {
namespace {

struct Registered {
    std::string name;
    Case body;
};

std::vector<Registered>& registered()
{
    static std::vector<Registered> cases;
    return cases;
}

std::set<std::string>& repeatedNames()
{
    static std::set<std::string> names;
    return names;
}

// Written as numbers, so that a status one build's headers lack still has its name.
const std::pair<uint32_t, const char*> kStatusNames[] = {
    {0x00000000, "S_OK"},
    {0x00000001, "S_FALSE"},
    {0x8000FFFF, "E_UNEXPECTED"},
    {0x80004001, "E_NOTIMPL"},
    {0x80004002, "E_NOINTERFACE"},
    {0x80004003, "E_POINTER"},
    {0x80004004, "E_ABORT"},
    {0x80004005, "E_FAIL"},
    {0x80070005, "E_ACCESSDENIED"},
    {0x80070006, "E_HANDLE"},
    {0x8007000E, "E_OUTOFMEMORY"},
    {0x80070057, "E_INVALIDARG"},
    {0x80070002, "HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)"},
    {0x80020001, "DISP_E_UNKNOWNINTERFACE"},
    {0x80020003, "DISP_E_MEMBERNOTFOUND"},
    {0x80020004, "DISP_E_PARAMNOTFOUND"},
    {0x80020005, "DISP_E_TYPEMISMATCH"},
    {0x80020006, "DISP_E_UNKNOWNNAME"},
    {0x80020007, "DISP_E_NONAMEDARGS"},
    {0x80020008, "DISP_E_BADVARTYPE"},
    {0x80020009, "DISP_E_EXCEPTION"},
    {0x8002000A, "DISP_E_OVERFLOW"},
    {0x8002000B, "DISP_E_BADINDEX"},
    {0x8002000C, "DISP_E_UNKNOWNLCID"},
    {0x8002000D, "DISP_E_ARRAYISLOCKED"},
    {0x8002000E, "DISP_E_BADPARAMCOUNT"},
    {0x8002000F, "DISP_E_PARAMNOTOPTIONAL"},
    {0x80020010, "DISP_E_BADCALLEE"},
    {0x80020011, "DISP_E_NOTACOLLECTION"},
    {0x80020012, "DISP_E_DIVBYZERO"},
    {0x80028019, "TYPE_E_UNSUPFORMAT"},
    {0x8002801D, "TYPE_E_LIBNOTREGISTERED"},
    {0x8002802A, "TYPE_E_WRONGTYPEKIND"},
    {0x8002802B, "TYPE_E_ELEMENTNOTFOUND"},
    {0x8002802C, "TYPE_E_AMBIGUOUSNAME"},
    {0x80028CA0, "TYPE_E_TYPEMISMATCH"},
    {0x80029C4A, "TYPE_E_CANTLOADLIBRARY"},
};

std::string hex(uint64_t number, int digits)
{
    char buffer[24];
    std::snprintf(buffer, sizeof buffer, "0x%0*llX", digits, static_cast<unsigned long long>(number));
    return buffer;
}

// The shortest decimal text that reads back as the same double, so that both builds print a
// value alike whatever their C libraries' defaults; NaN and the infinities by name, since C
// libraries spell them differently.
std::string exactly(double number)
{
    if (number != number)
        return "NaN";
    if (number == HUGE_VAL || number == -HUGE_VAL)
        return number > 0 ? "Infinity" : "-Infinity";
    char buffer[40];
    const auto written = std::to_chars(buffer, buffer + sizeof buffer, number);
    return std::string(buffer, written.ptr);
}

// A currency amount in full: its ten-thousandths as decimals, without trailing zeros.
std::string currency(const CY& amount)
{
    const bool negative = amount.int64 < 0;
    const uint64_t magnitude = negative ? 0 - static_cast<uint64_t>(amount.int64) : static_cast<uint64_t>(amount.int64);
    std::string written = (negative ? "-" : "") + std::to_string(magnitude / 10000);
    if (const uint64_t fraction = magnitude % 10000; fraction != 0) {
        char decimals[8];
        std::snprintf(decimals, sizeof decimals, ".%04u", static_cast<unsigned>(fraction));
        written += decimals;
        written.erase(written.find_last_not_of('0') + 1);
    }
    return written;
}

std::string typeName(VARTYPE type)
{
    static const std::pair<VARTYPE, const char*> kNames[] = {
        {VT_I1, "I1"},     {VT_UI1, "UI1"},   {VT_I2, "I2"},     {VT_UI2, "UI2"},           {VT_I4, "I4"},
        {VT_UI4, "UI4"},   {VT_INT, "INT"},   {VT_UINT, "UINT"}, {VT_I8, "I8"},             {VT_UI8, "UI8"},
        {VT_R4, "R4"},     {VT_R8, "R8"},     {VT_CY, "CY"},     {VT_DATE, "DATE"},         {VT_BSTR, "BSTR"},
        {VT_BOOL, "BOOL"}, {VT_ERROR, "ERROR"}, {VT_DISPATCH, "DISPATCH"}, {VT_UNKNOWN, "UNKNOWN"},
        {VT_VARIANT, "VARIANT"}, {VT_DECIMAL, "DECIMAL"},
    };
    for (const auto& [known, name] : kNames) {
        if (known == type)
            return name;
    }
    return "VT " + hex(type, 4);
}

std::string basicValue(VARTYPE type, const void* data)
{
    switch (type) {
    case VT_I1: return "I1 " + std::to_string(*static_cast<const signed char*>(data));
    case VT_UI1: return "UI1 " + std::to_string(*static_cast<const unsigned char*>(data));
    case VT_I2: return "I2 " + std::to_string(*static_cast<const SHORT*>(data));
    case VT_UI2: return "UI2 " + std::to_string(*static_cast<const USHORT*>(data));
    case VT_I4: return "I4 " + std::to_string(*static_cast<const int32_t*>(data));
    case VT_UI4: return "UI4 " + std::to_string(*static_cast<const uint32_t*>(data));
    case VT_INT: return "INT " + std::to_string(*static_cast<const int32_t*>(data));
    case VT_UINT: return "UINT " + std::to_string(*static_cast<const uint32_t*>(data));
    case VT_I8: return "I8 " + std::to_string(*static_cast<const long long*>(data));
    case VT_UI8: return "UI8 " + std::to_string(*static_cast<const unsigned long long*>(data));
    case VT_R4: return "R4 " + exactly(*static_cast<const float*>(data));
    case VT_R8: return "R8 " + exactly(*static_cast<const double*>(data));
    case VT_CY: return "CY " + currency(*static_cast<const CY*>(data));
    case VT_DATE: return "DATE " + exactly(*static_cast<const double*>(data));
    case VT_BOOL: return "BOOL " + std::to_string(*static_cast<const VARIANT_BOOL*>(data));
    case VT_ERROR: return "ERROR " + status(*static_cast<const SCODE*>(data));
    case VT_BSTR: return "BSTR " + text(*static_cast<const BSTR*>(data));
    case VT_DISPATCH: return *static_cast<IDispatch* const*>(data) != nullptr ? "DISPATCH object" : "DISPATCH null";
    case VT_UNKNOWN: return *static_cast<IUnknown* const*>(data) != nullptr ? "UNKNOWN object" : "UNKNOWN null";
    default: return typeName(type);
    }
}

}  // namespace

bool add(const char* group, const char* name, Case body)
{
    std::string full = std::string(group) + "." + name;
    for (const Registered& earlier : registered()) {
        if (earlier.name == full)
            repeatedNames().insert(full);
    }
    registered().push_back({std::move(full), std::move(body)});
    return true;
}

std::string status(HRESULT value)
{
    for (const auto& [number, name] : kStatusNames) {
        if (static_cast<uint32_t>(value) == number)
            return name;
    }
    return hex(static_cast<uint32_t>(value), 8);
}

std::string text(const wchar_t* characters, size_t length)
{
    if (characters == nullptr)
        return "null";
    std::string written = "\"";
    for (size_t i = 0; i < length; ++i) {
        const auto unit = static_cast<uint32_t>(characters[i]);
        if (unit == '"' || unit == '\\') {
            written += '\\';
            written += static_cast<char>(unit);
        }
        else if (unit >= 0x20 && unit < 0x7F) {
            written += static_cast<char>(unit);
        }
        else {
            char escaped[16];
            std::snprintf(escaped, sizeof escaped, unit > 0xFFFF ? "\\U%08X" : "\\u%04X", unit);
            written += escaped;
        }
    }
    return written + "\"";
}

std::string text(BSTR string)
{
    return text(string, string != nullptr ? SysStringLen(string) : 0);
}

std::string value(const VARIANT& variant)
{
    const VARTYPE type = V_VT(&variant);
    if (type == VT_EMPTY)
        return "EMPTY";
    if (type == VT_NULL)
        return "NULL";
    if ((type & VT_ARRAY) != 0) {
        const SAFEARRAY* array = (type & VT_BYREF) != 0 ? *V_ARRAYREF(&variant) : V_ARRAY(&variant);
        std::string written = (type & VT_BYREF) != 0 ? "BYREF ARRAY " : "ARRAY ";
        written += typeName(type & VT_TYPEMASK);
        if (array == nullptr)
            return written + " null";
        return written + " [" + std::to_string(array->cDims > 0 ? array->rgsabound[0].cElements : 0) + "]";
    }
    if ((type & VT_BYREF) != 0) {
        if (V_BYREF(&variant) == nullptr)
            return "BYREF " + typeName(type & VT_TYPEMASK) + " null";
        if ((type & VT_TYPEMASK) == VT_VARIANT)
            return "BYREF " + value(*V_VARIANTREF(&variant));
        return "BYREF " + basicValue(type & VT_TYPEMASK, V_BYREF(&variant));
    }
    return basicValue(type, &V_I1(&variant));
}

}  // namespace probe

int main()
{
    if (!probe::repeatedNames().empty()) {
        for (const std::string& name : probe::repeatedNames())
            std::fprintf(stderr, "probe case registered twice: %s\n", name.c_str());
        return 2;
    }
    for (const auto& [name, body] : probe::registered()) {
        const std::string outcome = body();
        std::printf("%s\t%s\n", name.c_str(), outcome.c_str());
        std::fflush(stdout);
    }
    return 0;
}

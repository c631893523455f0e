#include "model/text.h"

#include "MxtString"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace sim::text {
bool equalNoCase(const std::wstring& a, const std::wstring& b)
{
    if (a.size() != b.size())
        return false;
    if (a == b)
        return true;
    return MxtString::compareNoCase(MxtString(a.c_str()), MxtString(b.c_str())) == 0;
}

std::wstring foldedCase(const std::wstring& name)
{
    // As equalNoCase compares them: the letters up to a NUL, folded, and the whole length.
    std::wstring folded = MxtString(name.c_str()).toUpper().toLower().getStringW();
    folded += L'\0' + std::to_wstring(name.size());
    return folded;
}

namespace {

std::wstring backslashed(std::wstring path)
{
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path;
}

}  // namespace

bool samePath(const std::wstring& a, const std::wstring& b)
{
    return a.size() == b.size() && equalNoCase(backslashed(a), backslashed(b));
}

std::wstring foldedPath(const std::wstring& path)
{
    return foldedCase(backslashed(path));
}

std::string formatReal(double value)
{
    char buffer[32];
    for (int precision = 15; precision <= 17; ++precision) {
        std::snprintf(buffer, sizeof buffer, "%.*g", precision, value);
        if (std::strtod(buffer, nullptr) == value)
            break;
    }
    return buffer;
}

}  // namespace sim::text

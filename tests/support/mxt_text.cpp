#include "support/mxt_text.h"

#include <cstdio>

namespace module_testing {

MxtArray<MxtString> mxtStrings(std::initializer_list<const wchar_t*> texts)
{
    MxtArray<MxtString> result;
    for (const wchar_t* each : texts)
        result.add(MxtString(each));
    return result;
}

MxtArray<MxtString> numberedTexts(const std::wstring& prefix, int count)
{
    MxtArray<MxtString> texts;
    for (int number = 1; number <= count; ++number)
        texts.add(MxtString((prefix + std::to_wstring(number)).c_str()));
    return texts;
}

std::wstring text(const MxtString& value)
{
    return std::wstring(value.getStringW(), static_cast<std::size_t>(value.length()));
}

std::wstring textOfLength(std::size_t count, const std::wstring& prefix)
{
    std::wstring result = prefix.substr(0, count);
    result.resize(count, L'x');
    return result;
}

std::string narrow(const std::wstring& value)
{
    std::string result;
    for (const wchar_t ch : value) {
        if (ch >= 0x20 && ch < 0x7f) {
            result += static_cast<char>(ch);
        }
        else {
            char escape[12];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned int>(ch));
            result += escape;
        }
    }
    return result;
}

}  // namespace module_testing

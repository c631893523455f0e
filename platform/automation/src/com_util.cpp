// Raising the automation failure, and the narrow-string conversions (UTF-8 here).
#include <cstring>

#include "automation.h"
#include "automation/utf8.h"

void _com_issue_error(HRESULT status) { throw _com_error(status); }

namespace _com_util {

BSTR ConvertStringToBSTR(const char* text)
{
    if (text == nullptr)
        return nullptr;
    const std::wstring wide = automation_text::fromUtf8Replacing(text);
    BSTR result = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (result == nullptr)
        _com_issue_error(E_OUTOFMEMORY);
    return result;
}

char* ConvertBSTRToString(BSTR text)
{
    if (text == nullptr)
        return nullptr;
    // Every character, embedded nulls included, as the platform converts the whole length.
    const std::string narrow = automation_text::toUtf8(std::wstring_view(text, SysStringLen(text)));
    char* result = new char[narrow.size() + 1];
    std::memcpy(result, narrow.c_str(), narrow.size() + 1);
    return result;
}

}  // namespace _com_util

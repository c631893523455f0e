// The narrow-string conversions that MinGW's comutil.h declares but no MinGW library defines.
#include "automation.h"

namespace _com_util {

BSTR WINAPI ConvertStringToBSTR(const char* text)
{
    if (text == nullptr)
        return nullptr;
    const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    if (length <= 0)
        _com_issue_error(HRESULT_FROM_WIN32(GetLastError()));
    BSTR result = SysAllocStringLen(nullptr, static_cast<UINT>(length - 1));
    if (result == nullptr)
        _com_issue_error(E_OUTOFMEMORY);
    MultiByteToWideChar(CP_ACP, 0, text, -1, result, length);
    return result;
}

char* WINAPI ConvertBSTRToString(BSTR text)
{
    if (text == nullptr)
        return nullptr;
    const int source = static_cast<int>(SysStringLen(text)) + 1;  // with the terminator
    const int length = WideCharToMultiByte(CP_ACP, 0, text, source, nullptr, 0, nullptr, nullptr);
    char* result = new char[static_cast<size_t>(length > 0 ? length : 1)];
    if (length <= 0) {
        result[0] = '\0';
        return result;
    }
    WideCharToMultiByte(CP_ACP, 0, text, source, result, length, nullptr, nullptr);
    return result;
}

}  // namespace _com_util

// Text helpers of the automation tests.
#pragma once

#include <string>

#include "automation.h"

// A string's characters, embedded nulls included; a null string is empty.
inline std::wstring textOf(BSTR text)
{
    return text == nullptr ? std::wstring() : std::wstring(text, SysStringLen(text));
}

inline std::wstring textOf(const _bstr_t& text) { return textOf(static_cast<BSTR>(text)); }

// The platform's own system message for `code` as FormatMessageW gives it, or "" when it has none.
inline std::wstring platformMessage(HRESULT code)
{
    wchar_t* text = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(code), MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                       reinterpret_cast<LPWSTR>(&text), 0, nullptr);
    std::wstring message = length != 0 ? std::wstring(text, length) : std::wstring();
    LocalFree(text);
    return message;
}

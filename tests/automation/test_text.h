// Helpers of the automation tests: the text of a string, the platform's messages, raised failures.
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

// The automation failure `action` raises; a failure of code S_OK when it raises none.
template <class Action>
_com_error failureOf(Action action)
{
    try {
        action();
    }
    catch (const _com_error& failure) {
        return failure;
    }
    return _com_error(S_OK);
}

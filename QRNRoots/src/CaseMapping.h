// Simple (one character to one character) letter case mapping of the core library.
#pragma once

#include <string>

namespace qrnroots {

// Characters without a mapping are returned unchanged.
wchar_t toLowerCase(wchar_t ch);
wchar_t toUpperCase(wchar_t ch);

// The form in which two characters compare equal without regard to case.
inline wchar_t foldCase(wchar_t ch)
{
    return toLowerCase(toUpperCase(ch));
}

std::wstring foldCase(const wchar_t* text);

}  // namespace qrnroots

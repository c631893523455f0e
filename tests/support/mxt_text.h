// Building and reading the core library's strings and arrays in tests.
#pragma once

#include "MxtArray"
#include "MxtString"
#include "simtest/printers.h"  // how GoogleTest shows MxtString values

#include <initializer_list>
#include <string>

namespace module_testing {

MxtArray<MxtString> mxtStrings(std::initializer_list<const wchar_t*> texts);

// `count` texts: `prefix` followed by 1, 2 ... `count`.
MxtArray<MxtString> numberedTexts(const std::wstring& prefix, int count);

std::wstring text(const MxtString& value);

// `count` characters: `prefix` followed by as many 'x' as are needed.
std::wstring textOfLength(std::size_t count, const std::wstring& prefix = L"");

// Readable UTF-8 (non-ASCII characters as \u escapes) for test messages.
std::string narrow(const std::wstring& value);

}  // namespace module_testing

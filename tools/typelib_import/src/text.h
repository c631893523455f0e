// Text as the outputs hold it: UTF-8, written the same on every build.
#pragma once

#include "automation.h"

#include <string>
#include <vector>

namespace typelib_import {

// UTF-8 of a platform string (UTF-16 on Windows, UTF-32 elsewhere); null reads as empty. An
// unpaired surrogate becomes U+FFFD.
std::string utf8(const wchar_t* text);

// "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}" in lower case, as the IDL writes it.
std::string guidText(const GUID& id);

// "0x" and the hexadecimal digits of a number, at least `digits` of them.
std::string hex(unsigned long value, int digits);

// The text split at its line ends, each line without it.
std::vector<std::string> lines(const std::string& text);

}  // namespace typelib_import

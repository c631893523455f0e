// Text conversions shared by the journal, the JSON state and the host objects. The model keeps
// wide strings (UTF-16 on Windows, UTF-32 on Linux); the journal and JSON use UTF-8.
#pragma once

#include "automation.h"
#include "automation/utf8.h"

#include <string>

namespace sim::text {

using automation_text::fromUtf8;
using automation_text::toUtf8;

// Names of host objects and paths are matched without regard to letter case, the way the MX core
// library folds case.
bool equalNoCase(const std::wstring& a, const std::wstring& b);

// The form of a name in which equalNoCase is plain equality, for keys of lookups by name.
std::wstring foldedCase(const std::wstring& name);

// File paths as the host compares them: letter case ignored, '/' and '\' alike.
bool samePath(const std::wstring& a, const std::wstring& b);

// The form of a path in which samePath is plain equality, for keys of lookups by path.
std::wstring foldedPath(const std::wstring& path);

// A null automation string reads as the empty string.
inline std::wstring fromBstr(BSTR text)
{
    return text ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

// Shortest text that reads back to the same double.
std::string formatReal(double value);

}  // namespace sim::text

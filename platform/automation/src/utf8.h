// UTF-8, the narrow encoding of the portable build. Malformed input becomes U+FFFD, as the
// platform's conversions replace what they cannot map.
#pragma once

#include <string>

namespace automation_detail {

std::wstring decodeUtf8(const char* text);
std::string encodeUtf8(const wchar_t* text, std::size_t length);

}  // namespace automation_detail

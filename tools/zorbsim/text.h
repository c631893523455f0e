// UTF-8 (the scenario files' and the report's encoding) to and from the module's wide strings.
#pragma once

#include <string>
#include <string_view>

namespace zorbsim {

// Malformed input (a lone surrogate, a broken UTF-8 sequence) becomes U+FFFD, so that whatever
// the module hands back can always be reported.
std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view text);

}  // namespace zorbsim

// UTF-8, the encoding of narrow strings, files, the journal and JSON, to and from wide strings
// (UTF-16 on Windows, UTF-32 elsewhere). Both builds have it.
#pragma once

#include "automation/export.h"

#include <optional>
#include <string>
#include <string_view>

namespace automation_text {

// Unpaired surrogates, and on UTF-32 values beyond U+10FFFF, become U+FFFD.
AUTOMATION_API std::string toUtf8(std::wstring_view text);

// Null when `text` is not valid UTF-8 (overlong forms and encoded surrogates included), for
// callers that must refuse such input.
AUTOMATION_API std::optional<std::wstring> fromUtf8(std::string_view text);

// Each malformed sequence becomes U+FFFD, consumed up to the first byte that cannot belong to it,
// as the platform's conversions replace what they cannot map.
AUTOMATION_API std::wstring fromUtf8Replacing(std::string_view text);

}  // namespace automation_text

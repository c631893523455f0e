// UTF-8, the encoding of the journal, of JSON states and of anything printed, to and from the
// model's wide strings (UTF-16 on Windows, UTF-32 on Linux).
#pragma once

#include "sim/export.h"

#include <optional>
#include <string>
#include <string_view>

namespace sim::text {

// Unpaired surrogates (possible in UTF-16 only) become U+FFFD.
SIM_API std::string toUtf8(std::wstring_view text);
// Null when `text` is not valid UTF-8.
SIM_API std::optional<std::wstring> fromUtf8(std::string_view text);

}  // namespace sim::text

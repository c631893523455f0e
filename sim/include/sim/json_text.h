// Parsing JSON text with errors that point into it.
#pragma once

#include "sim/export.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string>

namespace sim {

// Input larger than this is refused unread beyond it.
constexpr std::size_t kJsonFileLimit = std::size_t(64) << 20;

// Comments are allowed. Malformed text gives a StateError "source:line:column: message", the
// column counted in characters. Also refused there: NUL characters (raw or as \u0000), nesting
// deeper than 256 levels, numbers beyond a double's range, and a member named twice in an object.
SIM_API nlohmann::json parseJsonText(const std::string& text, const std::string& source);

// Reads and parses a file. A file that cannot be read gives a StateError "path: cannot be read:
// reason"; one larger than kJsonFileLimit is refused.
SIM_API nlohmann::json loadJsonFile(const std::string& path);

}  // namespace sim

// Parsing JSON text with errors that point into it.
#pragma once

#include "sim/export.h"

#include <nlohmann/json.hpp>

#include <string>

namespace sim {

// Comments are allowed. Malformed text gives a StateError "source:line:column: message", the
// column counted in characters.
SIM_API nlohmann::json parseJsonText(const std::string& text, const std::string& source);

}  // namespace sim

// The values of scenario files that the simulator's JSON reader does not know by itself.
#pragma once

#include "sim/json_reader.h"

#include "automation.h"

#include <cstdint>

namespace zorbsim {

// A whole number of 32 bits on every build.
std::int32_t readInt32(const sim::JsonReader& value);
// A status code, by the host's name for it ("E_ACCESSDENIED") or in hex ("0x80070005").
HRESULT readStatusCode(const sim::JsonReader& value);

}  // namespace zorbsim

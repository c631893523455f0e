// Reading the basic JSON values of scenario files, failing with the value's place.
#pragma once

#include "input_error.h"

#include "automation.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <initializer_list>
#include <string>

namespace zorbsim {

std::string readString(const nlohmann::json& value, const InputPlace& place);
std::wstring readWideString(const nlohmann::json& value, const InputPlace& place);
bool readBoolean(const nlohmann::json& value, const InputPlace& place);
// A whole number of 32 bits on every build.
std::int32_t readInt32(const nlohmann::json& value, const InputPlace& place);
double readDouble(const nlohmann::json& value, const InputPlace& place);
// A status code, by the host's name for it ("E_ACCESSDENIED") or in hex ("0x80070005").
HRESULT readStatusCode(const nlohmann::json& value, const InputPlace& place);

// The member `key` of an object; fails at `place` when the object lacks it.
const nlohmann::json& requiredMember(const nlohmann::json& object, const char* key, const InputPlace& place);
// Fails on a key outside `allowed`, naming the keys that are allowed.
void requireKnownKeys(const nlohmann::json& object, std::initializer_list<const char*> allowed, const InputPlace& place);

}  // namespace zorbsim

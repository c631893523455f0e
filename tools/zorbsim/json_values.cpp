#include "json_values.h"

#include "sim/journal.h"
#include "automation/utf8.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <limits>

namespace zorbsim {

std::string readString(const nlohmann::json& value, const InputPlace& place)
{
    if (!value.is_string())
        place.fail("expected a string");
    return value.get<std::string>();
}

std::wstring readWideString(const nlohmann::json& value, const InputPlace& place)
{
    std::optional<std::wstring> text = automation_text::fromUtf8(readString(value, place));
    if (!text)
        place.fail("expected UTF-8 text");
    return std::move(*text);
}

bool readBoolean(const nlohmann::json& value, const InputPlace& place)
{
    if (!value.is_boolean())
        place.fail("expected true or false");
    return value.get<bool>();
}

namespace {

long long readWholeNumber(const nlohmann::json& value, const InputPlace& place, long long lowest,
                          long long highest)
{
    const bool fits = value.is_number_unsigned()
                          ? value.get<unsigned long long>() <= static_cast<unsigned long long>(highest)
                          : value.is_number_integer() && value.get<long long>() >= lowest &&
                                value.get<long long>() <= highest;
    if (!fits)
        place.fail("expected a whole number from " + std::to_string(lowest) + " to " +
                   std::to_string(highest));
    return value.get<long long>();
}

}  // namespace

std::int32_t readInt32(const nlohmann::json& value, const InputPlace& place)
{
    return static_cast<std::int32_t>(readWholeNumber(value, place, std::numeric_limits<std::int32_t>::min(),
                                                     std::numeric_limits<std::int32_t>::max()));
}

double readDouble(const nlohmann::json& value, const InputPlace& place)
{
    if (!value.is_number())
        place.fail("expected a number");
    return value.get<double>();
}

HRESULT readStatusCode(const nlohmann::json& value, const InputPlace& place)
{
    // The host's own reader, so that a scenario names statuses as its faults and states do.
    const auto status = value.is_string() ? sim::statusNamed(value.get<std::string>()) : std::nullopt;
    if (!status)
        place.fail("expected a status name such as \"E_FAIL\" or a code in hex such as \"0x80004005\"");
    return *status;
}

const nlohmann::json& requiredMember(const nlohmann::json& object, const char* key, const InputPlace& place)
{
    if (!object.contains(key))
        place.fail(std::string("missing \"") + key + "\"");
    return object[key];
}

void requireKnownKeys(const nlohmann::json& object, std::initializer_list<const char*> allowed,
                      const InputPlace& place)
{
    for (const auto& member : object.items()) {
        const bool known =
            std::any_of(allowed.begin(), allowed.end(), [&](const char* key) { return member.key() == key; });
        if (known)
            continue;
        std::string names;
        for (const char* key : allowed)
            names += std::string(names.empty() ? "" : ", ") + "\"" + key + "\"";
        (place / member.key()).fail("unknown member; expected one of " + names);
    }
}

}  // namespace zorbsim

#include "json_values.h"

#include "sim/journal.h"

#include <limits>

namespace zorbsim {

std::int32_t readInt32(const sim::JsonReader& value)
{
    return static_cast<std::int32_t>(
        value.integer(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

HRESULT readStatusCode(const sim::JsonReader& value)
{
    // The host's own reader, so that a scenario names statuses as its faults and states do.
    const auto status = value.isText() ? sim::statusNamed(value.bytes()) : std::nullopt;
    if (!status)
        value.fail("expected a status name such as \"E_FAIL\" or a code in hex such as \"0x80004005\"");
    return *status;
}

}  // namespace zorbsim

// The simulated host's state reader: any text either loads to a state whose dump loads back to an
// equal state, or is refused with a StateError that says why. Any other exception escapes, and
// libFuzzer reports it as a crash.
#include "sim/json_text.h"
#include "sim/state_json.h"

#include "fuzz_check.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace {

// Nothing when the reader refuses the text.
std::optional<sim::HostState> load(const std::string& text, const std::string& source)
{
    try {
        return sim::stateFromJson(sim::parseJsonText(text, source));
    }
    catch (const sim::StateError& refused) {
        fuzz::require(*refused.what() != '\0', "a refusal says why");
        return std::nullopt;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::optional<sim::HostState> state = load(std::string(reinterpret_cast<const char*>(data), size), "input");
    if (!state)
        return 0;
    const std::optional<sim::HostState> reloaded = load(sim::stateToJson(*state).dump(2), "dump");
    fuzz::require(reloaded.has_value(), "the dump of a loaded state loads");
    fuzz::require(*reloaded == *state, "the dump of a loaded state loads back equal");
    return 0;
}

// zorbsim's scenario reader: any text either parses to a scenario or is refused with an InputError
// that says why. Any other exception escapes, and libFuzzer reports it as a crash.
//
// A host state named by file is looked for in the test hosts' folder (HOSTS_FOLDER). An input that
// names a file elsewhere is passed over: the reader would read whatever file the fuzzer came up
// with, /dev/zero without end.
#include "input_error.h"
#include "json_file.h"
#include "scenario.h"

#include "fuzz_check.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

bool namesHostFileElsewhere(const nlohmann::json& document)
{
    if (!document.is_object())
        return false;
    const auto host = document.find("host");
    return host != document.end() && host->is_string() && host->get<std::string>().find('/') != std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    try {
        const nlohmann::json document = zorbsim::parseJsonText(text, "input.json");
        if (namesHostFileElsewhere(document))
            return -1;  // kept out of the corpus
        zorbsim::parseScenario(document, "input.json", HOSTS_FOLDER);
    }
    catch (const zorbsim::InputError& refused) {
        fuzz::require(*refused.what() != '\0', "a refusal says why");
    }
    return 0;
}

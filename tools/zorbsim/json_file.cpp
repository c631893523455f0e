#include "json_file.h"

#include "input_error.h"

#include "sim/json_text.h"
#include "sim/state_json.h"


namespace zorbsim {

nlohmann::json parseJsonText(const std::string& text, const std::string& source)
{
    try {
        return sim::parseJsonText(text, source);
    }
    catch (const sim::StateError& malformed) {
        throw InputError(malformed.what());
    }
}

nlohmann::json readJsonFile(const std::string& path)
{
    try {
        return sim::loadJsonFile(path);
    }
    catch (const sim::StateError& unreadable) {
        throw InputError(unreadable.what());
    }
}

}  // namespace zorbsim

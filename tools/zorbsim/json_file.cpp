#include "json_file.h"

#include "input_error.h"

#include "sim/json_text.h"
#include "sim/state_json.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

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
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored))
        throw InputError(path + ": cannot read (it is a folder)");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw InputError(path + ": cannot read (" + std::strerror(errno) + ")");
    std::ostringstream text;
    text << file.rdbuf();
    if (file.bad())
        throw InputError(path + ": cannot read");
    return parseJsonText(text.str(), path);
}

}  // namespace zorbsim

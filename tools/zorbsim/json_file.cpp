#include "json_file.h"

#include "input_error.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace zorbsim {
namespace {

// The parser's own text without its "[json.exception...] parse error at ...: " preamble.
std::string parseErrorReason(const nlohmann::json::parse_error& error)
{
    const std::string what = error.what();
    const auto preamble = what.find("parse error");
    const auto reason = what.find(": ", preamble == std::string::npos ? 0 : preamble);
    return reason == std::string::npos ? what : what.substr(reason + 2);
}

}  // namespace

nlohmann::json parseJsonText(const std::string& text, const std::string& source)
{
    try {
        // Comments are allowed, as in host state files.
        return nlohmann::json::parse(text, nullptr, true, true);
    }
    catch (const nlohmann::json::parse_error& error) {
        // The parser gives the offset (from 1) of the last byte it read; lines and columns count
        // characters up to it.
        std::size_t line = 1;
        std::size_t column = 1;
        const std::size_t end = std::min<std::size_t>(error.byte > 0 ? error.byte - 1 : 0, text.size());
        for (std::size_t i = 0; i < end; ++i) {
            const auto byte = static_cast<unsigned char>(text[i]);
            if (byte == '\n') {
                ++line;
                column = 1;
            }
            else if ((byte & 0xC0) != 0x80) {
                ++column;
            }
        }
        throw InputError(source + ":" + std::to_string(line) + ":" + std::to_string(column) + ": " +
                         parseErrorReason(error));
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

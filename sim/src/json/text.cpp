#include "sim/json_text.h"

#include "sim/state_json.h"

#include "json/checks.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace sim {
namespace {

// Line and column (counted in characters, from 1) of the byte at `offset` (from 0).
std::pair<size_t, size_t> lineAndColumn(const std::string& text, size_t offset)
{
    size_t line = 1;
    size_t column = 1;
    const size_t end = std::min(offset, text.size());
    for (size_t i = 0; i < end; ++i) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        if (c == '\n') {
            ++line;
            column = 1;
        }
        else if ((c & 0xC0) != 0x80) {
            ++column;
        }
    }
    return {line, column};
}

// nlohmann's message without its own "[json.exception...] parse error at ...: " preamble.
std::string parseMessage(const nlohmann::json::parse_error& error)
{
    const std::string message = error.what();
    const size_t start = message.find("parse error");
    const size_t colon = start == std::string::npos ? std::string::npos : message.find(": ", start);
    return colon == std::string::npos ? message : message.substr(colon + 2);
}

[[noreturn]] void failAt(const std::string& text, size_t offset, const std::string& source,
                         const std::string& message)
{
    const auto [line, column] = lineAndColumn(text, offset);
    throw StateError(source + ":" + std::to_string(line) + ":" + std::to_string(column) + ": " + message);
}

}  // namespace

nlohmann::json parseJsonText(const std::string& text, const std::string& source)
{
    if (const auto problem = detail::findTextProblem(text))
        failAt(text, problem->offset, source, problem->message);
    try {
        return nlohmann::json::parse(text, nullptr, true, true);
    }
    catch (const nlohmann::json::parse_error& error) {
        // The parser counts bytes from 1.
        failAt(text, error.byte > 0 ? error.byte - 1 : 0, source, parseMessage(error));
    }
}

nlohmann::json loadJsonFile(const std::string& path)
{
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored))
        throw StateError(path + ": cannot be read: it is a folder");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw StateError(path + ": cannot be read: " + std::strerror(errno));
    // Read in pieces up to one byte beyond the limit, so that an endless input (a device) ends.
    std::string text;
    char piece[65536];
    while (text.size() <= kJsonFileLimit && file.read(piece, sizeof piece).gcount() > 0)
        text.append(piece, static_cast<size_t>(file.gcount()));
    if (file.bad())
        throw StateError(path + ": cannot be read: " + std::strerror(errno));
    if (text.size() > kJsonFileLimit)
        throw StateError(path + ": larger than " + std::to_string(kJsonFileLimit >> 20) + " MiB (the limit)");
    return parseJsonText(text, path);
}

}  // namespace sim

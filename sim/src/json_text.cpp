#include "sim/json_text.h"

#include "sim/state_json.h"

#include <algorithm>
#include <utility>

namespace sim {
namespace {

// Line and column (counted in characters, from 1) of a byte offset from 1, as the parser counts.
std::pair<size_t, size_t> lineAndColumn(const std::string& text, size_t byte)
{
    size_t line = 1;
    size_t column = 1;
    const size_t end = std::min(byte > 0 ? byte - 1 : 0, text.size());
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

}  // namespace

nlohmann::json parseJsonText(const std::string& text, const std::string& source)
{
    try {
        return nlohmann::json::parse(text, nullptr, true, true);
    }
    catch (const nlohmann::json::parse_error& error) {
        const auto [line, column] = lineAndColumn(text, error.byte);
        throw StateError(source + ":" + std::to_string(line) + ":" + std::to_string(column) + ": " +
                         parseMessage(error));
    }
}

}  // namespace sim

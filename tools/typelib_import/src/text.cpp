#include "text.h"

#include <cstdint>

namespace typelib_import {
namespace {

void appendUtf8(std::string& out, std::uint32_t code)
{
    if (code < 0x80) {
        out += static_cast<char>(code);
    }
    else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
    else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
    else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

bool isHighSurrogate(std::uint32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLowSurrogate(std::uint32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

std::string utf8(const wchar_t* text)
{
    constexpr std::uint32_t replacement = 0xFFFD;
    std::string out;
    for (const wchar_t* at = text; at && *at; ++at) {
        std::uint32_t code = static_cast<std::uint32_t>(*at);
        if (isHighSurrogate(code) && isLowSurrogate(static_cast<std::uint32_t>(at[1]))) {
            code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<std::uint32_t>(at[1]) - 0xDC00);
            ++at;
        }
        else if (isHighSurrogate(code) || isLowSurrogate(code) || code > 0x10FFFF) {
            code = replacement;
        }
        appendUtf8(out, code);
    }
    return out;
}

std::string hex(unsigned long value, int digits)
{
    static const char kDigits[] = "0123456789abcdef";
    std::string number;
    do {
        number.insert(number.begin(), kDigits[value & 0xF]);
        value >>= 4;
    } while (value != 0);
    if (static_cast<int>(number.size()) < digits)
        number.insert(0, digits - number.size(), '0');
    return "0x" + number;
}

std::string guidText(const GUID& id)
{
    auto digits = [](unsigned long value, int count) { return hex(value, count).substr(2); };
    std::string text =
        "{" + digits(id.Data1, 8) + "-" + digits(id.Data2, 4) + "-" + digits(id.Data3, 4) + "-";
    for (int i = 0; i < 8; ++i) {
        if (i == 2)
            text += '-';
        text += digits(id.Data4[i], 2);
    }
    return text + "}";
}

std::vector<std::string> lines(const std::string& text)
{
    std::vector<std::string> found;
    std::string::size_type start = 0;
    while (start <= text.size()) {
        const std::string::size_type end = text.find('\n', start);
        std::string line = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        found.push_back(line);
        if (end == std::string::npos)
            break;
        start = end + 1;
    }
    return found;
}

}  // namespace typelib_import

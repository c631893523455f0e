#include "text.h"

namespace zorbsim {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void appendUtf8(std::string& out, char32_t code)
{
    if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        code = kReplacement;
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

void appendWide(std::wstring& out, char32_t code)
{
    if constexpr (sizeof(wchar_t) == 2) {
        if (code >= 0x10000) {
            code -= 0x10000;
            out += static_cast<wchar_t>(0xD800 + (code >> 10));
            out += static_cast<wchar_t>(0xDC00 + (code & 0x3FF));
            return;
        }
    }
    out += static_cast<wchar_t>(code);
}

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

std::string toUtf8(std::wstring_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = static_cast<char32_t>(text[i]);
        if constexpr (sizeof(wchar_t) == 2) {
            if (isHighSurrogate(code) && i + 1 < text.size() && isLowSurrogate(static_cast<char32_t>(text[i + 1]))) {
                code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<char32_t>(text[i + 1]) - 0xDC00);
                ++i;
            }
        }
        appendUtf8(out, code);
    }
    return out;
}

std::wstring fromUtf8(std::string_view text)
{
    std::wstring out;
    out.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const int trailing = lead < 0x80 ? 0 : (lead >> 5) == 0x6 ? 1 : (lead >> 4) == 0xE ? 2 : (lead >> 3) == 0x1E ? 3 : -1;
        if (trailing < 0 || i + static_cast<std::size_t>(trailing) >= text.size()) {
            appendWide(out, kReplacement);
            ++i;
            continue;
        }
        char32_t code = trailing == 0 ? lead : lead & (0x3F >> trailing);
        bool wellFormed = true;
        for (int k = 1; k <= trailing; ++k) {
            const auto next = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
            if ((next & 0xC0) != 0x80) {
                wellFormed = false;
                break;
            }
            code = (code << 6) | (next & 0x3F);
        }
        if (!wellFormed) {
            appendWide(out, kReplacement);
            ++i;
            continue;
        }
        appendWide(out, code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF) ? kReplacement : code);
        i += static_cast<std::size_t>(trailing) + 1;
    }
    return out;
}

}  // namespace zorbsim

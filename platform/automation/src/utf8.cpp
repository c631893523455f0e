#include "automation/utf8.h"

namespace automation_text {

namespace {

constexpr char32_t replacement = 0xFFFD;

constexpr bool wideIsUtf16 = sizeof(wchar_t) == 2;

bool isSurrogate(char32_t c)
{
    return c >= 0xD800 && c <= 0xDFFF;
}

bool isScalarValue(char32_t c)
{
    return c <= 0x10FFFF && !isSurrogate(c);
}

bool isContinuation(unsigned char byte)
{
    return (byte & 0xC0) == 0x80;
}

struct LeadByte {
    int following;      // continuation bytes, -1 for a byte that cannot start a character
    char32_t bits;      // the character's bits it carries
    char32_t smallest;  // below this the sequence is overlong
};

LeadByte leadByte(unsigned char lead)
{
    if ((lead & 0xE0) == 0xC0)
        return {1, lead & 0x1Fu, 0x80};
    if ((lead & 0xF0) == 0xE0)
        return {2, lead & 0x0Fu, 0x800};
    if ((lead & 0xF8) == 0xF0)
        return {3, lead & 0x07u, 0x10000};
    return {-1, 0, 0};
}

// Reads one character at `at` and moves past it; a malformed sequence gives nothing and is
// consumed up to the first byte that cannot belong to it.
std::optional<char32_t> decodeOne(std::string_view::const_iterator& at, std::string_view::const_iterator end)
{
    const auto first = static_cast<unsigned char>(*at++);
    if (first < 0x80)
        return first;
    const LeadByte lead = leadByte(first);
    if (lead.following < 0)
        return std::nullopt;
    char32_t c = lead.bits;
    for (int i = 0; i < lead.following; ++i) {
        if (at == end || !isContinuation(static_cast<unsigned char>(*at)))
            return std::nullopt;
        c = (c << 6) | (static_cast<unsigned char>(*at++) & 0x3F);
    }
    if (c < lead.smallest || !isScalarValue(c))
        return std::nullopt;
    return c;
}

void appendWide(std::wstring& out, char32_t c)
{
    if (wideIsUtf16 && c >= 0x10000) {
        c -= 0x10000;
        out += static_cast<wchar_t>(0xD800 + (c >> 10));
        out += static_cast<wchar_t>(0xDC00 + (c & 0x3FF));
        return;
    }
    out += static_cast<wchar_t>(c);
}

void appendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
        return;
    }
    if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
    }
    else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    }
    else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    }
    out += static_cast<char>(0x80 | (c & 0x3F));
}

// The character that starts at `text[i]`, joining a surrogate pair on UTF-16; `i` moves to its
// last unit.
char32_t wideCharacter(std::wstring_view text, std::size_t& i)
{
    const auto c = static_cast<char32_t>(text[i]);
    if (wideIsUtf16 && c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size()) {
        const auto low = static_cast<char32_t>(text[i + 1]);
        if (low >= 0xDC00 && low <= 0xDFFF) {
            ++i;
            return 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
        }
    }
    return c;
}

}  // namespace

std::string toUtf8(std::wstring_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t c = wideCharacter(text, i);
        appendUtf8(out, isScalarValue(c) ? c : replacement);
    }
    return out;
}

std::optional<std::wstring> fromUtf8(std::string_view text)
{
    std::wstring out;
    out.reserve(text.size());
    for (auto at = text.begin(); at != text.end();) {
        const auto c = decodeOne(at, text.end());
        if (!c)
            return std::nullopt;
        appendWide(out, *c);
    }
    return out;
}

std::wstring fromUtf8Replacing(std::string_view text)
{
    std::wstring out;
    out.reserve(text.size());
    for (auto at = text.begin(); at != text.end();)
        appendWide(out, decodeOne(at, text.end()).value_or(replacement));
    return out;
}

}  // namespace automation_text

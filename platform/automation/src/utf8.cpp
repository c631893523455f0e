#include "utf8.h"

namespace automation_detail {

namespace {

constexpr char32_t replacement = 0xFFFD;

bool isScalarValue(char32_t c) { return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF); }

bool isContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

struct LeadByte {
    int following;       // continuation bytes, -1 for a byte that cannot start a character
    char32_t bits;       // the character's bits it carries
    char32_t smallest;   // below this the sequence is overlong
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

// Reads one character from `text` and moves past it; a malformed sequence is consumed up to the
// first byte that cannot belong to it.
char32_t decodeOne(const unsigned char*& text)
{
    if (*text < 0x80)
        return *text++;
    const LeadByte lead = leadByte(*text++);
    if (lead.following < 0)
        return replacement;
    char32_t c = lead.bits;
    for (int i = 0; i < lead.following; ++i) {
        if (!isContinuation(*text))
            return replacement;
        c = (c << 6) | (*text++ & 0x3F);
    }
    return c >= lead.smallest && isScalarValue(c) ? c : replacement;
}

void encodeOne(char32_t c, std::string& out)
{
    if (!isScalarValue(c))
        c = replacement;
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

}  // namespace

std::wstring decodeUtf8(const char* text)
{
    std::wstring decoded;
    for (auto* at = reinterpret_cast<const unsigned char*>(text); *at != 0;)
        decoded += static_cast<wchar_t>(decodeOne(at));
    return decoded;
}

std::string encodeUtf8(const wchar_t* text, std::size_t length)
{
    std::string encoded;
    for (std::size_t i = 0; i < length; ++i)
        encodeOne(static_cast<char32_t>(text[i]), encoded);
    return encoded;
}

}  // namespace automation_detail

#include "model/text.h"

#include "MxtString"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace sim::text {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void appendUtf8(std::string& out, char32_t code)
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

bool isSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDFFF; }

}  // namespace

std::string toUtf8(std::wstring_view text)
{
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t code = static_cast<char32_t>(text[i]);
        if constexpr (sizeof(wchar_t) == 2) {
            code &= 0xFFFF;
            if (code >= 0xD800 && code <= 0xDBFF && i + 1 < text.size()) {
                const char32_t low = static_cast<char32_t>(text[i + 1]) & 0xFFFF;
                if (low >= 0xDC00 && low <= 0xDFFF) {
                    code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
                    ++i;
                }
            }
        }
        if (isSurrogate(code) || code > 0x10FFFF)
            code = kReplacement;
        appendUtf8(out, code);
    }
    return out;
}

std::optional<std::wstring> fromUtf8(std::string_view text)
{
    std::wstring out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        const unsigned char lead = static_cast<unsigned char>(text[i]);
        int length = 0;
        char32_t code = 0;
        if (lead < 0x80) {
            length = 1;
            code = lead;
        }
        else if ((lead & 0xE0) == 0xC0) {
            length = 2;
            code = lead & 0x1F;
        }
        else if ((lead & 0xF0) == 0xE0) {
            length = 3;
            code = lead & 0x0F;
        }
        else if ((lead & 0xF8) == 0xF0) {
            length = 4;
            code = lead & 0x07;
        }
        else {
            return std::nullopt;
        }
        if (i + length > text.size())
            return std::nullopt;
        for (int k = 1; k < length; ++k) {
            const unsigned char next = static_cast<unsigned char>(text[i + k]);
            if ((next & 0xC0) != 0x80)
                return std::nullopt;
            code = (code << 6) | (next & 0x3F);
        }
        static constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
        if (code < smallest[length] || code > 0x10FFFF || isSurrogate(code))
            return std::nullopt;  // overlong forms and encoded surrogates are not UTF-8
        appendWide(out, code);
        i += length;
    }
    return out;
}

bool equalNoCase(const std::wstring& a, const std::wstring& b)
{
    if (a.size() != b.size())
        return false;
    if (a == b)
        return true;
    return MxtString::compareNoCase(MxtString(a.c_str()), MxtString(b.c_str())) == 0;
}

std::wstring foldedCase(const std::wstring& name)
{
    // As equalNoCase compares them: the letters up to a NUL, folded, and the whole length.
    std::wstring folded = MxtString(name.c_str()).toUpper().toLower().getStringW();
    folded += L'\0' + std::to_wstring(name.size());
    return folded;
}

namespace {

std::wstring backslashed(std::wstring path)
{
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path;
}

}  // namespace

bool samePath(const std::wstring& a, const std::wstring& b)
{
    return a.size() == b.size() && equalNoCase(backslashed(a), backslashed(b));
}

std::wstring foldedPath(const std::wstring& path)
{
    return foldedCase(backslashed(path));
}

std::string formatReal(double value)
{
    char buffer[32];
    for (int precision = 15; precision <= 17; ++precision) {
        std::snprintf(buffer, sizeof buffer, "%.*g", precision, value);
        if (std::strtod(buffer, nullptr) == value)
            break;
    }
    return buffer;
}

}  // namespace sim::text

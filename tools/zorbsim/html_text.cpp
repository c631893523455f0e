#include "html_text.h"

#include "automation/utf8.h"

namespace zorbsim::html {
namespace {

// The code units of the character at `at`: two for a surrogate pair where wchar_t is 16 bits.
std::size_t characterLength(std::wstring_view text, std::size_t at)
{
    if constexpr (sizeof(wchar_t) == 2) {
        const auto unit = static_cast<unsigned>(text[at]);
        if (unit >= 0xD800 && unit <= 0xDBFF && at + 1 < text.size()) {
            const auto next = static_cast<unsigned>(text[at + 1]);
            if (next >= 0xDC00 && next <= 0xDFFF)
                return 2;
        }
    }
    return 1;
}

}  // namespace

std::string escape(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size());
    for (const char character : text) {
        switch (character) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        case '\'':
            escaped += "&#39;";
            break;
        default:
            escaped += character;
        }
    }
    return escaped;
}

std::string escape(std::wstring_view text)
{
    return escape(automation_text::toUtf8(text));
}

std::string menuLabel(std::wstring_view label)
{
    std::string shown;
    std::size_t plain = 0;  // where the text not yet shown starts
    for (std::size_t at = 0; at < label.size(); ++at) {
        if (label[at] != L'&' || at + 1 == label.size())
            continue;
        shown += escape(label.substr(plain, at - plain));
        const std::size_t length = characterLength(label, at + 1);
        const std::string marked = escape(label.substr(at + 1, length));
        shown += label[at + 1] == L'&' ? marked : "<u>" + marked + "</u>";
        at += length;
        plain = at + 1;
    }
    return shown + escape(label.substr(plain));
}

}  // namespace zorbsim::html

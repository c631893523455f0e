#include "automation_failure.h"

#include "sim/utf8.h"

#include <cctype>
#include <cstdint>
#include <cstdio>

namespace zorbsim {
namespace {

std::string messageOf(const _com_error& error)
{
    const auto* message = error.ErrorMessage();
    return message == nullptr ? std::string() : sim::text::toUtf8(message);
}

// Reading the description allocates a string, which an armed allocation fault may refuse; the
// failure is then reported without it.
std::string descriptionOf(const _com_error& error)
{
    try {
        const _bstr_t description = error.Description();
        const wchar_t* text = description;
        return text == nullptr ? std::string()
                               : sim::text::toUtf8(std::wstring_view(text, description.length()));
    }
    catch (const _com_error&) {
        return std::string();
    }
}

}  // namespace

AutomationFailure describeFailure(const _com_error& error)
{
    return {error.Error(), messageOf(error), descriptionOf(error)};
}

std::string platformMessage(HRESULT code)
{
    return messageOf(_com_error(code));
}

std::string hexStatus(HRESULT code)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(static_cast<std::uint32_t>(code)));
    return text;
}

std::string statusWithMessage(HRESULT code)
{
    const std::string message = platformMessage(code);
    return message.empty() ? hexStatus(code) : hexStatus(code) + " (" + message + ")";
}

std::optional<HRESULT> parseHexStatus(const std::string& text)
{
    if (text.size() != 10 || text[0] != '0' || (text[1] != 'x' && text[1] != 'X'))
        return std::nullopt;
    std::uint32_t value = 0;
    for (std::size_t i = 2; i < text.size(); ++i) {
        const auto digit = static_cast<unsigned char>(text[i]);
        if (!std::isxdigit(digit))
            return std::nullopt;
        value = value * 16 + static_cast<std::uint32_t>(std::isdigit(digit) ? digit - '0'
                                                                            : std::tolower(digit) - 'a' + 10);
    }
    return static_cast<HRESULT>(value);
}

}  // namespace zorbsim

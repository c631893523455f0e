#include "automation_failure.h"

#include "sim/journal.h"

#include "automation/utf8.h"

namespace zorbsim {
namespace {

std::string messageOf(const _com_error& error)
{
    const auto* message = error.ErrorMessage();
    return message == nullptr ? std::string() : automation_text::toUtf8(message);
}

// Reading the description allocates a string, which an armed allocation fault may refuse; the
// failure is then reported without it.
std::string descriptionOf(const _com_error& error)
{
    try {
        const _bstr_t description = error.Description();
        const wchar_t* text = description;
        return text == nullptr ? std::string()
                               : automation_text::toUtf8(std::wstring_view(text, description.length()));
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

std::string statusWithMessage(HRESULT code)
{
    const std::string message = platformMessage(code);
    const std::string hex = sim::statusInHex(code);
    return message.empty() ? hex : hex + " (" + message + ")";
}

}  // namespace zorbsim

#include "input_error.h"

namespace zorbsim {
namespace {

// A JSON pointer's reference token: "~" and "/" are escaped as "~0" and "~1".
std::string escapePointerToken(const std::string& key)
{
    std::string escaped;
    for (const char c : key) {
        if (c == '~')
            escaped += "~0";
        else if (c == '/')
            escaped += "~1";
        else
            escaped += c;
    }
    return escaped;
}

}  // namespace

InputPlace InputPlace::step(std::size_t index) const
{
    InputPlace place = *this / "steps" / index;
    place.m_step = "step " + std::to_string(index + 1);
    return place;
}

InputPlace InputPlace::operator/(const std::string& key) const
{
    InputPlace place = *this;
    place.m_pointer += "/" + escapePointerToken(key);
    return place;
}

InputPlace InputPlace::operator/(std::size_t index) const
{
    InputPlace place = *this;
    place.m_pointer += "/" + std::to_string(index);
    return place;
}

std::string InputPlace::text() const
{
    std::string text = m_source;
    if (!m_step.empty())
        text += ": " + m_step;
    if (!m_pointer.empty())
        text += (m_step.empty() ? ": " : " at ") + m_pointer;
    return text;
}

void InputPlace::fail(const std::string& message) const { throw InputError(text() + ": " + message); }

void InputPlace::failNested(const std::string& message) const
{
    const auto end = message.find(": ");
    if (!message.empty() && message.front() == '/' && end != std::string::npos) {
        InputPlace nested = *this;
        nested.m_pointer += message.substr(0, end);
        nested.fail(message.substr(end + 2));
    }
    fail(message);
}

}  // namespace zorbsim

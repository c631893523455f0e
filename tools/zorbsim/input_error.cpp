#include "input_error.h"

#include <nlohmann/json.hpp>

namespace zorbsim {

InputPlace InputPlace::step(std::size_t index) const
{
    InputPlace place = *this / "steps" / index;
    place.m_step = "step " + std::to_string(index + 1);
    return place;
}

InputPlace InputPlace::operator/(const std::string& key) const
{
    InputPlace place = *this;
    place.m_pointer = (nlohmann::json::json_pointer(m_pointer) / key).to_string();
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

void InputPlace::fail(const std::string& message) const
{
    throw InputError(text() + ": " + message);
}

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

#include "input_error.h"

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
    place.m_pointer = sim::jsonPathTo(m_pointer, key);
    return place;
}

InputPlace InputPlace::operator/(std::size_t index) const
{
    return *this / std::to_string(index);
}

std::string InputPlace::textAt(const std::string& pointer) const
{
    std::string text = m_source;
    if (!m_step.empty())
        text += ": " + m_step;
    if (!pointer.empty())
        text += (m_step.empty() ? ": " : " at ") + pointer;
    return text;
}

std::exception_ptr InputPlace::rejection(const std::string& path, const std::string& problem) const
{
    return std::make_exception_ptr(InputError(textAt(path) + ": " + problem));
}

std::string InputPlace::unknownMember(const std::vector<const char*>& known) const
{
    std::string names;
    for (const char* key : known)
        names += std::string(names.empty() ? "" : ", ") + "\"" + key + "\"";
    return "unknown member; expected one of " + names;
}

}  // namespace zorbsim

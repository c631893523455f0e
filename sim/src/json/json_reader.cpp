#include "sim/json_reader.h"

#include "model/text.h"

#include <algorithm>

namespace sim {

std::string JsonSource::booleanExpected() const
{
    return "a boolean";
}

std::string JsonSource::unknownMember(const std::vector<const char*>& known) const
{
    std::string names;
    for (const char* name : known)
        names += (names.empty() ? "" : ", ") + std::string(name);
    return "unknown member (expected one of: " + names + ")";
}

// Appended to the parent's path as it stands: parsing the path again for every member would cost
// time in the square of the nesting depth.
std::string jsonPathTo(const std::string& path, const std::string& key)
{
    std::string extended = path;
    extended += '/';
    for (const char c : key) {
        if (c == '~')
            extended += "~0";
        else if (c == '/')
            extended += "~1";
        else
            extended += c;
    }
    return extended;
}

void JsonReader::fail(const std::string& message) const
{
    std::rethrow_exception(m_source->rejection(m_path, message));
}

JsonReader JsonReader::at(const std::string& key, const nlohmann::json& value) const
{
    return JsonReader(value, *m_source, jsonPathTo(m_path, key));
}

void JsonReader::expectObject(const std::vector<const char*>& known) const
{
    if (!m_value->is_object())
        expected("an object");
    for (const auto& [key, value] : m_value->items()) {
        // Captured by name: clang before 16 cannot capture a structured binding in C++17.
        const bool isKnown =
            std::any_of(known.begin(), known.end(), [&key = key](const char* name) { return key == name; });
        if (!isKnown)
            at(key, value).fail(m_source->unknownMember(known));
    }
}

std::optional<JsonReader> JsonReader::member(const char* name) const
{
    const auto found = m_value->find(name);
    if (found == m_value->end())
        return std::nullopt;
    return at(name, *found);
}

JsonReader JsonReader::required(const char* name) const
{
    auto found = member(name);
    if (!found)
        fail(std::string("missing \"") + name + "\"");
    return *found;
}

std::vector<std::pair<std::wstring, JsonReader>> JsonReader::members() const
{
    if (!m_value->is_object())
        expected("an object");
    std::vector<std::pair<std::wstring, JsonReader>> members;
    for (const auto& [key, value] : m_value->items()) {
        JsonReader reader = at(key, value);
        const auto name = text::fromUtf8(key);
        if (!name)
            reader.fail("member name is not valid UTF-8");
        members.emplace_back(*name, reader);
    }
    return members;
}

std::vector<JsonReader> JsonReader::elements() const
{
    if (!m_value->is_array())
        expected("an array");
    std::vector<JsonReader> elements;
    elements.reserve(m_value->size());
    for (size_t i = 0; i < m_value->size(); ++i)
        elements.push_back(at(std::to_string(i), (*m_value)[i]));
    return elements;
}

const std::string& JsonReader::bytes() const
{
    if (!m_value->is_string())
        expected("a string");
    return m_value->get_ref<const std::string&>();
}

std::wstring JsonReader::text() const
{
    auto converted = text::fromUtf8(bytes());
    if (!converted)
        expected("a string of valid UTF-8");
    return std::move(*converted);
}

bool JsonReader::boolean() const
{
    if (!m_value->is_boolean())
        expected(m_source->booleanExpected());
    return m_value->get<bool>();
}

long long JsonReader::integer(long long lowest, long long highest) const
{
    const std::string range =
        "a whole number from " + std::to_string(lowest) + " to " + std::to_string(highest);
    if (!m_value->is_number_integer())
        expected(range);
    if (m_value->is_number_unsigned()) {
        const auto value = m_value->get<unsigned long long>();
        if (value > static_cast<unsigned long long>(highest))
            expected(range);
        return static_cast<long long>(value);
    }
    const auto value = m_value->get<long long>();
    if (value < lowest || value > highest)
        expected(range);
    return value;
}

double JsonReader::real() const
{
    if (!m_value->is_number())
        expected("a number");
    return m_value->get<double>();
}

}  // namespace sim

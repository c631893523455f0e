// Reading a JSON document while knowing where in it we are, so that every complaint names the
// JSON path and what was expected there ("/menuGroups/2/toolbars/0/visible: expected a boolean").
#pragma once

#include <nlohmann/json.hpp>

#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace sim::detail {

class JsonReader {
public:
    JsonReader(const nlohmann::json& value, std::string path) : m_value(&value), m_path(std::move(path)) {}

    const std::string& path() const { return m_path; }

    // Throws StateError: "<path>: <message>".
    [[noreturn]] void fail(const std::string& message) const;
    [[noreturn]] void expected(const std::string& what) const { fail("expected " + what); }

    bool isNull() const { return m_value->is_null(); }

    // An object whose members are all among `known` (a misspelt member is an error, not ignored).
    void expectObject(std::initializer_list<const char*> known) const;
    // A member of an object, or nothing when it is absent.
    std::optional<JsonReader> member(const char* name) const;
    // Every member of an object whose member names are free (names, paths, keys).
    std::vector<std::pair<std::wstring, JsonReader>> members() const;
    std::vector<JsonReader> elements() const;

    std::wstring text() const;
    bool boolean() const;
    long long integer(long long lowest, long long highest) const;
    double real() const;
    // Whether the value is a string / a number, for members that take either.
    bool isText() const { return m_value->is_string(); }
    bool isObject() const { return m_value->is_object(); }

private:
    JsonReader at(const std::string& key, const nlohmann::json& value) const;

    const nlohmann::json* m_value;
    std::string m_path;
};

}  // namespace sim::detail

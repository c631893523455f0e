// Reading a JSON document while knowing where in it we are, so that every complaint names the
// JSON path and what was expected there ("/menuGroups/2/toolbars/0/visible: expected a boolean").
// The simulator reads host states with it and zorbsim its scenarios; each turns the complaints
// into its own error through the JsonSource it reads from.
#pragma once

#include "sim/export.h"

#include <nlohmann/json.hpp>

#include <exception>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace sim {

// Where a document came from, as its reader's user reports a complaint about it.
class SIM_API JsonSource {
public:
    // The user's own error for `problem` at JSON path `path` ("" for the whole document).
    virtual std::exception_ptr rejection(const std::string& path, const std::string& problem) const = 0;

    // The user's words for two complaints, as its documentation shows them.
    virtual std::string booleanExpected() const;
    virtual std::string unknownMember(const std::vector<const char*>& known) const;

protected:
    ~JsonSource() = default;
};

// A value of a document and its path; the source must outlive every reader made from it.
class SIM_API JsonReader {
public:
    JsonReader(const nlohmann::json& value, const JsonSource& source, std::string path = "")
        : m_value(&value), m_source(&source), m_path(std::move(path))
    {
    }

    const nlohmann::json& value() const { return *m_value; }
    const std::string& path() const { return m_path; }

    // Throws the source's error for `message` at this value's path.
    [[noreturn]] void fail(const std::string& message) const;
    [[noreturn]] void expected(const std::string& what) const { fail("expected " + what); }

    bool isNull() const { return m_value->is_null(); }
    // Whether the value is a string / an object, for members that take either.
    bool isText() const { return m_value->is_string(); }
    bool isObject() const { return m_value->is_object(); }

    // An object whose members are all among `known` (a misspelt member is an error, not ignored).
    void expectObject(const std::vector<const char*>& known) const;
    // A member of an object, or nothing when it is absent.
    std::optional<JsonReader> member(const char* name) const;
    // A member of an object that must be there: fails with `missing "name"` otherwise.
    JsonReader required(const char* name) const;
    // Every member of an object whose member names are free (names, paths, keys).
    std::vector<std::pair<std::wstring, JsonReader>> members() const;
    std::vector<JsonReader> elements() const;

    // Checked to be valid UTF-8.
    std::wstring text() const;
    // The string's bytes as they stand, for texts that are only compared or shown.
    const std::string& bytes() const;
    bool boolean() const;
    long long integer(long long lowest, long long highest) const;
    double real() const;

private:
    JsonReader at(const std::string& key, const nlohmann::json& value) const;

    const nlohmann::json* m_value;
    const JsonSource* m_source;
    std::string m_path;
};

// `path` continued by one member name or index, escaped as a JSON pointer.
SIM_API std::string jsonPathTo(const std::string& path, const std::string& key);

}  // namespace sim

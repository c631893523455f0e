// Bad input of any kind (usage, unreadable or malformed files, unknown operations, wrong
// arguments). Its message names the place; zorbsim reports it on stderr and exits with 2.
#pragma once

#include "sim/json_reader.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

namespace zorbsim {

class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Where a value stands in an input file, for messages such as
// "start.json: step 3 at /steps/2/args/path: expected a string". The values there are read with
// the simulator's JSON reader, whose complaints become InputErrors of this place's file and step.
class InputPlace : public sim::JsonSource {
public:
    explicit InputPlace(std::string source) : m_source(std::move(source)) {}

    // The place of step `index` (0-based) of the document's "steps"; messages count from 1.
    InputPlace step(std::size_t index) const;
    InputPlace operator/(const std::string& key) const;
    InputPlace operator/(std::size_t index) const;

    const std::string& pointer() const { return m_pointer; }
    std::string text() const { return textAt(m_pointer); }

    // A reader of `value`, which stands at this place; the place must outlive it.
    sim::JsonReader read(const nlohmann::json& value) const
    {
        return sim::JsonReader(value, *this, m_pointer);
    }

    [[noreturn]] void fail(const std::string& message) const { failAt(m_pointer, message); }
    // Fails at `pointer` in this place's file and step, for a nested document's own complaints.
    [[noreturn]] void failAt(const std::string& pointer, const std::string& message) const
    {
        std::rethrow_exception(rejection(pointer, message));
    }
    std::exception_ptr rejection(const std::string& path, const std::string& problem) const override;
    std::string booleanExpected() const override { return "true or false"; }
    std::string unknownMember(const std::vector<const char*>& known) const override;

private:
    std::string textAt(const std::string& pointer) const;

    std::string m_source;
    std::string m_step;
    std::string m_pointer;
};

}  // namespace zorbsim

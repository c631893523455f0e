// Bad input of any kind (usage, unreadable or malformed files, unknown operations, wrong
// arguments). Its message names the place; zorbsim reports it on stderr and exits with 2.
#pragma once

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
// "start.json: step 3 at /steps/2/args/path: expected a string".
class InputPlace {
public:
    explicit InputPlace(std::string source) : m_source(std::move(source)) {}

    // The place of step `index` (0-based) of the document's "steps"; messages count from 1.
    InputPlace step(std::size_t index) const;
    InputPlace operator/(const std::string& key) const;
    InputPlace operator/(std::size_t index) const;

    const std::string& pointer() const { return m_pointer; }
    std::string text() const;

    [[noreturn]] void fail(const std::string& message) const;
    // For errors of a nested reader whose message starts with its own JSON path
    // ("/0/method: expected a string"): that path continues this place's.
    [[noreturn]] void failNested(const std::string& message) const;

private:
    std::string m_source;
    std::string m_step;
    std::string m_pointer;
};

}  // namespace zorbsim

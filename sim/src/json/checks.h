// What JSON text may not hold although the parser would take it: NUL characters, nesting beyond
// the limit, numbers beyond a double's range, and a member named twice in one object (the parser
// would keep the last and lose the first without a word).
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace sim::detail {

// Deeper input is refused before it is parsed, so nothing that walks a document recursively
// (copies, printers, the state reader) can run out of stack.
constexpr std::size_t kJsonDepthLimit = 256;

struct TextProblem {
    std::size_t offset = 0;  // the byte where the problem starts
    std::string message;
};

std::optional<TextProblem> findTextProblem(const std::string& text);

}  // namespace sim::detail

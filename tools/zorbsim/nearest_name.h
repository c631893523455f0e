// The name a mistyped one was most likely meant to be, for "did you mean" hints.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zorbsim {

// The candidate fewest single-letter edits away from `typed` (letter case ignored), when it is
// close enough to be a slip: at most a third of its letters, and at least two, differ. None when no
// candidate is that close.
std::optional<std::string> nearestName(const std::string& typed, const std::vector<std::string>& candidates);

}  // namespace zorbsim

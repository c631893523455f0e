#include "nearest_name.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace zorbsim {
namespace {

char folded(char letter)
{
    return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}

// Insertions, deletions and substitutions that turn one into the other, one row at a time.
std::size_t editDistance(const std::string& from, const std::string& to)
{
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t substitution = diagonal + (folded(from[i - 1]) == folded(to[j - 1]) ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, substitution});
        }
    }
    return row[to.size()];
}

}  // namespace

std::optional<std::string> nearestName(const std::string& typed, const std::vector<std::string>& candidates)
{
    const std::size_t allowed = std::max<std::size_t>(2, typed.size() / 3);
    std::optional<std::string> nearest;
    std::size_t nearestDistance = allowed + 1;
    for (const std::string& candidate : candidates) {
        const std::size_t distance = editDistance(typed, candidate);
        if (distance < nearestDistance) {
            nearest = candidate;
            nearestDistance = distance;
        }
    }
    return nearest;
}

}  // namespace zorbsim

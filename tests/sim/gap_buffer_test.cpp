// The menu items' sequence: it must answer as a vector does after any mix of changes, and a run of
// changes at one place must move each entry a bounded number of times, not once per change.
#include "sim/gap_buffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

using sim::GapBuffer;

namespace {

void expectSameAs(const std::vector<int>& expected, const GapBuffer<int>& actual, const std::string& step)
{
    SCOPED_TRACE(step);
    ASSERT_EQ(expected.size(), actual.size());
    EXPECT_EQ(expected.empty(), actual.empty());
    for (size_t i = 0; i < expected.size(); ++i)
        ASSERT_EQ(expected[i], actual[i]) << "at " << i;
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), actual.begin(), actual.end()));
    EXPECT_TRUE(std::equal(expected.rbegin(), expected.rend(), std::make_reverse_iterator(actual.end()),
                           std::make_reverse_iterator(actual.begin())));
    EXPECT_EQ(GapBuffer<int>(expected), actual) << "equality must not depend on where the gap is";
}

TEST(GapBuffer, AnswersAsAVectorAfterAnyMixOfChanges)
{
    std::mt19937 random(20261125);
    const auto below = [&](size_t bound) {
        return std::uniform_int_distribution<size_t>(0, bound - 1)(random);
    };
    std::vector<int> expected;
    GapBuffer<int> actual;
    for (int step = 0; step < 4000; ++step) {
        const int value = step;
        const size_t at = below(expected.size() + 1);
        std::string name;
        switch (below(8)) {
        case 0:
        case 1:
            name = "insert at " + std::to_string(at);
            EXPECT_EQ(value, *actual.insert(actual.begin() + static_cast<long>(at), value));
            expected.insert(expected.begin() + static_cast<long>(at), value);
            break;
        case 2: {
            name = "insert three at " + std::to_string(at);
            const std::vector<int> block{value, value + 1, value + 2};
            EXPECT_EQ(value,
                      *actual.insert(actual.cbegin() + static_cast<long>(at), block.begin(), block.end()));
            expected.insert(expected.begin() + static_cast<long>(at), block.begin(), block.end());
            break;
        }
        case 3:
        case 4:
            if (at == expected.size())
                continue;
            name = "erase at " + std::to_string(at);
            actual.erase(actual.begin() + static_cast<long>(at));
            expected.erase(expected.begin() + static_cast<long>(at));
            break;
        case 5: {
            const size_t count = std::min<size_t>(below(4), expected.size() - at);
            name = "erase " + std::to_string(count) + " at " + std::to_string(at);
            const auto next = actual.erase(actual.begin() + static_cast<long>(at),
                                           actual.begin() + static_cast<long>(at + count));
            EXPECT_EQ(static_cast<long>(at), next - actual.begin());
            expected.erase(expected.begin() + static_cast<long>(at),
                           expected.begin() + static_cast<long>(at + count));
            break;
        }
        case 6:
            name = "push_back";
            actual.push_back(value);
            expected.push_back(value);
            break;
        default:
            // Writing through iterators reaches entries on both sides of the gap.
            name = "sort or reverse";
            if (value % 2) {
                std::sort(actual.begin(), actual.end());
                std::sort(expected.begin(), expected.end());
            }
            else {
                std::reverse(actual.begin(), actual.end());
                std::reverse(expected.begin(), expected.end());
            }
        }
        expectSameAs(expected, actual, "step " + std::to_string(step) + ": " + name);
        if (HasFatalFailure())
            return;
    }
}

TEST(GapBuffer, ReadsAndComparesAsAVector)
{
    GapBuffer<std::string> letters{"a", "b", "d"};
    letters.insert(letters.begin() + 2, "c");
    const GapBuffer<std::string>& shown = letters;

    EXPECT_EQ("a", shown.front());
    EXPECT_EQ("d", shown.back());
    EXPECT_EQ(1, std::find(shown.begin(), shown.end(), "b") - shown.begin());
    EXPECT_EQ((std::vector<std::string>{"a", "b", "c", "d"}),
              std::vector<std::string>(shown.begin(), shown.end()));
    EXPECT_EQ("c", shown.begin()[2]);
    EXPECT_EQ(1u, (shown.end() - 1)->size());
    EXPECT_THROW(shown.at(4), std::out_of_range);

    GapBuffer<std::string> other{"a", "b", "c"};
    EXPECT_NE(letters, other);
    other.push_back("d");
    EXPECT_EQ(letters, other);
    other.back() = "e";
    EXPECT_NE(letters, other);
    letters.clear();
    EXPECT_TRUE(letters.empty());
}

// An entry that counts how often it is moved or copied into a new place.
struct Counted {
    static inline long long placements = 0;
    int value = 0;
    Counted(int v) : value(v) {}
    Counted(const Counted& other) : value(other.value) { ++placements; }
    Counted(Counted&& other) noexcept : value(other.value) { ++placements; }
    Counted& operator=(const Counted& other) = default;
    Counted& operator=(Counted&& other) noexcept = default;
    bool operator==(const Counted& other) const { return value == other.value; }
};

GapBuffer<Counted> countedEntries(int n)
{
    GapBuffer<Counted> entries;
    for (int i = 0; i < n; ++i)
        entries.push_back(i);
    return entries;
}

// What the snap removal does to the host's menu: n deletions at one position; and the addition: n
// insertions each after the one before. A vector would move some n²/2 entries for either.
TEST(GapBuffer, ARunOfChangesAtOnePlaceMovesEachEntryAFewTimes)
{
    constexpr int n = 2000;
    GapBuffer<Counted> entries = countedEntries(2 * n);
    Counted::placements = 0;
    for (int i = 0; i < n; ++i)
        entries.erase(entries.begin() + 100);
    // The first erasure moves the gap over the 2n - 100 entries after it, and the growth of storage
    // moves each of those at most twice more; the rest move nothing.
    EXPECT_LE(Counted::placements, 3 * 2 * n);
    EXPECT_EQ(2 * n - 1, entries.back().value);
    EXPECT_EQ(100 + n, entries[100].value);

    Counted::placements = 0;
    for (int i = 0; i < n; ++i)
        entries.insert(entries.begin() + 100 + i, -i);
    // Each insertion places its entry, and the growth of storage moves each entry at most twice more.
    EXPECT_LE(Counted::placements, 3 * n);
    EXPECT_EQ(-(n - 1), entries[100 + n - 1].value);
    EXPECT_EQ(100 + n, entries[100 + n].value);
}

}  // namespace

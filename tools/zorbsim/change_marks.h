// What changed between two host states, entry by entry: each entry of a list is paired with its
// version in the other state, so that a view can show the entries of now and of before, marked
// added, removed or changed. A view without a state to compare with pairs each entry with itself.
#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <vector>

namespace zorbsim {

enum class Change { none, added, removed, changed };

// One entry in its two versions; at least one is there.
template <class T> struct Versions {
    const T* before = nullptr;
    const T* after = nullptr;
    Change change = Change::none;

    // What a view shows: the entry as it is now, or as it was when it was removed.
    const T& shown() const { return after ? *after : *before; }
    // What its parts are compared with: for an added or removed entry the entry itself, so that
    // they carry no marks of their own.
    const T& baseline() const { return before ? *before : *after; }
};

// Nodes compare by their content, and a null node equals only a null one.
template <class T> bool sameContent(const T& a, const T& b)
{
    return a == b;
}
template <class T> bool sameContent(const std::shared_ptr<T>& a, const std::shared_ptr<T>& b)
{
    return a && b ? *a == *b : !a && !b;
}

template <class T> Versions<T> versions(const T* before, const T* after)
{
    Versions<T> pair{before, after, Change::none};
    if (!before)
        pair.change = Change::added;
    else if (!after)
        pair.change = Change::removed;
    else if (!sameContent(*before, *after))
        pair.change = Change::changed;
    return pair;
}

// Pairs the entries of two lists in the order of `after`, each removed entry where it stood.
// `sameEntry` says whether two entries are one entry, perhaps changed (a menu by its tag, an item by
// its label); the pairing keeps the most entries in their order. Runs of equal entries at both
// ends are paired first, so that the usual small change of a long list costs little. The pairs
// point into the two lists, which are vectors or other sequences with a vector's indexing.
template <class List, class SameEntry, class T = typename List::value_type>
std::vector<Versions<T>> alignLists(const List& before, const List& after, SameEntry sameEntry)
{
    std::size_t head = 0;
    while (head < before.size() && head < after.size() && sameEntry(before[head], after[head]))
        ++head;
    std::size_t tail = 0;
    while (tail < before.size() - head && tail < after.size() - head &&
           sameEntry(before[before.size() - 1 - tail], after[after.size() - 1 - tail]))
        ++tail;

    // The longest common run of the middles, from each pair of positions to their ends. Middles too
    // long to pair within a few megabytes are shown as all removed and all added.
    const std::size_t rows = before.size() - head - tail;
    const std::size_t columns = after.size() - head - tail;
    constexpr std::size_t kMostPairings = std::size_t{1} << 20;
    const bool pairMiddles = rows * columns <= kMostPairings;
    std::vector<std::size_t> common(pairMiddles ? (rows + 1) * (columns + 1) : 0, 0);
    const auto at = [&](std::size_t i, std::size_t j) -> std::size_t& {
        return common[i * (columns + 1) + j];
    };
    for (std::size_t i = pairMiddles ? rows : 0; i-- > 0;)
        for (std::size_t j = columns; j-- > 0;)
            at(i, j) = sameEntry(before[head + i], after[head + j]) ? at(i + 1, j + 1) + 1
                                                                    : std::max(at(i + 1, j), at(i, j + 1));

    std::vector<Versions<T>> pairs;
    pairs.reserve(std::max(before.size(), after.size()));
    for (std::size_t k = 0; k < head; ++k)
        pairs.push_back(versions(&before[k], &after[k]));
    std::size_t i = 0, j = 0;
    while (i < rows || j < columns) {
        if (pairMiddles && i < rows && j < columns && sameEntry(before[head + i], after[head + j])) {
            pairs.push_back(versions(&before[head + i++], &after[head + j++]));
        }
        else if (i < rows && (j == columns || !pairMiddles || at(i + 1, j) >= at(i, j + 1))) {
            pairs.push_back(versions<T>(&before[head + i++], nullptr));
        }
        else {
            pairs.push_back(versions<T>(nullptr, &after[head + j++]));
        }
    }
    for (std::size_t k = tail; k > 0; --k)
        pairs.push_back(versions(&before[before.size() - k], &after[after.size() - k]));
    return pairs;
}

// Pairs the values of two maps by their keys, in key order.
template <class Key, class Value>
std::vector<std::pair<const Key*, Versions<Value>>> alignMaps(const std::map<Key, Value>& before,
                                                              const std::map<Key, Value>& after)
{
    std::vector<std::pair<const Key*, Versions<Value>>> pairs;
    auto old = before.begin();
    auto now = after.begin();
    while (old != before.end() || now != after.end()) {
        if (now == after.end() || (old != before.end() && old->first < now->first)) {
            pairs.emplace_back(&old->first, versions<Value>(&old->second, nullptr));
            ++old;
        }
        else if (old == before.end() || now->first < old->first) {
            pairs.emplace_back(&now->first, versions<Value>(nullptr, &now->second));
            ++now;
        }
        else {
            pairs.emplace_back(&now->first, versions(&old->second, &now->second));
            ++old;
            ++now;
        }
    }
    return pairs;
}

}  // namespace zorbsim

// Where the host last found each node in a collection. A host object checks on every call that its
// node is still in the host; with the seat remembered, that check looks at one entry, as a real
// host answers an item at a position at once. A seat is only a hint: a node that moved (entries
// were added or removed before it) is searched for and its seat moves, and a node that left the
// collection is not found. Tests change the state directly, so nothing else may be trusted.
// A collection is any sequence of shared pointers to nodes with a vector's indexing and erase.
#pragma once

#include <cstddef>
#include <functional>
#include <unordered_map>
#include <utility>

namespace sim::detail {

class Seats {
public:
    // The position of `node` in `nodes`, or -1 when it is not there.
    template <class Nodes, class Node> long find(const Nodes& nodes, const Node* node)
    {
        const Key key{&nodes, node};
        const auto seat = m_at.find(key);
        if (seat != m_at.end()) {
            ++m_examined;
            if (seat->second < nodes.size() && nodes[seat->second].get() == node)
                return static_cast<long>(seat->second);
            // One entry added or removed before the node moves it by one: its neighbours first (a
            // seat of 0 has no entry before it; the wrapped index fails the bound).
            for (const size_t neighbour : {seat->second + 1, seat->second - 1}) {
                if (neighbour >= nodes.size())
                    continue;
                ++m_examined;
                if (nodes[neighbour].get() == node) {
                    seat->second = neighbour;
                    return static_cast<long>(neighbour);
                }
            }
        }
        for (size_t i = 0; i < nodes.size(); ++i) {
            ++m_examined;
            if (nodes[i].get() == node) {
                m_at[key] = i;
                return static_cast<long>(i);
            }
        }
        if (seat != m_at.end())
            m_at.erase(seat);
        return -1;
    }

    template <class Nodes, class Node> bool contains(const Nodes& nodes, const Node* node)
    {
        return find(nodes, node) >= 0;
    }

    // A node the host has just found, put or given out at `position`.
    template <class Nodes> void remember(const Nodes& nodes, size_t position)
    {
        if (position < nodes.size() && nodes[position])
            m_at[Key{&nodes, nodes[position].get()}] = position;
    }

    // Every node of `nodes` at the position it has now: one look at each.
    template <class Nodes> void rememberAll(const Nodes& nodes)
    {
        for (size_t i = 0; i < nodes.size(); ++i) {
            ++m_examined;
            if (nodes[i])
                m_at[Key{&nodes, nodes[i].get()}] = i;
        }
    }

    // Takes `node` out of `nodes`, where it must be, and forgets its seat.
    template <class Nodes, class Node> void remove(Nodes& nodes, const Node* node)
    {
        const long position = find(nodes, node);
        m_at.erase(Key{&nodes, node});
        nodes.erase(nodes.begin() + position);
    }

    // Entries looked at by a lookup of the host's other than find.
    void countExamined(long long entries) { m_examined += entries; }

    // The entries of collections looked at by find, since the host was installed.
    long long examined() const { return m_examined; }

private:
    using Key = std::pair<const void*, const void*>;  // the collection, the node
    struct KeyHash {
        size_t operator()(const Key& key) const
        {
            const size_t first = std::hash<const void*>()(key.first);
            return first ^ (std::hash<const void*>()(key.second) + 0x9e3779b97f4a7c15ULL + (first << 6) +
                            (first >> 2));
        }
    };

    std::unordered_map<Key, size_t, KeyHash> m_at;
    long long m_examined = 0;
};

}  // namespace sim::detail

// The nodes of each collection by the names they are asked for by, so that an item asked for by
// name is found at once, as one asked for at a position is. For each name the index keeps the
// nodes that bear it in the collection's order; the first of them is the answer, and where it
// stands is asked of the seats. The index of a collection is built in one pass when first asked,
// kept up to date by the host calls that add, remove or rename its nodes, and dropped whole when
// the state was handed out for direct changes (Host::state()).
//
// A naming says what a collection's nodes are called: a struct with `static void keys(const Node&,
// NameKeys&)` (the folded names of a node) and `static NameKeys asked(const std::wstring&)` (the
// folded names to look for); a node is named by a text when the two share a key.
#pragma once

#include "model/seats.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <typeindex>
#include <unordered_map>
#include <vector>

namespace sim::detail {

using NameKeys = std::vector<std::wstring>;

class NameIndex {
public:
    // The position of the first node of `nodes` that `Naming` calls `name`, or -1 when none is.
    // `owner` is the node that holds `nodes`, or null for the state's own collections: an index of
    // a collection whose owner is gone is read again, as its address may now be another's.
    template <class Naming, class Nodes>
    long first(Seats& seats, const Nodes& nodes, const std::shared_ptr<const void>& owner,
               const std::wstring& name)
    {
        Index& index = indexOf<Naming>(seats, nodes, owner);
        long best = -1;
        for (const std::wstring& key : Naming::asked(name)) {
            const auto named = index.nodesByKey.find(key);
            if (named == index.nodesByKey.end() || named->second.empty())
                continue;
            const long position = seats.find(nodes, nodeAt(nodes, named->second.front()));
            if (position < 0) {
                // A change the index was not told of: the collection is read again.
                build(seats, nodes, index);
                return first<Naming>(seats, nodes, owner, name);
            }
            if (best < 0 || position < best)
                best = position;
        }
        return best;
    }

    // Whether `node` is one of `nodes`, known without a search for a node that is not.
    template <class Naming, class Nodes>
    bool holds(Seats& seats, const Nodes& nodes, const std::shared_ptr<const void>& owner, const void* node)
    {
        return indexOf<Naming>(seats, nodes, owner).keysByNode.count(node) > 0;
    }

    // The node now at `position` of `nodes` was put there.
    template <class Nodes> void added(Seats& seats, const Nodes& nodes, size_t position)
    {
        const auto indexes = m_byCollection.find(&nodes);
        if (indexes == m_byCollection.end() || position >= nodes.size())
            return;
        for (Index& index : indexes->second)
            insert(seats, nodes, index, position);
    }

    // `node` leaves `nodes` (before or after it is taken out).
    template <class Nodes> void removed(const Nodes& nodes, const void* node)
    {
        const auto indexes = m_byCollection.find(&nodes);
        if (indexes == m_byCollection.end())
            return;
        for (Index& index : indexes->second)
            erase(index, node);
    }

    // `node`, in `nodes` or not, has a new name.
    template <class Nodes> void renamed(Seats& seats, const Nodes& nodes, const void* node)
    {
        const auto indexes = m_byCollection.find(&nodes);
        if (indexes == m_byCollection.end())
            return;
        for (Index& index : indexes->second) {
            // A node the index does not hold is not in the collection: no search for it.
            if (!index.keysByNode.count(node))
                continue;
            erase(index, node);
            const long position = seats.find(nodes, nodeAt(nodes, node));
            if (position >= 0)
                insert(seats, nodes, index, static_cast<size_t>(position));
        }
    }

    // The state may have changed in any way: every collection is read again when next asked.
    void forget() { m_byCollection.clear(); }

private:
    struct Index {
        std::type_index naming;
        const void* ownerAddress;
        std::weak_ptr<const void> owner;
        std::function<void(const void*, NameKeys&)> keysOf;
        std::unordered_map<std::wstring, std::vector<const void*>> nodesByKey;  // each in collection order
        std::unordered_map<const void*, NameKeys> keysByNode;
    };

    template <class Nodes> static auto nodeAt(const Nodes&, const void* node)
    {
        return static_cast<const typename Nodes::value_type::element_type*>(node);
    }

    template <class Naming, class Nodes>
    Index& indexOf(Seats& seats, const Nodes& nodes, const std::shared_ptr<const void>& owner)
    {
        using Node = typename Nodes::value_type::element_type;
        auto& indexes = m_byCollection[&nodes];
        const std::type_index naming(typeid(Naming));
        const auto known = std::find_if(indexes.begin(), indexes.end(),
                                        [&](const Index& index) { return index.naming == naming; });
        if (known != indexes.end()) {
            if (known->ownerAddress == owner.get() && known->owner.lock() == owner)
                return *known;
            indexes.erase(known);
        }
        indexes.push_back(Index{
            naming,
            owner.get(),
            owner,
            [](const void* node, NameKeys& keys) { Naming::keys(*static_cast<const Node*>(node), keys); },
            {},
            {}});
        build(seats, nodes, indexes.back());
        return indexes.back();
    }

    // One look at each node; the first node of a name is put first.
    template <class Nodes> void build(Seats& seats, const Nodes& nodes, Index& index)
    {
        index.nodesByKey.clear();
        index.keysByNode.clear();
        seats.rememberAll(nodes);
        for (const auto& node : nodes)
            if (node)
                keep(index, node.get());
    }

    // Files `node` last among the namesakes of each of its keys, and gives the keys.
    static NameKeys& keep(Index& index, const void* node)
    {
        NameKeys keys;
        index.keysOf(node, keys);
        std::sort(keys.begin(), keys.end());
        keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
        for (const std::wstring& key : keys)
            index.nodesByKey[key].push_back(node);
        return index.keysByNode[node] = std::move(keys);
    }

    // The node at `position` goes among its namesakes in collection order: after those that stand
    // before it, which the seats tell in a look or two each; most names have no namesake.
    template <class Nodes> void insert(Seats& seats, const Nodes& nodes, Index& index, size_t position)
    {
        const void* node = nodes[position].get();
        if (node == nullptr || index.keysByNode.count(node))
            return;
        for (const std::wstring& key : keep(index, node)) {
            auto& namesakes = index.nodesByKey[key];
            namesakes.pop_back();  // kept appended it; its place is found here
            auto place = namesakes.end();
            while (place != namesakes.begin() &&
                   seats.find(nodes, nodeAt(nodes, *(place - 1))) > static_cast<long>(position))
                --place;
            namesakes.insert(place, node);
        }
    }

    static void erase(Index& index, const void* node)
    {
        const auto keys = index.keysByNode.find(node);
        if (keys == index.keysByNode.end())
            return;
        for (const std::wstring& key : keys->second) {
            auto& namesakes = index.nodesByKey[key];
            namesakes.erase(std::remove(namesakes.begin(), namesakes.end(), node), namesakes.end());
        }
        index.keysByNode.erase(keys);
    }

    // By the collection's address; an index per naming asked by. Indexes of collections that went
    // away stay until the state is forgotten: they are small, and an owner check keeps them unused.
    std::unordered_map<const void*, std::vector<Index>> m_byCollection;
};

}  // namespace sim::detail

// The state's lists and maps of texts (drawings on disk, files on the search path, system
// variables, menu files) by their folded texts, so that the host finds an entry by a name or a path
// at once. The host's calls never rename nor remove these entries, and add only at a list's end;
// a list that grew has its new entries indexed, a map whose size changed is read again, and
// everything is read again after the state was handed out for direct changes (Host::state()).
#pragma once

#include "model/seats.h"

#include <iterator>
#include <memory>
#include <string>
#include <type_traits>
#include <typeindex>
#include <unordered_map>
#include <vector>

namespace sim::detail {

class TextIndex {
public:
    // The first entry of `entries`, in their order, of which `Folding::keys(entry, keys)` gives a
    // key that `Folding::asked(wanted)` gives too; null when there is none.
    template <class Folding, class Entries>
    auto first(Seats& seats, Entries& entries, const std::wstring& wanted) -> decltype(&*entries.begin())
    {
        using Entry = std::remove_reference_t<decltype(*entries.begin())>;
        using Value = typename std::remove_const_t<Entries>::value_type;
        constexpr bool isList = std::is_same_v<std::remove_const_t<Entries>, std::vector<Value>>;
        Index& index = m_indexes[Key{&entries, std::type_index(typeid(Folding))}];
        if (!isList && index.read != entries.size()) {
            index.firstByKey.clear();
            index.read = 0;
        }
        // Only entries not read yet are read: a list's at its end, a map's all of them (a map read
        // is not stepped through again, which would cost its size).
        auto next = index.read == entries.size() ? entries.end() : std::next(entries.begin(), index.read);
        for (; next != entries.end(); ++next, ++index.read) {
            seats.countExamined(1);
            std::vector<std::wstring> keys;
            Folding::keys(*next, keys);
            for (std::wstring& key : keys)
                index.firstByKey.emplace(std::move(key), Place{index.read, &*next});
        }
        const Place* best = nullptr;
        for (const std::wstring& key : Folding::asked(wanted)) {
            const auto found = index.firstByKey.find(key);
            if (found != index.firstByKey.end() &&
                (best == nullptr || found->second.position < best->position))
                best = &found->second;
        }
        if (best == nullptr)
            return nullptr;
        seats.countExamined(1);
        // A list's entries move when it grows; a map's stay where they are.
        if constexpr (isList)
            return &entries[best->position];
        else
            return const_cast<Entry*>(static_cast<const Value*>(best->entry));
    }

    void forget() { m_indexes.clear(); }

private:
    using Key = std::pair<const void*, std::type_index>;
    struct KeyHash {
        size_t operator()(const Key& key) const
        {
            return std::hash<const void*>()(key.first) ^ (key.second.hash_code() << 1);
        }
    };
    struct Place {
        size_t position;
        const void* entry;
    };
    struct Index {
        size_t read = 0;  // entries indexed, from the first
        std::unordered_map<std::wstring, Place> firstByKey;
    };

    std::unordered_map<Key, Index, KeyHash> m_indexes;
};

}  // namespace sim::detail

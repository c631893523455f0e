// Reading what callers pass to host objects: collection indexes, insertion positions, points,
// optional arguments. Each reader ends the call with a failure naming what was wrong and returns
// false when the argument cannot be used.
#pragma once

#include "objects/call.h"
#include "text.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sim::detail {

struct CollectionIndex {
    enum class Kind { position, name, unusable } kind = Kind::unusable;
    long long position = 0;
    std::wstring name;
};

// A 0-based whole number (VT_I2, VT_I4, VT_INT) or a name (VT_BSTR).
CollectionIndex readCollectionIndex(const VARIANT& index);
HRESULT refuseIndex(Call& call, const CollectionIndex& index, const VARIANT& given, const std::wstring& what);

// Matches an item by one of its texts, without regard to case: namedBy(&MenuGroup::name).
template <class Node> auto namedBy(std::wstring Node::*field)
{
    return
        [field](const Node& node, const std::wstring& name) { return text::equalNoCase(node.*field, name); };
}

// The position of the item an index names: a position, or the first item `matches` takes for
// the name.
template <class Node, class Matches>
bool findPosition(Call& call, const VARIANT& given, const std::vector<std::shared_ptr<Node>>& nodes,
                  const std::wstring& what, Matches matches, size_t& position)
{
    const CollectionIndex index = readCollectionIndex(given);
    if (index.kind == CollectionIndex::Kind::position && index.position >= 0 &&
        index.position < static_cast<long long>(nodes.size())) {
        position = static_cast<size_t>(index.position);
        return true;
    }
    if (index.kind == CollectionIndex::Kind::name) {
        for (size_t i = 0; i < nodes.size(); ++i) {
            if (nodes[i] && matches(*nodes[i], index.name)) {
                position = i;
                return true;
            }
        }
    }
    refuseIndex(call, index, given, what);
    return false;
}

// Where a new item goes: before the item now at the index; the count appends.
bool findInsertion(Call& call, const VARIANT& given, size_t count, const std::wstring& what,
                   size_t& position);

// A point in the host's form: a one-dimensional array of two doubles (VT_ARRAY|VT_R8).
bool readPoint(Call& call, const VARIANT& given, const std::wstring& which, double& x, double& y);

// An optional argument left out: the missing-argument variant (VT_ERROR with
// DISP_E_PARAMNOTFOUND) or an empty one.
bool isMissing(const VARIANT& given);

// A yes/no argument: VT_BOOL, or a whole number (non-zero is yes).
bool readYesNo(Call& call, const VARIANT& given, const std::wstring& what, bool& value);

// A text argument: VT_BSTR.
bool readText(Call& call, const VARIANT& given, const std::wstring& what, std::wstring& value);

// An array of texts (VT_ARRAY|VT_BSTR, one dimension).
bool readTexts(Call& call, const VARIANT& given, const std::wstring& what, std::vector<std::wstring>& values);

}  // namespace sim::detail

// Reading what callers pass to host objects: collection indexes, insertion positions, points,
// optional arguments. Each reader ends the call with a failure naming what was wrong and returns
// false when the argument cannot be used.
#pragma once

#include "calls/call.h"
#include "model/text.h"

#include <optional>
#include <string>
#include <vector>

namespace sim::detail {

// The variant types of positions that the host's interface documents: menus, menu groups, the
// menu bar and toolbars take VT_I4; documents VT_INT. A forgiving host takes any whole number;
// a strict one (HostBehaviour::strictArguments) only the documented type.
constexpr VARTYPE kMenuPosition = VT_I4;
constexpr VARTYPE kToolbarPosition = VT_I4;
constexpr VARTYPE kDocumentPosition = VT_INT;

struct CollectionIndex {
    enum class Kind { position, name, unusable } kind = Kind::unusable;
    long long position = 0;
    std::wstring name;
};

// A 0-based whole number (VT_I2, VT_I4, VT_INT; strict: `positionType` only) or a name (VT_BSTR).
CollectionIndex readCollectionIndex(const Call& call, const VARIANT& index, VARTYPE positionType);
HRESULT refuseIndex(Call& call, const CollectionIndex& index, const VARIANT& given, VARTYPE positionType,
                    const std::wstring& what);

// The position of the item an index names: a position, or the first item named so, which
// `firstNamed(name)` gives (-1: none is).
template <class Nodes, class FirstNamed>
bool findPosition(Call& call, const VARIANT& given, VARTYPE positionType, const Nodes& nodes,
                  const std::wstring& what, FirstNamed firstNamed, size_t& position)
{
    const CollectionIndex index = readCollectionIndex(call, given, positionType);
    if (index.kind == CollectionIndex::Kind::position && index.position >= 0 &&
        index.position < static_cast<long long>(nodes.size())) {
        position = static_cast<size_t>(index.position);
        return true;
    }
    if (index.kind == CollectionIndex::Kind::name) {
        const long named = firstNamed(index.name);
        if (named >= 0) {
            position = static_cast<size_t>(named);
            return true;
        }
    }
    refuseIndex(call, index, given, positionType, what);
    return false;
}

// Where a new item goes: before the item now at the index; the count appends, and so does an
// index beyond it when `beyond` says so.
bool findInsertion(Call& call, const VARIANT& given, VARTYPE positionType, size_t count, BeyondEnd beyond,
                   const std::wstring& what, size_t& position);

// A point in the host's form: a one-dimensional array of two doubles (VT_ARRAY|VT_R8; strict:
// with lower bound 0).
bool readPoint(Call& call, const VARIANT& given, const std::wstring& which, double& x, double& y);

// An optional argument left out: the missing-argument variant (VT_ERROR with
// DISP_E_PARAMNOTFOUND), or, to a forgiving host, an empty one.
bool isMissing(const Call& call, const VARIANT& given);

// A yes/no argument of the documented type `flagType` (VT_BOOL or VT_I2) holding -1 or 0; a
// forgiving host takes VT_BOOL or any whole number, non-zero being yes. Left out, it stays
// as it is.
bool readOptionalYesNo(Call& call, const VARIANT& given, VARTYPE flagType, const std::wstring& what,
                       bool& value);

// A yes/no value written to a property: -1 or 0 (a forgiving host takes any non-zero as yes).
bool readFlag(Call& call, VARIANT_BOOL given, const std::wstring& what, bool& value);

// A text argument (VT_BSTR); left out, it stays as it is.
bool readOptionalText(Call& call, const VARIANT& given, const std::wstring& what, std::wstring& value);

// A text argument: VT_BSTR.
bool readText(Call& call, const VARIANT& given, const std::wstring& what, std::wstring& value);

// An array of texts (VT_ARRAY|VT_BSTR, one dimension; strict: with lower bound 0).
bool readTexts(Call& call, const VARIANT& given, const std::wstring& what, std::vector<std::wstring>& values);

}  // namespace sim::detail

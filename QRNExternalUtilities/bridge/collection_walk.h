// The one walk over a host collection by 0-based positions, from 0 to the count read at the start.
// What differs from walk to walk is said by its rules, not by a loop of its own.
#pragma once

#include "bridge/positions.h"

#include "imported_call.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace external_utilities {

struct WalkRules {
    // The variant an item is asked for with.
    _variant_t (*position)(long) = menuPosition;
    // Whether that variant is copied for each call (a failed copy raises its status), or passed.
    bool copyPosition = false;
    // An item the host refuses: the failure raised, or the position skipped.
    enum class FailedItem { raises, skipped } failedItem = FailedItem::raises;
    // A position where the host gives no item: skipped, raising E_POINTER, or visited as null.
    enum class NullItem { skipped, raises, visited } nullItem = NullItem::skipped;
};

enum class WalkStep { next, stop };

// Visits the items at positions 0 to count - 1 as visit(item, position), in order, until the visit
// says stop. `ItemPtr` is the owning pointer of the items; the visit owns each item it is given.
// For walks whose count was read once before (and is not read again).
template <class ItemPtr, class Collection, class Visit>
void walkPositions(Collection& collection, LONG count, const WalkRules& rules, Visit&& visit)
{
    for (LONG position = 0; position < count; ++position) {
        const _variant_t made = rules.position(position);
        std::optional<_variant_t> copy;
        if (rules.copyPosition)
            copy.emplace(made);
        const VARIANT& index = copy ? *copy : made;
        typename ItemPtr::Interface* raw = nullptr;
        const HRESULT status = collection.raw_Item(index, &raw);
        ItemPtr item(raw, false);
        if (FAILED(status)) {
            if (rules.failedItem == WalkRules::FailedItem::skipped)
                continue;
            imported_call::raiseOnFailure(status, &collection);
        }
        if (!item) {
            if (rules.nullItem == WalkRules::NullItem::skipped)
                continue;
            if (rules.nullItem == WalkRules::NullItem::raises)
                _com_issue_error(E_POINTER);
        }
        if (visit(std::move(item), static_cast<std::int32_t>(position)) == WalkStep::stop)
            return;
    }
}

// The same walk over the count the collection has now.
template <class ItemPtr, class Collection, class Visit>
void walkByPosition(Collection& collection, const WalkRules& rules, Visit&& visit)
{
    walkPositions<ItemPtr>(collection, collection.GetCount(), rules, std::forward<Visit>(visit));
}

}  // namespace external_utilities

// The enumeration a host collection gives through _NewEnum (IEnumVARIANT), which For Each walks.
//
// It walks the collection by position, as the collection is at each step, the way a caller walking
// Item(0) to Item(Count - 1) would: members added or removed behind its position move the rest, so
// that after a removal before it the member that moved into the removed one's place is passed
// over, and after an insertion before it one member is given twice; a member added at the end is
// given when the walk reaches it. Each step costs the same on any size of host. A removed
// collection (an unloaded group's menus, a deleted toolbar's buttons) fails the enumeration's calls
// as it fails its own.
#pragma once

#include "host/host_core.h"
#include "calls/call.h"

#include "automation.h"

#include <cstddef>
#include <memory>

namespace sim::detail {

// What an enumeration walks: a host collection, asked afresh at every step.
class EnumerableCollection {
public:
    virtual size_t memberCount() const = 0;
    // A new object, with a reference for the caller, for the member at `position` (below
    // memberCount()); null where the host gives no object.
    virtual IDispatch* newMember(size_t position) = 0;

protected:
    ~EnumerableCollection() = default;
};

// A new enumeration of `members`, from the first, with a reference for the caller. It holds a
// reference on `collection` (the collection's object, which is also `members` and names the
// enumeration's calls in the journal) for as long as it lives.
IEnumVARIANT* newEnumeration(const std::shared_ptr<HostCore>& core, IUnknown* collection,
                             const CallSubject& named, EnumerableCollection& members);

}  // namespace sim::detail

// The menu of an MX menu group and adding one item to it: shared by the menu bar and combining.
// Neither raises: a lookup that fails gives null, an item the host refuses is left out.
#pragma once

#include "host/object_model.h"

#include "MxtString"

#include <cstdint>

namespace external_utilities {

// The first menu of the first group named `groupName` (letter case ignored); the group's other
// menus are never looked at. Null when there is none or anything fails on the way.
HostPopupMenuPtr findGroupMenu(const MxtString& groupName);

// Adds an enabled item at `index` (passed to the host unchanged) to `menu`; nothing for a null
// menu. A failure leaves that one item out, or in but not enabled.
void addItemToMenu(const HostPopupMenuPtr& menu, std::int32_t index, const MxtString& label,
                   const MxtString& macro);

}  // namespace external_utilities

// The host's loaded menu groups, as menus, the menu bar and toolbars reach them.
#pragma once

#include "host/object_model.h"

#include "MxtString"

#include <optional>

namespace external_utilities {

// The application's menu groups as it gave them (a success may give none), or nothing when there
// is no application or it refuses the read: that failure is not raised. The application is
// released before the groups are given.
std::optional<HostMenuGroupsPtr> readMenuGroups();

// The first loaded group, in the host's order, whose name equals `groupName` ignoring case, or
// null (also when there is no application or it gives no groups). Raises when a host call fails,
// a position variant included.
HostMenuGroupPtr findMenuGroup(const MxtString& groupName);

}  // namespace external_utilities

// The menu groups of the built-in default host.
#pragma once

#include "sim/model.h"

#include <memory>

namespace sim::detail {

// The host's own group, first in the collection.
std::shared_ptr<MenuGroup> hostMenuGroup();
// The groups of the MX product's menu files.
std::shared_ptr<MenuGroup> mxMenuGroup();
std::shared_ptr<MenuGroup> mxToolsMenuGroup();

}  // namespace sim::detail

// Deep copies of model nodes, for the host's own use (a menu file loads as a fresh group).
#pragma once

#include "sim/model.h"

#include <memory>

namespace sim::detail {

std::shared_ptr<MenuGroup> copyMenuGroup(const MenuGroup& group);

}  // namespace sim::detail

// Where the node behind a host object sits in the host, whether it is still there, and how the
// journal names it. A host object keeps its place; when the node left the host (an unloaded
// group, a deleted item, a closed drawing) the place tells why, and the object fails its calls.
#pragma once

#include "host/host_core.h"
#include "model/namings.h"
#include "sim/model.h"

#include <memory>
#include <string>
#include <vector>

namespace sim::detail {

// A popup menu: a menu of a group, or a submenu reached through submenu items from one.
struct MenuPlace {
    std::shared_ptr<MenuGroup> group;  // null: a menu-bar menu that belongs to no loaded group
    std::shared_ptr<PopupMenu> top;    // the group's (or the menu bar's) menu
    std::vector<std::shared_ptr<PopupMenuItem>> submenuItems;  // from `top` down to `menu`
    std::shared_ptr<PopupMenu> menu;

    // The place of the submenu of `item`, an item of this menu.
    MenuPlace below(const std::shared_ptr<PopupMenuItem>& item) const;
};

struct ToolbarPlace {
    std::shared_ptr<MenuGroup> group;
    std::shared_ptr<Toolbar> toolbar;
};

// A top-level menu as the menu bar gives it: placed in the loaded group that holds it, if any.
MenuPlace placeOfTopMenu(HostCore& core, const std::shared_ptr<PopupMenu>& menu);

// The first loaded group of that name (letter case ignored), or null.
std::shared_ptr<MenuGroup> loadedGroupNamed(HostCore& core, const std::wstring& name);

// The position of the first node of `nodes` (held by `owner`, null for the state's own
// collections) that `Naming` calls a name, as a function of the name; -1 when none is.
template <class Naming, class Nodes>
auto firstNamed(HostCore& core, const Nodes& nodes, std::shared_ptr<const void> owner = nullptr)
{
    return [&core, &nodes, owner](const std::wstring& name) {
        return core.names.first<Naming>(core.seats, nodes, owner, name);
    };
}

// Why the node can no longer be used; empty while it is in the host. Each node is looked for where
// it was last found (HostCore::seats), so that the check costs the same on any size of host.
std::wstring goneReason(HostCore& core, const MenuGroup& group);
std::wstring goneReason(HostCore& core, const MenuPlace& place);
std::wstring goneReason(HostCore& core, const MenuPlace& place, const PopupMenuItem& item);
std::wstring goneReason(HostCore& core, const ToolbarPlace& place);
std::wstring goneReason(HostCore& core, const ToolbarPlace& place, const ToolbarButton& button);
std::wstring goneReason(HostCore& core, const Document& document);

// Journal names, without the interface: "'MX'", "'MX'/'PM_0001'", "'MX'/'PM_0001'[3]".
std::string nameOf(const MenuGroup& group);
std::string nameOf(const MenuPlace& place);
std::string nameOf(HostCore& core, const MenuPlace& place, const PopupMenuItem& item);
std::string nameOf(HostCore& core, const ToolbarPlace& place);
std::string nameOf(HostCore& core, const ToolbarPlace& place, const ToolbarButton& button);
std::string nameOf(const Document& document);

}  // namespace sim::detail

// Where the node behind a host object sits in the host, whether it is still there, and how the
// journal names it. A host object keeps its place; when the node left the host (an unloaded
// group, a deleted item, a closed drawing) the place tells why, and the object fails its calls.
#pragma once

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
MenuPlace placeOfTopMenu(const HostState& state, const std::shared_ptr<PopupMenu>& menu);

// The loaded group of that name (letter case ignored), or null.
std::shared_ptr<MenuGroup> loadedGroupNamed(const HostState& state, const std::wstring& name);

// Why the node can no longer be used; empty while it is in the host.
std::wstring goneReason(const HostState& state, const MenuGroup& group);
std::wstring goneReason(const HostState& state, const MenuPlace& place);
std::wstring goneReason(const HostState& state, const MenuPlace& place, const PopupMenuItem& item);
std::wstring goneReason(const HostState& state, const ToolbarPlace& place);
std::wstring goneReason(const HostState& state, const ToolbarPlace& place, const ToolbarButton& button);
std::wstring goneReason(const HostState& state, const Document& document);

// Journal names, without the interface: "'MX'", "'MX'/'PM_0001'", "'MX'/'PM_0001'[3]".
std::string nameOf(const MenuGroup& group);
std::string nameOf(const MenuPlace& place);
std::string nameOf(const MenuPlace& place, const PopupMenuItem& item);
std::string nameOf(const ToolbarPlace& place);
std::string nameOf(const ToolbarPlace& place, const ToolbarButton& button);
std::string nameOf(const Document& document);

// Whether a node is in a collection (by identity), and where.
template <class Node> long positionIn(const std::vector<std::shared_ptr<Node>>& nodes, const Node* node)
{
    for (size_t i = 0; i < nodes.size(); ++i)
        if (nodes[i].get() == node)
            return static_cast<long>(i);
    return -1;
}

template <class Node> bool contains(const std::vector<std::shared_ptr<Node>>& nodes, const Node* node)
{
    return positionIn(nodes, node) >= 0;
}

}  // namespace sim::detail

// Which loaded group holds each menu. The menu bar's menus may come from any group, and each call
// on one of them names its group; searching the groups for it on every call made a walk of a menu
// bar of many groups' menus quadratic. The index is built in one pass when first asked, kept up to
// date by the host calls that change which menus the groups hold, and read again from the state
// after the state was handed out for direct changes (Host::state()).
#pragma once

#include "model/seats.h"
#include "sim/model.h"

#include <memory>
#include <unordered_map>

namespace sim::detail {

class MenuOwners {
public:
    // The loaded group that holds `menu`, or null for a menu of no loaded group. A group found
    // is checked to hold the menu still (through `seats`, a look or two); one that no longer does
    // has the index read again.
    std::shared_ptr<MenuGroup> ownerOf(const HostState& state, Seats& seats, const PopupMenu& menu);

    // `group`, loaded, now holds `menu` as well.
    void added(const std::shared_ptr<MenuGroup>& group, const PopupMenu& menu);
    // `group` was loaded with the menus it holds, or unloaded with them.
    void loaded(const std::shared_ptr<MenuGroup>& group);
    void unloaded(const MenuGroup& group);

    // The state may have changed in any way: the next question reads it again.
    void forget();

private:
    void build(const HostState& state, Seats& seats);

    bool m_built = false;
    std::unordered_map<const PopupMenu*, std::weak_ptr<MenuGroup>> m_owners;
};

}  // namespace sim::detail

#include "model/menu_owners.h"

namespace sim::detail {

std::shared_ptr<MenuGroup> MenuOwners::ownerOf(const HostState& state, Seats& seats, const PopupMenu& menu)
{
    if (m_built) {
        const auto known = m_owners.find(&menu);
        if (known == m_owners.end())
            return nullptr;
        const auto group = known->second.lock();
        if (group && seats.contains(state.menuGroups, group.get()) && seats.contains(group->menus, &menu))
            return group;
    }
    build(state, seats);
    const auto known = m_owners.find(&menu);
    return known == m_owners.end() ? nullptr : known->second.lock();
}

void MenuOwners::added(const std::shared_ptr<MenuGroup>& group, const PopupMenu& menu)
{
    if (m_built)
        m_owners[&menu] = group;
}

void MenuOwners::loaded(const std::shared_ptr<MenuGroup>& group)
{
    for (const auto& menu : group->menus)
        if (menu)
            added(group, *menu);
}

void MenuOwners::unloaded(const MenuGroup& group)
{
    for (const auto& menu : group.menus)
        m_owners.erase(menu.get());
}

void MenuOwners::forget()
{
    m_built = false;
    m_owners.clear();
}

// The first group that holds a menu owns it, as a search of the groups in order would find.
void MenuOwners::build(const HostState& state, Seats& seats)
{
    m_owners.clear();
    seats.rememberAll(state.menuGroups);
    for (const auto& group : state.menuGroups) {
        if (!group)
            continue;
        seats.rememberAll(group->menus);
        for (const auto& menu : group->menus)
            if (menu)
                m_owners.emplace(menu.get(), group);
    }
    m_built = true;
}

}  // namespace sim::detail

#include "model/menu_places.h"

#include "model/text.h"

namespace sim::detail {

std::unordered_map<const PopupMenu*, MenuPlaceInGroups> placesOfGroupMenus(const HostState& state)
{
    std::unordered_map<const PopupMenu*, MenuPlaceInGroups> places;
    for (size_t g = 0; g < state.menuGroups.size(); ++g) {
        if (!state.menuGroups[g])
            continue;
        const auto& menus = state.menuGroups[g]->menus;
        for (size_t m = 0; m < menus.size(); ++m)
            if (menus[m])
                places.emplace(menus[m].get(), MenuPlaceInGroups{g, m});
    }
    return places;
}

GroupsByName::GroupsByName(const HostState& state)
{
    for (const auto& group : state.menuGroups) {
        if (!group)
            continue;
        auto& entry = m_byName[text::foldedCase(group->name)];
        if (!entry.first)
            entry.first = group;
        ++entry.second;
    }
}

std::shared_ptr<MenuGroup> GroupsByName::first(const std::wstring& name) const
{
    const auto found = m_byName.find(text::foldedCase(name));
    return found == m_byName.end() ? nullptr : found->second.first;
}

size_t GroupsByName::count(const std::wstring& name) const
{
    const auto found = m_byName.find(text::foldedCase(name));
    return found == m_byName.end() ? 0 : found->second.second;
}

}  // namespace sim::detail

// Where the menus of the loaded groups stand, gathered in one pass, for what relates the menu bar to
// the groups: the state's reader, writer and comparison. Looking each menu-bar menu up among all
// groups' menus instead made a state with many groups quadratic to read, write and compare.
#pragma once

#include "sim/model.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

namespace sim::detail {

struct MenuPlaceInGroups {
    size_t group;
    size_t menu;
};

// Each menu of a loaded group at its first place (group, then menu, in order); a menu of no group
// is not there.
std::unordered_map<const PopupMenu*, MenuPlaceInGroups> placesOfGroupMenus(const HostState& state);

// The loaded groups by name, letter case ignored: the first of each name, and how many share it.
class GroupsByName {
public:
    explicit GroupsByName(const HostState& state);
    std::shared_ptr<MenuGroup> first(const std::wstring& name) const;
    size_t count(const std::wstring& name) const;

private:
    std::unordered_map<std::wstring, std::pair<std::shared_ptr<MenuGroup>, size_t>> m_byName;
};

}  // namespace sim::detail

#include "objects/places.h"

#include "model/text.h"

namespace sim::detail {
namespace {

std::string quoted(const std::wstring& name) { return "'" + text::toUtf8(name) + "'"; }

std::wstring quotedWide(const std::wstring& name) { return L"'" + name + L"'"; }

// Menus and toolbars are known by their tag; one without a tag by its name.
std::wstring identifierOf(const std::wstring& tag, const std::wstring& name)
{
    return tag.empty() ? name : tag;
}

}  // namespace

MenuPlace MenuPlace::below(const std::shared_ptr<PopupMenuItem>& item) const
{
    MenuPlace place = *this;
    place.submenuItems.push_back(item);
    place.menu = item->subMenu;
    return place;
}

MenuPlace placeOfTopMenu(HostCore& core, const std::shared_ptr<PopupMenu>& menu)
{
    return MenuPlace{core.menuOwners.ownerOf(core.state, core.seats, *menu), menu, {}, menu};
}

std::shared_ptr<MenuGroup> loadedGroupNamed(HostCore& core, const std::wstring& name)
{
    const long position = firstNamed<GroupName>(core, core.state.menuGroups)(name);
    return position < 0 ? nullptr : core.state.menuGroups[static_cast<size_t>(position)];
}

std::wstring goneReason(HostCore& core, const MenuGroup& group)
{
    if (core.seats.contains(core.state.menuGroups, &group))
        return {};
    return L"menu group " + quotedWide(group.name) + L" is unloaded";
}

std::wstring goneReason(HostCore& core, const MenuPlace& place)
{
    if (place.group) {
        std::wstring reason = goneReason(core, *place.group);
        if (!reason.empty())
            return reason;
        if (!core.seats.contains(place.group->menus, place.top.get()))
            return L"menu " + quotedWide(place.top->name) + L" was removed from menu group " +
                   quotedWide(place.group->name);
    }
    else if (!core.seats.contains(core.state.menuBar, place.top.get())) {
        return L"menu " + quotedWide(place.top->name) + L" is no longer on the menu bar";
    }
    const PopupMenu* menu = place.top.get();
    for (const auto& item : place.submenuItems) {
        if (!core.seats.contains(menu->items, item.get()))
            return L"submenu item " + quotedWide(item->label) + L" was deleted";
        menu = item->subMenu.get();
        if (menu == nullptr)
            return L"menu item " + quotedWide(item->label) + L" no longer has a submenu";
    }
    if (menu != place.menu.get())
        return L"submenu " + quotedWide(place.menu->name) + L" was replaced";
    return {};
}

std::wstring goneReason(HostCore& core, const MenuPlace& place, const PopupMenuItem& item)
{
    std::wstring reason = goneReason(core, place);
    if (reason.empty() && !core.seats.contains(place.menu->items, &item))
        reason = L"menu item " + quotedWide(item.label) + L" was deleted";
    return reason;
}

std::wstring goneReason(HostCore& core, const ToolbarPlace& place)
{
    std::wstring reason = goneReason(core, *place.group);
    if (reason.empty() && !core.seats.contains(place.group->toolbars, place.toolbar.get()))
        reason = L"toolbar " + quotedWide(place.toolbar->name) + L" was removed from menu group " +
                 quotedWide(place.group->name);
    return reason;
}

std::wstring goneReason(HostCore& core, const ToolbarPlace& place, const ToolbarButton& button)
{
    std::wstring reason = goneReason(core, place);
    if (reason.empty() && !core.seats.contains(place.toolbar->buttons, &button))
        reason = L"toolbar button " + quotedWide(button.name) + L" was deleted";
    return reason;
}

std::wstring goneReason(HostCore& core, const Document& document)
{
    if (core.seats.contains(core.state.documents, &document))
        return {};
    return L"drawing " + quotedWide(document.fullFileName) + L" is closed";
}

std::string nameOf(const MenuGroup& group) { return quoted(group.name); }

std::string nameOf(const MenuPlace& place)
{
    std::string name = place.group ? nameOf(*place.group) + "/" : std::string();
    name += quoted(identifierOf(place.top->tag, place.top->name));
    for (const auto& item : place.submenuItems)
        name += "/" + quoted(item->subMenu ? item->subMenu->name : item->label);
    return name;
}

namespace {

// "[3]", the node's position among its siblings, or "[deleted]" once it left them: two nodes of
// one tag or name are told apart by it.
template <class Nodes, class Node>
std::string positionText(HostCore& core, const Nodes& siblings, const Node* node)
{
    const long position = core.seats.find(siblings, node);
    return position >= 0 ? "[" + std::to_string(position) + "]" : "[deleted]";
}

}  // namespace

std::string nameOf(HostCore& core, const MenuPlace& place, const PopupMenuItem& item)
{
    return nameOf(place) + positionText(core, place.menu->items, &item);
}

std::string nameOf(HostCore& core, const ToolbarPlace& place)
{
    return nameOf(*place.group) + "/" + quoted(identifierOf(place.toolbar->tag, place.toolbar->name)) +
           positionText(core, place.group->toolbars, place.toolbar.get());
}

std::string nameOf(HostCore& core, const ToolbarPlace& place, const ToolbarButton& button)
{
    return nameOf(core, place) + "/" + quoted(identifierOf(button.tag, button.name)) +
           positionText(core, place.toolbar->buttons, &button);
}

std::string nameOf(const Document& document) { return quoted(document.fullFileName); }

}  // namespace sim::detail

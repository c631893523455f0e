#include "html_host_parts.h"

#include "html_text.h"

namespace zorbsim::html {
namespace {

// Separators are all one entry; other items are known by their tag, or by their label where either
// has no tag.
bool sameItem(const std::shared_ptr<sim::PopupMenuItem>& a, const std::shared_ptr<sim::PopupMenuItem>& b)
{
    if (!a || !b)
        return !a && !b;
    if (a->type != b->type)
        return false;
    if (a->type == sim::ItemType::separator)
        return true;
    return !a->tag.empty() && !b->tag.empty() ? a->tag == b->tag : a->label == b->label;
}

std::string hoverText(const std::wstring& tag, const std::wstring& macro)
{
    std::string text = "tag: " + (tag.empty() ? std::string("(none)") : escape(tag));
    if (!macro.empty())
        text += "&#10;macro: " + escape(macro);
    return text;
}

std::string itemHtml(const NodeVersions<sim::PopupMenuItem>& item)
{
    const char* mark = changeClass(item.change);
    if (!item.shown())
        return std::string("<li class=\"empty") + mark + "\">no object</li>";
    const sim::PopupMenuItem& shown = *item.shown();
    const std::string disabled = shown.enabled ? "" : " disabled";
    switch (shown.type) {
    case sim::ItemType::separator:
        return std::string("<li class=\"separator") + mark + "\" title=\"separator\"></li>";
    case sim::ItemType::submenu: {
        const std::shared_ptr<sim::PopupMenu>& before = item.baseline()->subMenu;
        const NodeVersions<sim::PopupMenu> subMenu = versions(&before, &shown.subMenu);
        if (!shown.subMenu)
            return "<li class=\"item submenu empty" + disabled + mark + "\">" + menuLabel(shown.label) +
                   " (no submenu)</li>";
        return "<li class=\"item submenu" + disabled + mark + "\">" + menuHtml(subMenu) + "</li>";
    }
    case sim::ItemType::command:
        break;
    }
    return "<li class=\"item" + disabled + mark + "\" title=\"" + hoverText(shown.tag, shown.macro) + "\">" +
           menuLabel(shown.label) + "</li>";
}

// Where a menu of the menu bar comes from, for its hover text.
std::string groupOfMenu(const sim::HostState& state, const sim::PopupMenu* menu)
{
    for (const auto& group : state.menuGroups)
        if (group)
            for (const auto& member : group->menus)
                if (member.get() == menu)
                    return "group: " + escape(group->name);
    return "group: none";
}

}  // namespace

bool sameMenu(const std::shared_ptr<sim::PopupMenu>& a, const std::shared_ptr<sim::PopupMenu>& b)
{
    if (!a || !b)
        return !a && !b;
    return !a->tag.empty() && !b->tag.empty() ? a->tag == b->tag : a->name == b->name;
}

std::string menuHtml(const NodeVersions<sim::PopupMenu>& menu, const std::string& note)
{
    const char* mark = changeClass(menu.change);
    if (!menu.shown())
        return std::string("<span class=\"empty") + mark + "\">no object</span>";
    const sim::PopupMenu& shown = *menu.shown();
    std::string html = std::string("<details class=\"menu") + mark + "\" data-name=\"" + escape(shown.name) +
                       "\"><summary title=\"" + hoverText(shown.tag, {}) +
                       (note.empty() ? "" : "&#10;" + note) + "\">" + menuLabel(shown.name) +
                       "</summary><ul>";
    const auto& before = menu.baseline()->items;
    if (shown.items.empty() && before.empty())
        html += "<li class=\"empty\">no items</li>";
    for (const auto& item : alignLists(before, shown.items, sameItem))
        html += itemHtml(item);
    return html + "</ul></details>";
}

std::string menuBarHtml(const sim::HostState& before, const sim::HostState& after)
{
    std::string html = "<nav class=\"menubar\" data-name=\"menubar\">";
    if (before.menuBar.empty() && after.menuBar.empty())
        html += "<span class=\"empty\">no menus on the menu bar</span>";
    for (const auto& menu : alignLists(before.menuBar, after.menuBar, sameMenu))
        html += menuHtml(menu, groupOfMenu(menu.after ? after : before, menu.shown().get()));
    return html + "</nav>";
}

}  // namespace zorbsim::html

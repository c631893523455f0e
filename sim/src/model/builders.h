// Short ways to build model nodes, for the built-in default host and the drawings the host opens.
#pragma once

#include "sim/model.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace sim::detail {

using Items = decltype(PopupMenu::items);
using Buttons = std::vector<std::shared_ptr<ToolbarButton>>;

inline std::shared_ptr<PopupMenuItem> command(std::wstring label, std::wstring macro, std::wstring tag = {})
{
    auto item = std::make_shared<PopupMenuItem>();
    item->type = ItemType::command;
    item->label = std::move(label);
    item->macro = std::move(macro);
    item->tag = std::move(tag);
    return item;
}

// The layouts named, plotting themselves (plot type 5); the first is active.
inline void giveLayouts(Document& document, std::initializer_list<const wchar_t*> names)
{
    constexpr long kPlotLayout = 5;
    for (const wchar_t* name : names) {
        auto layout = std::make_shared<Layout>();
        layout->name = name;
        layout->plotType = kPlotLayout;
        document.layouts.push_back(layout);
    }
    document.activeLayout = document.layouts.front();
}

inline std::shared_ptr<PopupMenuItem> separator()
{
    auto item = std::make_shared<PopupMenuItem>();
    item->type = ItemType::separator;
    return item;
}

inline std::shared_ptr<PopupMenu> menu(std::wstring name, std::wstring tag, Items items)
{
    auto built = std::make_shared<PopupMenu>();
    built->name = std::move(name);
    built->tag = std::move(tag);
    built->items = std::move(items);
    return built;
}

// A submenu item leads to a menu of the same name.
inline std::shared_ptr<PopupMenuItem> submenu(std::wstring label, Items items)
{
    auto item = std::make_shared<PopupMenuItem>();
    item->type = ItemType::submenu;
    item->label = label;
    item->subMenu = menu(std::move(label), {}, std::move(items));
    return item;
}

inline std::shared_ptr<ToolbarButton> button(std::wstring name, std::wstring tag, std::wstring macro,
                                             std::wstring helpString, std::wstring bitmap)
{
    auto built = std::make_shared<ToolbarButton>();
    built->name = std::move(name);
    built->tag = std::move(tag);
    built->macro = std::move(macro);
    built->helpString = std::move(helpString);
    built->smallBitmap = bitmap + L"_16";
    built->largeBitmap = bitmap + L"_32";
    return built;
}

struct Placement {
    bool visible;
    long dockStatus;
    long left;
    long top;
    long floatingRows;
};

inline std::shared_ptr<Toolbar> toolbar(std::wstring name, std::wstring tag, Placement placement,
                                        Buttons buttons)
{
    auto built = std::make_shared<Toolbar>();
    built->name = std::move(name);
    built->tag = std::move(tag);
    built->visible = placement.visible;
    built->dockStatus = placement.dockStatus;
    built->left = placement.left;
    built->top = placement.top;
    built->floatingRows = placement.floatingRows;
    built->buttons = std::move(buttons);
    return built;
}

}  // namespace sim::detail

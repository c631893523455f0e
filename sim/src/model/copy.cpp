// Deep copy of a host state. Relations between nodes (the menu bar's menus, the active document)
// are copied by where their node sits, not by identity.
#include "sim/model.h"

#include "model/copy.h"

#include <unordered_map>

namespace sim {
namespace {

// A null entry of a collection is a place where the host gives no object; it is copied as such.
template <class Nodes, class Copy> Nodes copyNodes(const Nodes& nodes, Copy copy)
{
    Nodes copies;
    for (const auto& node : nodes)
        copies.push_back(node ? copy(*node) : nullptr);
    return copies;
}

// The copy of `node`: the copy at its position when it is one of `nodes`, else a copy of its own.
template <class Node, class Copy>
std::shared_ptr<Node> copyMember(const std::vector<std::shared_ptr<Node>>& nodes,
                                 const std::shared_ptr<Node>& node,
                                 const std::vector<std::shared_ptr<Node>>& copies, Copy copy)
{
    if (!node)
        return nullptr;
    for (size_t i = 0; i < nodes.size(); ++i)
        if (nodes[i] == node)
            return copies[i];
    return copy(*node);
}

// Deep copies; the map remembers where each copied top-level menu went.
using MenuCopies = std::unordered_map<const PopupMenu*, std::shared_ptr<PopupMenu>>;

std::shared_ptr<PopupMenu> copyMenu(const PopupMenu& menu);

std::shared_ptr<PopupMenuItem> copyItem(const PopupMenuItem& item)
{
    auto copy = std::make_shared<PopupMenuItem>(item);
    if (item.subMenu)
        copy->subMenu = copyMenu(*item.subMenu);
    return copy;
}

std::shared_ptr<PopupMenu> copyMenu(const PopupMenu& menu)
{
    auto copy = std::make_shared<PopupMenu>();
    copy->name = menu.name;
    copy->tag = menu.tag;
    copy->items = copyNodes(menu.items, copyItem);
    return copy;
}

std::shared_ptr<Toolbar> copyToolbar(const Toolbar& toolbar)
{
    auto copy = std::make_shared<Toolbar>(toolbar);
    copy->buttons = copyNodes(
        toolbar.buttons, [](const ToolbarButton& button) { return std::make_shared<ToolbarButton>(button); });
    return copy;
}

std::shared_ptr<MenuGroup> copyGroup(const MenuGroup& group, MenuCopies* copies)
{
    auto copy = std::make_shared<MenuGroup>();
    copy->name = group.name;
    copy->menus = copyNodes(group.menus, copyMenu);
    if (copies)
        for (size_t i = 0; i < group.menus.size(); ++i)
            (*copies)[group.menus[i].get()] = copy->menus[i];
    copy->toolbars = copyNodes(group.toolbars, copyToolbar);
    return copy;
}

std::shared_ptr<Layout> copyLayout(const Layout& layout) { return std::make_shared<Layout>(layout); }

std::shared_ptr<Document> copyDocument(const Document& document)
{
    auto copy = std::make_shared<Document>(document);
    copy->layouts = copyNodes(document.layouts, copyLayout);
    copy->activeLayout = copyMember(document.layouts, document.activeLayout, copy->layouts, copyLayout);
    return copy;
}

}  // namespace

std::shared_ptr<MenuGroup> detail::copyMenuGroup(const MenuGroup& group) { return copyGroup(group, nullptr); }

HostState clone(const HostState& state)
{
    HostState copy;
    copy.behaviour = state.behaviour;
    MenuCopies menuCopies;
    copy.menuGroups =
        copyNodes(state.menuGroups, [&](const MenuGroup& group) { return copyGroup(group, &menuCopies); });
    for (const auto& menu : state.menuBar) {
        const auto found = menu ? menuCopies.find(menu.get()) : menuCopies.end();
        copy.menuBar.push_back(found != menuCopies.end() ? found->second : menu ? copyMenu(*menu) : nullptr);
    }
    copy.documents = copyNodes(state.documents, copyDocument);
    copy.activeDocument = copyMember(state.documents, state.activeDocument, copy.documents, copyDocument);
    copy.drawingsOnDisk = state.drawingsOnDisk;
    copy.drawingDemands = state.drawingDemands;
    copy.plotJobs = state.plotJobs;
    copy.plotterAnswers = state.plotterAnswers;
    copy.zoomRequests = state.zoomRequests;
    copy.preferences = state.preferences;
    copy.systemVariables = state.systemVariables;
    copy.registryRootKey = state.registryRootKey;
    copy.registryValues = state.registryValues;
    copy.searchPathFiles = state.searchPathFiles;
    for (const auto& [path, group] : state.menuFiles)
        copy.menuFiles[path] = group ? copyGroup(*group, nullptr) : nullptr;
    copy.mxSupportFolder = state.mxSupportFolder;
    copy.faults = state.faults;
    return copy;
}

}  // namespace sim

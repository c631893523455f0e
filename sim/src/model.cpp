// Deep comparison and deep copy of a host state. Relations between nodes (the menu bar's menus,
// the active document) are compared and copied by where their node sits, not by identity.
#include "sim/model.h"

#include "model_copy.h"

#include <unordered_map>

namespace sim {
namespace {

template <class Node, class Same>
bool sameNodes(const std::vector<std::shared_ptr<Node>>& a, const std::vector<std::shared_ptr<Node>>& b,
               Same same)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (!a[i] || !b[i]) {
            if (a[i] || b[i])
                return false;
        }
        else if (!same(*a[i], *b[i])) {
            return false;
        }
    }
    return true;
}

// A null entry of a collection is a place where the host gives no object; it is copied as such.
template <class Node, class Copy>
std::vector<std::shared_ptr<Node>> copyNodes(const std::vector<std::shared_ptr<Node>>& nodes, Copy copy)
{
    std::vector<std::shared_ptr<Node>> copies;
    copies.reserve(nodes.size());
    for (const auto& node : nodes)
        copies.push_back(node ? copy(*node) : nullptr);
    return copies;
}

bool sameMenu(const PopupMenu& a, const PopupMenu& b);

bool sameItem(const PopupMenuItem& a, const PopupMenuItem& b)
{
    if (a.type != b.type || a.label != b.label || a.macro != b.macro || a.tag != b.tag ||
        a.enabled != b.enabled)
        return false;
    if (!a.subMenu || !b.subMenu)
        return !a.subMenu && !b.subMenu;
    return sameMenu(*a.subMenu, *b.subMenu);
}

bool sameMenu(const PopupMenu& a, const PopupMenu& b)
{
    return a.name == b.name && a.tag == b.tag && sameNodes(a.items, b.items, sameItem);
}

bool sameButton(const ToolbarButton& a, const ToolbarButton& b)
{
    return a.name == b.name && a.tag == b.tag && a.macro == b.macro && a.helpString == b.helpString &&
           a.smallBitmap == b.smallBitmap && a.largeBitmap == b.largeBitmap && a.flyout == b.flyout;
}

bool sameToolbar(const Toolbar& a, const Toolbar& b)
{
    return a.name == b.name && a.tag == b.tag && a.visible == b.visible && a.dockStatus == b.dockStatus &&
           a.left == b.left && a.top == b.top && a.floatingRows == b.floatingRows &&
           sameNodes(a.buttons, b.buttons, sameButton);
}

bool sameGroup(const MenuGroup& a, const MenuGroup& b)
{
    return a.name == b.name && sameNodes(a.menus, b.menus, sameMenu) &&
           sameNodes(a.toolbars, b.toolbars, sameToolbar);
}

bool sameWindow(const std::optional<PlotWindow>& a, const std::optional<PlotWindow>& b)
{
    if (!a || !b)
        return !a && !b;
    return a->lowerLeftX == b->lowerLeftX && a->lowerLeftY == b->lowerLeftY &&
           a->upperRightX == b->upperRightX && a->upperRightY == b->upperRightY;
}

bool sameDocument(const Document& a, const Document& b)
{
    if (a.fullFileName != b.fullFileName || a.plot.numberOfCopies != b.plot.numberOfCopies ||
        a.plot.quietErrorMode != b.plot.quietErrorMode || a.plot.batchEntries != b.plot.batchEntries ||
        a.plot.layoutsToPlot != b.plot.layoutsToPlot)
        return false;
    if (!a.activeLayout || !b.activeLayout)
        return !a.activeLayout && !b.activeLayout;
    return a.activeLayout->name == b.activeLayout->name &&
           a.activeLayout->plotType == b.activeLayout->plotType &&
           sameWindow(a.activeLayout->window, b.activeLayout->window);
}

bool samePlotJob(const PlotJob& a, const PlotJob& b)
{
    return a.document == b.document && a.device == b.device && a.layouts == b.layouts &&
           a.numberOfCopies == b.numberOfCopies && a.plotType == b.plotType && sameWindow(a.window, b.window);
}

bool sameZoom(const ZoomRequest& a, const ZoomRequest& b)
{
    return a.lowerLeftX == b.lowerLeftX && a.lowerLeftY == b.lowerLeftY && a.upperRightX == b.upperRightX &&
           a.upperRightY == b.upperRightY;
}

template <class T, class Same> bool sameValues(const std::vector<T>& a, const std::vector<T>& b, Same same)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (!same(a[i], b[i]))
            return false;
    return true;
}

// Where a menu-bar menu sits among the loaded groups' menus: (group, menu), or (-1, -1).
std::pair<long, long> placeOfMenu(const HostState& state, const PopupMenu* menu)
{
    for (size_t g = 0; g < state.menuGroups.size(); ++g) {
        if (!state.menuGroups[g] || !menu)
            continue;
        const auto& menus = state.menuGroups[g]->menus;
        for (size_t m = 0; m < menus.size(); ++m)
            if (menus[m].get() == menu)
                return {static_cast<long>(g), static_cast<long>(m)};
    }
    return {-1, -1};
}

long positionOfDocument(const HostState& state, const Document* document)
{
    for (size_t i = 0; i < state.documents.size(); ++i)
        if (state.documents[i].get() == document)
            return static_cast<long>(i);
    return -1;
}

bool sameMenuBar(const HostState& a, const HostState& b)
{
    if (a.menuBar.size() != b.menuBar.size())
        return false;
    for (size_t i = 0; i < a.menuBar.size(); ++i) {
        const auto placeA = placeOfMenu(a, a.menuBar[i].get());
        if (placeA != placeOfMenu(b, b.menuBar[i].get()))
            return false;
        if (placeA.first >= 0)
            continue;
        const auto& menuA = a.menuBar[i];
        const auto& menuB = b.menuBar[i];
        if (!menuA || !menuB ? (menuA || menuB) : !sameMenu(*menuA, *menuB))
            return false;  // menus outside every group are compared by content
    }
    return true;
}

bool sameActiveDocument(const HostState& a, const HostState& b)
{
    if (!a.activeDocument || !b.activeDocument)
        return !a.activeDocument && !b.activeDocument;
    const long position = positionOfDocument(a, a.activeDocument.get());
    if (position != positionOfDocument(b, b.activeDocument.get()))
        return false;
    return position >= 0 || sameDocument(*a.activeDocument, *b.activeDocument);
}

bool sameMenuFiles(const HostState& a, const HostState& b)
{
    if (a.menuFiles.size() != b.menuFiles.size())
        return false;
    for (auto left = a.menuFiles.begin(), right = b.menuFiles.begin(); left != a.menuFiles.end();
         ++left, ++right) {
        if (left->first != right->first || !left->second != !right->second)
            return false;
        if (left->second && !sameGroup(*left->second, *right->second))
            return false;
    }
    return true;
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

std::shared_ptr<Document> copyDocument(const Document& document)
{
    auto copy = std::make_shared<Document>(document);
    if (document.activeLayout)
        copy->activeLayout = std::make_shared<Layout>(*document.activeLayout);
    return copy;
}

}  // namespace

std::shared_ptr<MenuGroup> detail::copyMenuGroup(const MenuGroup& group) { return copyGroup(group, nullptr); }

bool operator==(const HostState& a, const HostState& b)
{
    return a.behaviour.strictArguments == b.behaviour.strictArguments &&
           a.behaviour.menuIndexBeyondEnd == b.behaviour.menuIndexBeyondEnd &&
           sameNodes(a.menuGroups, b.menuGroups, sameGroup) && sameMenuBar(a, b) &&
           sameNodes(a.documents, b.documents, sameDocument) && sameActiveDocument(a, b) &&
           a.drawingsOnDisk == b.drawingsOnDisk && sameValues(a.plotJobs, b.plotJobs, samePlotJob) &&
           a.plotterAnswers == b.plotterAnswers && sameValues(a.zoomRequests, b.zoomRequests, sameZoom) &&
           a.preferences.supportPath == b.preferences.supportPath &&
           a.preferences.printerStyleSheetPath == b.preferences.printerStyleSheetPath &&
           a.preferences.templateDrawingFolder == b.preferences.templateDrawingFolder &&
           a.preferences.drawingPath == b.preferences.drawingPath && a.systemVariables == b.systemVariables &&
           a.registryRootKey == b.registryRootKey && a.registryValues == b.registryValues &&
           a.searchPathFiles == b.searchPathFiles && sameMenuFiles(a, b) &&
           a.mxSupportFolder == b.mxSupportFolder && a.faults == b.faults;
}

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
    for (size_t i = 0; i < state.documents.size(); ++i)
        if (state.activeDocument && state.documents[i] == state.activeDocument)
            copy.activeDocument = copy.documents[i];
    if (state.activeDocument && !copy.activeDocument)
        copy.activeDocument = copyDocument(*state.activeDocument);
    copy.drawingsOnDisk = state.drawingsOnDisk;
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

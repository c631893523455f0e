// Deep comparison of the model: nodes compare by content, whatever their identities.
#include "sim/model.h"

#include "model/menu_places.h"

#include <algorithm>

namespace sim {
namespace {

template <class Node> bool sameNode(const std::shared_ptr<Node>& a, const std::shared_ptr<Node>& b)
{
    return a && b ? *a == *b : !a && !b;
}

template <class Nodes> bool sameNodes(const Nodes& a, const Nodes& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), sameNode<typename Nodes::value_type::element_type>);
}

template <class Node> long positionOf(const std::vector<std::shared_ptr<Node>>& nodes, const Node* node)
{
    for (size_t i = 0; i < nodes.size(); ++i)
        if (nodes[i].get() == node)
            return static_cast<long>(i);
    return -1;
}

// One of a collection's nodes compares by its position; a node outside it by its content.
template <class Node>
bool sameMember(const std::vector<std::shared_ptr<Node>>& aNodes, const std::shared_ptr<Node>& a,
                const std::vector<std::shared_ptr<Node>>& bNodes, const std::shared_ptr<Node>& b)
{
    if (!a || !b)
        return !a && !b;
    const long position = positionOf(aNodes, a.get());
    if (position != positionOf(bNodes, b.get()))
        return false;
    return position >= 0 || *a == *b;
}

// A menu of a group compares by its place; a menu outside every group by its content.
bool sameMenuBar(const HostState& a, const HostState& b)
{
    if (a.menuBar.size() != b.menuBar.size())
        return false;
    const auto aPlaces = detail::placesOfGroupMenus(a);
    const auto bPlaces = detail::placesOfGroupMenus(b);
    for (size_t i = 0; i < a.menuBar.size(); ++i) {
        const auto aPlace = a.menuBar[i] ? aPlaces.find(a.menuBar[i].get()) : aPlaces.end();
        const auto bPlace = b.menuBar[i] ? bPlaces.find(b.menuBar[i].get()) : bPlaces.end();
        if ((aPlace == aPlaces.end()) != (bPlace == bPlaces.end()))
            return false;
        if (aPlace == aPlaces.end()) {
            if (!sameNode(a.menuBar[i], b.menuBar[i]))
                return false;
        }
        else if (aPlace->second.group != bPlace->second.group || aPlace->second.menu != bPlace->second.menu) {
            return false;
        }
    }
    return true;
}

bool sameMenuFiles(const HostState& a, const HostState& b)
{
    return std::equal(a.menuFiles.begin(), a.menuFiles.end(), b.menuFiles.begin(), b.menuFiles.end(),
                      [](const auto& left, const auto& right) {
                          return left.first == right.first && sameNode(left.second, right.second);
                      });
}

}  // namespace

bool PopupMenuItem::operator==(const PopupMenuItem& other) const
{
    return type == other.type && label == other.label && macro == other.macro && tag == other.tag &&
           enabled == other.enabled && sameNode(subMenu, other.subMenu);
}

bool PopupMenu::operator==(const PopupMenu& other) const
{
    return name == other.name && tag == other.tag && sameNodes(items, other.items);
}

bool ToolbarButton::operator==(const ToolbarButton& other) const
{
    return name == other.name && tag == other.tag && macro == other.macro && helpString == other.helpString &&
           smallBitmap == other.smallBitmap && largeBitmap == other.largeBitmap && flyout == other.flyout;
}

bool Toolbar::operator==(const Toolbar& other) const
{
    return name == other.name && tag == other.tag && visible == other.visible &&
           dockStatus == other.dockStatus && left == other.left && top == other.top &&
           floatingRows == other.floatingRows && sameNodes(buttons, other.buttons);
}

bool MenuGroup::operator==(const MenuGroup& other) const
{
    return name == other.name && sameNodes(menus, other.menus) && sameNodes(toolbars, other.toolbars);
}

bool PlotWindow::operator==(const PlotWindow& other) const
{
    return lowerLeftX == other.lowerLeftX && lowerLeftY == other.lowerLeftY &&
           upperRightX == other.upperRightX && upperRightY == other.upperRightY;
}

bool Layout::operator==(const Layout& other) const
{
    return name == other.name && plotType == other.plotType && window == other.window;
}

bool PlotSettings::operator==(const PlotSettings& other) const
{
    return numberOfCopies == other.numberOfCopies && quietErrorMode == other.quietErrorMode &&
           batchEntries == other.batchEntries && layoutsToPlot == other.layoutsToPlot;
}

bool Document::operator==(const Document& other) const
{
    return fullFileName == other.fullFileName && sameNodes(layouts, other.layouts) &&
           sameMember(layouts, activeLayout, other.layouts, other.activeLayout) && plot == other.plot &&
           readOnly == other.readOnly && drawingCheckWhenOpened == other.drawingCheckWhenOpened;
}

bool DrawingDemands::operator==(const DrawingDemands& other) const
{
    return stopsForCheck == other.stopsForCheck && password == other.password;
}

bool PlotJob::operator==(const PlotJob& other) const
{
    return document == other.document && device == other.device && layouts == other.layouts &&
           numberOfCopies == other.numberOfCopies && plotType == other.plotType && window == other.window;
}

bool ZoomRequest::operator==(const ZoomRequest& other) const
{
    return lowerLeftX == other.lowerLeftX && lowerLeftY == other.lowerLeftY &&
           upperRightX == other.upperRightX && upperRightY == other.upperRightY;
}

bool PreferencesFiles::operator==(const PreferencesFiles& other) const
{
    return supportPath == other.supportPath && printerStyleSheetPath == other.printerStyleSheetPath &&
           templateDrawingFolder == other.templateDrawingFolder && drawingPath == other.drawingPath;
}

bool HostBehaviour::operator==(const HostBehaviour& other) const
{
    return strictArguments == other.strictArguments && menuIndexBeyondEnd == other.menuIndexBeyondEnd &&
           newMenuItemsEnabled == other.newMenuItemsEnabled;
}

bool HostState::operator==(const HostState& other) const
{
    return behaviour == other.behaviour && sameNodes(menuGroups, other.menuGroups) &&
           sameMenuBar(*this, other) && sameNodes(documents, other.documents) &&
           sameMember(documents, activeDocument, other.documents, other.activeDocument) &&
           drawingsOnDisk == other.drawingsOnDisk &&
           drawingDemands == other.drawingDemands &&
           plotJobs == other.plotJobs && plotterAnswers == other.plotterAnswers &&
           zoomRequests == other.zoomRequests && preferences == other.preferences &&
           systemVariables == other.systemVariables && registryRootKey == other.registryRootKey &&
           registryValues == other.registryValues && searchPathFiles == other.searchPathFiles &&
           sameMenuFiles(*this, other) && mxSupportFolder == other.mxSupportFolder && faults == other.faults;
}

}  // namespace sim

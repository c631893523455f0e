#include "module_operations.h"

#include "CADPlotUtilities.h"
#include "ZORBAppUtilities.h"

#include "support/mxt_text.h"
#include "support/sized_host.h"

#include "MxtGlobalStorage"
#include "host/object_model.h"
#include "host/sdk.h"

#include <algorithm>
#include <utility>
#include <stdexcept>

namespace module_bench {
namespace {

using Z = ZORBAppUtilities;

MxtString mxt(const std::wstring& text)
{
    return MxtString(text.c_str());
}

template <class Node>
std::shared_ptr<Node> tagged(const std::vector<std::shared_ptr<Node>>& nodes, const std::wstring& tag)
{
    const auto found = std::find_if(nodes.begin(), nodes.end(), [&](const auto& node) { return node->tag == tag; });
    if (found == nodes.end())
        throw std::logic_error("the benchmark's host lacks a node it needs");
    return *found;
}

// --- Host access ---

void getCADAppDispatch(Session&)
{
    IDispatch* dispatch = nullptr;
    Z::getCADAppDispatch(&dispatch);
    dispatch->Release();
}

void getCadApplication(Session&)
{
    static_cast<HostApplication*>(Z::getCadApplication())->Release();
}

// --- Search paths and resource files ---

void preparePathes(Session& session)
{
    const _bstr_t current(session.host.state().preferences.supportPath.c_str());
    _bstr_t merged;
    Z::preparePathes(session.newFolders, current, merged);
}

void getCADAppSupportPath(Session&)
{
    Z::getCADAppSupportPath();
}

void addPathesToCADAppSupportPath(Session& session)
{
    MxtString merged;
    Z::addPathesToCADAppSupportPath(session.newFolders, merged);
    session.host.state().preferences.supportPath = session.places.supportPath;
}

void getPlotStylePath(Session&)
{
    MxtString path;
    Z::getPlotStylePath(path);
}

void addMXPathToCADPrinterStyleSheetPath(Session& session)
{
    MxtString merged;
    Z::addMXPathToCADPrinterStyleSheetPath(merged);
    session.host.state().preferences.printerStyleSheetPath = session.places.printerStyleSheetPath;
}

void setTemplateDwgPath(Session&)
{
    Z::setTemplateDwgPath(MxtString(L"C:\\MX\\Templates"));
}

void getCadDrawingPath(Session&)
{
    MxtString path;
    Z::getCadDrawingPath(path);
}

void getCadProductLocation(Session&)
{
    MxtString location;
    Z::getCadProductLocation(location);
}

void getLinetypeFilePath(Session&)
{
    MxtString path;
    Z::getLinetypeFilePath(MxtString(L"LinetypeFile"), path);
}

void getHatchFilePath(Session&)
{
    MxtString path;
    Z::getHatchFilePath(MxtString(L"HatchFile"), path);
}

void plotAddMXPathToCADPrinterStyleSheetPath(Session& session)
{
    CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath();
    session.host.state().preferences.printerStyleSheetPath = session.places.printerStyleSheetPath;
}

void plotAddPathesToCADAppSupportPath(Session& session)
{
    CADPlotUtilities::addPathesToCADAppSupportPath(session.newFolders);
    session.host.state().preferences.supportPath = session.places.supportPath;
    // What the call records is the caller's to let go.
    delete MxtGlobalStorage::g_pZorbSupportPaths;
    MxtGlobalStorage::g_pZorbSupportPaths = nullptr;
}

// --- Menu groups and the menu bar ---

void isMenuLoaded(Session& session)
{
    Z::isMenuLoaded(mxt(session.targets.group));
}

MxtArray<MxtString> oneFile(const std::wstring& file)
{
    MxtArray<MxtString> files;
    files.add(mxt(file));
    return files;
}

void loadMenus(Session& session)
{
    Z::loadMenus(oneFile(session.targets.menuFileToLoad));
    session.host.state().menuGroups.pop_back();  // the host appends a loaded group
}

void unloadMenus(Session& session)
{
    Z::unloadMenus(oneFile(session.targets.menuFileToUnload));
    session.host.state().menuGroups.push_back(session.places.group);  // the group stands last
}

// Off the bar first, so that the timed call puts it on.
void takeGroupMenuOffTheBar(Session& session)
{
    auto& bar = session.host.state().menuBar;
    bar.erase(std::remove(bar.begin(), bar.end(), session.places.group->menus.front()), bar.end());
}

void addMenuToMenuBar(Session& session)
{
    Z::addMenuToMenuBar(mxt(session.targets.group), {}, 0);
    auto& bar = session.host.state().menuBar;
    bar.erase(bar.begin());  // where position 0 put it
}

void putGroupMenuOnTheBar(Session& session)
{
    takeGroupMenuOffTheBar(session);
    session.host.state().menuBar.push_back(session.places.group->menus.front());
}

void removeMenuFromMenuBar(Session& session)
{
    Z::removeMenuFromMenuBar(mxt(session.targets.group));
    session.host.state().menuBar.push_back(session.places.group->menus.front());
}

void getNumberOfMenusOnMenuBar(Session&)
{
    Z::getNumberOfMenusOnMenuBar();
}

void isMenuLoadedOnMenuBar(Session& session)
{
    Z::isMenuLoadedOnMenuBar(mxt(session.targets.barMenuText));
}

// The group's first menu copied into a new menu on the bar; the new menu leaves the first group
// and the bar again.
void combineMenusOnMenuBar(Session& session)
{
    MxtArray<MxtString> groupNames;
    groupNames.add(mxt(session.targets.group));
    Z::combineMenusOnMenuBar(MxtString(L"MX &All"), groupNames, 0);
    sim::HostState& state = session.host.state();
    state.menuGroups.front()->menus.pop_back();
    state.menuBar.erase(state.menuBar.begin());
}

// --- The snap menu ---

// Every entry is new, so the separator goes first.
void addMenuItemsToSnapMenu(Session& session)
{
    Z::addMenuItemsToSnapMenu(session.snapLabels, session.snapMacros, 0);
    auto& items = session.places.snapMenu->items;
    items.erase(items.end() - session.snapLabels.getLength() - 1, items.end());
}

void addSnapEntries(Session& session)
{
    module_testing::addSnapEntries(*session.places.snapMenu, session.snapLabels.getLength());
}

// The removal deletes the item just before the block of entries it checks, once per entry: the
// separator and every entry but the last, which go back where they were.
void removeMenuItemsFromSnapMenu(Session& session)
{
    auto& items = session.places.snapMenu->items;
    const std::vector<std::shared_ptr<sim::PopupMenuItem>> removed(items.end() - session.snapLabels.getLength() - 1,
                                                                    items.end() - 1);
    Z::removeMenuItemsFromSnapMenu(session.snapLabels, 0);
    items.insert(items.end() - 1, removed.begin(), removed.end());
}

// --- Toolbars ---

// Hides or shows the sought toolbar, placing a shown one docked at the top.
void showHide(Session& session, bool show)
{
    MxtString groupName = mxt(session.targets.group);
    MxtString toolbarName = mxt(session.targets.toolbar);
    long left = 0, top = 0, dockStatus = 0, floatingRows = 1;
    Z::showHideToolbar(show, groupName, toolbarName, left, top, dockStatus, floatingRows);
}

void showHideToolbarHiding(Session& session)
{
    showHide(session, false);
    session.places.toolbar->visible = true;
}

void hideToolbar(Session& session)
{
    session.places.toolbar->visible = false;
}

void showHideToolbarShowing(Session& session)
{
    showHide(session, true);
    session.places.toolbar->visible = false;
}

void isToolbarVisible(Session& session)
{
    Z::isToolbarVisible(mxt(session.targets.group), mxt(session.targets.toolbar));
}

// Attaching the same toolbar again changes nothing.
void attachToolbarToFlyout(Session& session)
{
    Z::attachToolbarToFlyout(mxt(session.targets.group), mxt(session.targets.toolbar),
                             mxt(session.targets.button));
}

void replaceToolbarButton(Session& session)
{
    Z::replaceToolbarButton(mxt(session.targets.group), mxt(session.targets.toolbar), mxt(session.targets.button),
                            MxtString(L"New"), MxtString(L"ID_NEW"), MxtString(L"A new button"),
                            MxtString(L"^C^C_NEW"), MxtString(L"RCDATA_NEW_16"), MxtString(L"RCDATA_NEW_32"),
                            mxt(session.targets.toolbar));
    // The new button took the old one's place; its tag makes it the one sought next time.
    session.places.toolbar->buttons.back()->tag = session.targets.button;
}

// --- Documents, plotting and zoom ---

void closeActiveDocument(Session& session)
{
    Z::closeActiveDocument(false);
    sim::HostState& state = session.host.state();
    state.documents.insert(state.documents.begin(), session.places.activeDocument);
    state.activeDocument = session.places.activeDocument;
}

void openAndActivateOpenDocument(Session& session)
{
    Z::openAndActivateDocument(mxt(session.targets.openDrawing), true);
    session.host.state().activeDocument = session.places.activeDocument;
}

void openAndActivateNewDocument(Session& session)
{
    Z::openAndActivateDocument(mxt(session.targets.drawingToOpen), true);
    sim::HostState& state = session.host.state();
    state.documents.pop_back();  // the host appends an opened drawing
    state.activeDocument = session.places.activeDocument;
}

void plotLayout(Session& session)
{
    MxtString message;
    Z::plotLayout(MxtString(L""), MxtString(L"Layout1"), ZbDbPlotSettings::kWindow, 0, 10, 0, 5, message);
    session.host.state().plotJobs.clear();
}

void zoomWindow(Session& session)
{
    ZbAxPoint2d lowerLeft(0, 0);
    ZbAxPoint2d upperRight(10, 5);
    Z::zoomWindow(_variant_t(lowerLeft.asVariantPtr()), _variant_t(upperRight.asVariantPtr()));
    // The reference kept by design is let go without a host call.
    session.host.releaseApplicationReferences(1);
    session.host.state().zoomRequests.clear();
}

// Finds the places of `targets` in the host's state (which must hold them).
Places placesOf(sim::HostState& state, const Targets& targets)
{
    Places places;
    const auto group = std::find_if(state.menuGroups.begin(), state.menuGroups.end(),
                                    [&](const auto& loaded) { return loaded->name == targets.group; });
    if (group == state.menuGroups.end())
        throw std::logic_error("the benchmark's host lacks the group it needs");
    places.group = *group;
    places.snapMenu = tagged(places.group->menus, std::wstring(L"PM_0001"));
    places.toolbar = tagged(places.group->toolbars, targets.toolbar);
    places.activeDocument = state.activeDocument;
    places.supportPath = state.preferences.supportPath;
    places.printerStyleSheetPath = state.preferences.printerStyleSheetPath;
    return places;
}

}  // namespace

Session::Session(sim::Host& host, Targets targets, int given)
    : host(host),
      targets(std::move(targets)),
      places(placesOf(host.state(), this->targets)),
      // No path of the benchmarks' hosts holds a folder of drive N:.
      newFolders(module_testing::numberedTexts(L"N:\\", given)),
      snapLabels(module_testing::numberedTexts(L"Entry ", given)),
      snapMacros(module_testing::numberedTexts(L"_ENTRY", given))
{
}

const std::vector<Operation>& operations()
{
    static const std::vector<Operation> all = {
        {"getCADAppDispatch", getCADAppDispatch},
        {"getCadApplication", getCadApplication},
        {"preparePathes", preparePathes},
        {"getCADAppSupportPath", getCADAppSupportPath},
        {"ZORBAppUtilities::addPathesToCADAppSupportPath", addPathesToCADAppSupportPath},
        {"getPlotStylePath", getPlotStylePath},
        {"ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath", addMXPathToCADPrinterStyleSheetPath},
        {"setTemplateDwgPath", setTemplateDwgPath},
        {"getCadDrawingPath", getCadDrawingPath},
        {"getCadProductLocation", getCadProductLocation},
        {"getLinetypeFilePath", getLinetypeFilePath},
        {"getHatchFilePath", getHatchFilePath},
        {"CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath", plotAddMXPathToCADPrinterStyleSheetPath},
        {"CADPlotUtilities::addPathesToCADAppSupportPath", plotAddPathesToCADAppSupportPath},
        {"isMenuLoaded", isMenuLoaded},
        {"loadMenus", loadMenus},
        {"unloadMenus", unloadMenus},
        {"addMenuToMenuBar", addMenuToMenuBar, takeGroupMenuOffTheBar},
        {"removeMenuFromMenuBar", removeMenuFromMenuBar, putGroupMenuOnTheBar},
        {"getNumberOfMenusOnMenuBar", getNumberOfMenusOnMenuBar},
        {"isMenuLoadedOnMenuBar", isMenuLoadedOnMenuBar},
        {"combineMenusOnMenuBar", combineMenusOnMenuBar},
        {"addMenuItemsToSnapMenu", addMenuItemsToSnapMenu},
        {"removeMenuItemsFromSnapMenu", removeMenuItemsFromSnapMenu, addSnapEntries},
        {"showHideToolbar/hiding", showHideToolbarHiding},
        {"showHideToolbar/showing", showHideToolbarShowing, hideToolbar},
        {"isToolbarVisible", isToolbarVisible},
        {"attachToolbarToFlyout", attachToolbarToFlyout},
        {"replaceToolbarButton", replaceToolbarButton},
        {"closeActiveDocument", closeActiveDocument},
        {"openAndActivateDocument/open", openAndActivateOpenDocument},
        {"openAndActivateDocument/opening", openAndActivateNewDocument},
        {"plotLayout", plotLayout},
        {"zoomWindow", zoomWindow},
    };
    return all;
}

const Operation& operationNamed(const std::string& name)
{
    const auto& all = operations();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Operation& operation) { return operation.name == name; });
    if (found == all.end())
        throw std::logic_error("no operation " + name);
    return *found;
}

}  // namespace module_bench

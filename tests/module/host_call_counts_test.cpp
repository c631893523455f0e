// How many host calls each exported operation makes, on hosts that grow in what it walks. The
// count follows from the operation's algorithm as fixed + perUnit·n (+ perSquare·n² where each of
// n entries is compared with each of n items), so an extra query, property read or repeated
// lookup shows as a count off its formula. The table below is the one place the formulas are
// kept: docs/host-call-counts.md lists them for readers, and each test records its row as test
// properties, so that `--gtest_output=json` gives them to the performance page.
#include "CADPlotUtilities.h"
#include "ZORBAppUtilities.h"

#include "support/host_test.h"
#include "support/mxt_text.h"
#include "support/sized_host.h"

#include "MxtGlobalStorage"
#include "host/object_model.h"
#include "host/sdk.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

using namespace module_testing;

namespace {

// A number of host calls: `fixed` whatever the size, `perUnit` more for each unit of it, and
// `perSquare` more for each pair of units.
struct Formula {
    long fixed = 0;
    long perUnit = 0;
    long perSquare = 0;

    long operator()(long n) const { return fixed + perUnit * n + perSquare * n * n; }

    // "4 + 2·groups", "12 + 1·entries + 2·entries²", or "5" for a count that does not grow.
    std::string text(const std::string& unit) const
    {
        std::string text = std::to_string(fixed);
        if (perUnit != 0)
            text += " + " + std::to_string(perUnit) + "·" + unit;
        if (perSquare != 0)
            text += " + " + std::to_string(perSquare) + "·" + unit + "²";
        return text;
    }
};

struct CountedOperation {
    std::string test;       // the test's name, before the size: "isMenuLoaded_groups"
    std::string operation;  // as called
    std::string unit;       // what n counts
    std::string measured;   // the case measured
    Formula formula;        // the count, as the algorithm gives it
    std::string calls;      // the host calls the formula counts, in order
    std::function<sim::HostState(int n)> host;
    // Runs the operation on the host; true when it went the way `measured` says.
    std::function<bool(int n)> run;
};

void PrintTo(const CountedOperation& operation, std::ostream* out)
{
    *out << operation.test;
}

sim::HostState& hostState()
{
    return sim::Host::current()->state();
}

// A host that grows in one size only.
std::function<sim::HostState(int)> growing(int HostSizes::*size)
{
    return [size](int n) {
        HostSizes sizes;
        sizes.*size = n;
        return sizedHost(sizes);
    };
}

// A host that grows in every size at once: for operations that walk nothing.
sim::HostState growingInEverything(int n)
{
    return sizedHost(HostSizes::allOf(n));
}

// The smallest host: for operations whose n is what they are given.
sim::HostState smallest(int)
{
    return sizedHost({});
}

// --- Hosts arranged beyond their sizes ---

sim::HostState withSoughtMenuOnMenuBar(int groups)
{
    sim::HostState state = growing(&HostSizes::menuGroups)(groups);
    state.menuBar.push_back(soughtGroupOf(state).menus.front());
    return state;
}

// The snap menu ending in a separator and `entries` entries "Entry 1" ..., as an addition leaves it.
sim::HostState withSnapEntries(sim::HostState state, int entries)
{
    addSnapEntries(snapMenuOf(state), entries);
    return state;
}

// One snap entry at the end of a host that grows in `size`.
std::function<sim::HostState(int)> growingWithSnapEntry(int HostSizes::*size)
{
    return [size](int n) { return withSnapEntries(growing(size)(n), 1); };
}

sim::HostState withToolbarsTaggedAlike(int toolbars)
{
    sim::HostState state = growing(&HostSizes::toolbars)(toolbars);
    for (const auto& toolbar : soughtGroupOf(state).toolbars)
        toolbar->tag = kSoughtToolbar;
    return state;
}

sim::HostState withSoughtToolbarHidden(int toolbars)
{
    sim::HostState state = growing(&HostSizes::toolbars)(toolbars);
    soughtToolbarOf(state).visible = false;
    return state;
}

// --- The operations, called the way each row measures them ---

bool dispatchGiven()
{
    IDispatch* dispatch = nullptr;
    const bool given = ZORBAppUtilities::getCADAppDispatch(&dispatch) == S_OK && dispatch != nullptr;
    if (dispatch != nullptr)
        dispatch->Release();
    return given;
}

bool applicationGiven()
{
    auto* application = static_cast<HostApplication*>(ZORBAppUtilities::getCadApplication());
    if (application != nullptr)
        application->Release();
    return application != nullptr;
}

// Folders that no path of a sized host holds.
MxtArray<MxtString> newFolders(int count)
{
    return numberedTexts(L"N:\\", count);
}

bool newFoldersMerged(int folders)
{
    const _bstr_t current(hostState().preferences.supportPath.c_str());
    _bstr_t merged;
    ZORBAppUtilities::preparePathes(newFolders(folders), current, merged);
    return merged.length() > current.length();
}

bool newFoldersWritten(int folders)
{
    MxtString merged;
    return ZORBAppUtilities::addPathesToCADAppSupportPath(newFolders(folders), merged) && !merged.isEmpty();
}

bool mxFolderWritten()
{
    MxtString merged;
    return ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath(merged) && !merged.isEmpty();
}

bool mxFolderWrittenForThePlotInterface()
{
    const sim::HostState& state = hostState();
    return CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath() &&
           state.preferences.printerStyleSheetPath.find(state.mxSupportFolder) != std::wstring::npos;
}

bool newFoldersWrittenAndRecorded(int folders)
{
    const bool added = CADPlotUtilities::addPathesToCADAppSupportPath(newFolders(folders));
    const bool recorded =
        MxtGlobalStorage::g_pZorbSupportPaths != nullptr && !MxtGlobalStorage::g_pZorbSupportPaths->isEmpty();
    // What the call recorded is the test's to let go.
    delete MxtGlobalStorage::g_pZorbSupportPaths;
    MxtGlobalStorage::g_pZorbSupportPaths = nullptr;
    return added && recorded;
}

// Calls `read` with an output of its own.
bool textRead(bool (*read)(MxtString&))
{
    MxtString text;
    return read(text);
}

bool registryValueRead(bool (*read)(const MxtString&, MxtString&), const wchar_t* valueName)
{
    MxtString text;
    return read(MxtString(valueName), text);
}

bool menuFileOfAnUnloadedGroupLoaded(int groups)
{
    MxtArray<MxtString> files;
    files.add(MxtString(L"C:\\Program Files\\MX\\Support\\MXTOOLS"));  // the default host's
    return ZORBAppUtilities::loadMenus(files) &&
           hostState().menuGroups.size() == static_cast<size_t>(groups) + 1;
}

bool soughtGroupUnloaded(int groups)
{
    MxtArray<MxtString> files;
    files.add(MxtString((std::wstring(L"C:\\Menus\\") + kSoughtGroup).c_str()));
    return ZORBAppUtilities::unloadMenus(files) &&
           hostState().menuGroups.size() == static_cast<size_t>(groups) - 1;
}

// Menu files the host cannot find, of groups that are not loaded: passed over by both operations.
MxtArray<MxtString> missingMenuFiles(int count)
{
    return numberedTexts(L"C:\\Missing\\FILE", count);
}

bool missingFilesPassedOver(bool (*operation)(const MxtArray<MxtString>&), int files)
{
    return operation(missingMenuFiles(files)) && hostState().menuGroups.size() == 1;
}

bool soughtMenuOnMenuBar()
{
    const auto& bar = hostState().menuBar;
    return std::find(bar.begin(), bar.end(), soughtGroupOf(hostState()).menus.front()) != bar.end();
}

bool menuAddedWithItems(int items)
{
    MxtArray<ZORBAppUtilities::ZORBMenuItem> added;
    for (int number = 1; number <= items; ++number)
        added.add({0, MxtString(L"Item"), MxtString(L"_ITEM")});
    const size_t before = soughtGroupOf(hostState()).menus.front()->items.size();
    ZORBAppUtilities::addMenuToMenuBar(MxtString(kSoughtGroup), added, 0);
    return soughtMenuOnMenuBar() &&
           soughtGroupOf(hostState()).menus.front()->items.size() == before + static_cast<size_t>(items);
}

// Combines the sought group's first menu, copied `copies` times, into a new menu.
bool combined(int copies)
{
    MxtArray<MxtString> groupNames;
    for (int copy = 0; copy < copies; ++copy)
        groupNames.add(MxtString(kSoughtGroup));
    ZORBAppUtilities::combineMenusOnMenuBar(MxtString(L"MX &All"), groupNames, 0);
    const auto& newMenu = hostState().menuBar.front();
    return newMenu->name == L"MX &All" && newMenu->items.size() == static_cast<size_t>(copies);
}

bool snapEntriesAdded(int entries)
{
    const size_t before = snapMenuOf(hostState()).items.size();
    return ZORBAppUtilities::addMenuItemsToSnapMenu(numberedTexts(L"Entry ", entries),
                                                    numberedTexts(L"_ENTRY", entries), 0) &&
           snapMenuOf(hostState()).items.size() == before + 1 + static_cast<size_t>(entries);
}

bool snapEntriesRemoved(int entries)
{
    const size_t before = snapMenuOf(hostState()).items.size();
    return ZORBAppUtilities::removeMenuItemsFromSnapMenu(numberedTexts(L"Entry ", entries), 0) &&
           snapMenuOf(hostState()).items.size() == before - static_cast<size_t>(entries);
}

// Shows or hides the sought toolbar, placing a shown one docked at the top; gives the answer.
bool showHide(bool show)
{
    MxtString groupName(kSoughtGroup);
    MxtString toolbarName(kSoughtToolbar);
    long left = 0, top = 0, dockStatus = 0, floatingRows = 1;
    return ZORBAppUtilities::showHideToolbar(show, groupName, toolbarName, left, top, dockStatus,
                                             floatingRows);
}

bool everyToolbarHidden()
{
    const auto& toolbars = soughtGroupOf(hostState()).toolbars;
    return !showHide(false) && std::none_of(toolbars.begin(), toolbars.end(),
                                            [](const auto& toolbar) { return toolbar->visible; });
}

bool soughtToolbarVisible()
{
    return ZORBAppUtilities::isToolbarVisible(MxtString(kSoughtGroup), MxtString(kSoughtToolbar));
}

bool soughtToolbarAttachedToItsButton()
{
    ZORBAppUtilities::attachToolbarToFlyout(MxtString(kSoughtGroup), MxtString(kSoughtToolbar),
                                            MxtString(kSoughtButton));
    return soughtToolbarOf(hostState()).buttons.back()->flyout.has_value();
}

bool soughtButtonReplaced()
{
    ZORBAppUtilities::replaceToolbarButton(
        MxtString(kSoughtGroup), MxtString(kSoughtToolbar), MxtString(kSoughtButton), MxtString(L"New"),
        MxtString(L"ID_NEW"), MxtString(L"A new button"), MxtString(L"^C^C_NEW"), MxtString(L"RCDATA_NEW_16"),
        MxtString(L"RCDATA_NEW_32"), MxtString(kSoughtToolbar));
    return soughtToolbarOf(hostState()).buttons.back()->tag == L"ID_NEW";
}

bool soughtDrawingActivated()
{
    return ZORBAppUtilities::openAndActivateDocument(MxtString(kSoughtDrawing), true) &&
           hostState().activeDocument->fullFileName == kSoughtDrawing;
}

bool drawingOpenedBeside(int open)
{
    return ZORBAppUtilities::openAndActivateDocument(MxtString(kDrawingToOpen), true) &&
           hostState().documents.size() == static_cast<size_t>(open) + 1;
}

bool windowPlotted()
{
    MxtString message;
    return ZORBAppUtilities::plotLayout(MxtString(L""), MxtString(L"Layout1"), ZbDbPlotSettings::kWindow, 0,
                                        10, 0, 5, message);
}

bool windowZoomed()
{
    ZbAxPoint2d lowerLeft(0, 0);
    ZbAxPoint2d upperRight(10, 5);
    const bool zoomed = ZORBAppUtilities::zoomWindow(_variant_t(lowerLeft.asVariantPtr()),
                                                     _variant_t(upperRight.asVariantPtr()));
    // The reference zoomWindow keeps by design is let go without a host call.
    sim::Host::current()->releaseApplicationReferences(1);
    return zoomed && hostState().zoomRequests.size() == 1;
}

// --- The table ---
// The steps the formulas are made of, in host calls:
// - the application: sdk.zbedGetZorbWinApp, CWinApp.GetIDispatch (2);
// - the file preferences: the application, get_Preferences, get_Files (4);
// - the registry root: sdk.zbdbHostApplicationServices, getUserRegistryProductRootKey (2);
// - the group lookup: the application, get_MenuGroups, get_Count, then per group up to the one
//   sought Item, get_Name (4 + 2·groups);
// - the group's menu: the application, the group lookup, get_Menus, Item(0) (8 + 2·groups);
// - the snap menu lookup: the application, get_MenuGroups, get_Count, per group up to "MX" Item,
//   get_Name, then get_Menus, get_Count, per menu up to the snap menu Item, get_TagString
//   (6 + 2·groups + 2·menus);
// - the toolbar lookup: the group lookup, get_Toolbars, get_Count, per toolbar up to the one sought
//   Item, get_TagString (6 + 2·groups + 2·toolbars);
// - the button lookup: the toolbar lookup, get_Count, per button up to the one sought Item,
//   get_TagString (7 + 2·groups + 2·toolbars + 2·buttons);
// - a menu's copy: get_Count of the target, get_Name, AddSubMenu, get_Count, per command item Item,
//   get_Label, get_Macro, get_Type, AddMenuItem, put_Label, then get_OnMenuBar (5 + 6·items).
std::vector<CountedOperation> countedOperations()
{
    using Z = ZORBAppUtilities;
    using S = HostSizes;
    const std::string all = "of each";
    return {
        // Host access
        {"getCADAppDispatch", "getCADAppDispatch", all, "the dispatch given", Formula{2, 0},
         "the application", growingInEverything, [](int) { return dispatchGiven(); }},
        {"getCadApplication", "getCadApplication", all, "the application given", Formula{2, 0},
         "the application", growingInEverything, [](int) { return applicationGiven(); }},

        // Search paths and resource files
        {"preparePathes", "preparePathes", "folders", "n new folders merged into a path of n", Formula{0, 0},
         "none", growing(&S::pathFolders), newFoldersMerged},
        {"getCADAppSupportPath", "getCADAppSupportPath", all, "read", Formula{5, 0},
         "the file preferences, get_SupportPath", growingInEverything,
         [](int) { return !Z::getCADAppSupportPath().isEmpty(); }},
        {"addPathesToCADAppSupportPath", "ZORBAppUtilities::addPathesToCADAppSupportPath", all,
         "n new folders, written", Formula{6, 0}, "the file preferences, get_SupportPath, put_SupportPath",
         growingInEverything, newFoldersWritten},
        {"getPlotStylePath", "getPlotStylePath", all, "read", Formula{5, 0},
         "the file preferences, get_PrinterStyleSheetPath", growingInEverything,
         [](int) { return textRead(Z::getPlotStylePath); }},
        {"addMXPathToCADPrinterStyleSheetPath", "ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath", all,
         "the MX folder new, written", Formula{6, 0},
         "the file preferences, get_PrinterStyleSheetPath, put_PrinterStyleSheetPath", growingInEverything,
         [](int) { return mxFolderWritten(); }},
        {"setTemplateDwgPath", "setTemplateDwgPath", all, "written", Formula{5, 0},
         "the file preferences, put_TemplateDrawingFolder", growingInEverything,
         [](int) { return Z::setTemplateDwgPath(MxtString(L"C:\\MX\\Templates")); }},
        {"getCadDrawingPath", "getCadDrawingPath", all, "read", Formula{5, 0},
         "the file preferences, get_DrawingPath", growingInEverything,
         [](int) { return textRead(Z::getCadDrawingPath); }},
        {"getCadProductLocation", "getCadProductLocation", all, "found", Formula{2, 0}, "the registry root",
         growingInEverything, [](int) { return textRead(Z::getCadProductLocation); }},
        {"getLinetypeFilePath", "getLinetypeFilePath", all, "found", Formula{2, 0}, "the registry root",
         growingInEverything, [](int) { return registryValueRead(Z::getLinetypeFilePath, L"LinetypeFile"); }},
        {"getHatchFilePath", "getHatchFilePath", all, "found", Formula{4, 0},
         "the registry root, sdk.zbedFindFile, sdk.zbHeapFree", growingInEverything,
         [](int) { return registryValueRead(Z::getHatchFilePath, L"HatchFile"); }},
        {"CADPlotUtilities_addMXPathToCADPrinterStyleSheetPath",
         "CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath", all, "the MX folder new, written",
         Formula{6, 0}, "those of the ZORBAppUtilities operation", growingInEverything,
         [](int) { return mxFolderWrittenForThePlotInterface(); }},
        {"CADPlotUtilities_addPathesToCADAppSupportPath", "CADPlotUtilities::addPathesToCADAppSupportPath",
         all, "n new folders, written", Formula{6, 0}, "those of the ZORBAppUtilities operation",
         growingInEverything, newFoldersWrittenAndRecorded},

        // Menu groups
        {"isMenuLoaded_groups", "isMenuLoaded", "groups", "the group asked for last", Formula{4, 2},
         "the application, get_MenuGroups, get_Count, per group Item, then per group get_Name",
         growing(&S::menuGroups), [](int) { return Z::isMenuLoaded(MxtString(kSoughtGroup)); }},
        {"loadMenus_groups", "loadMenus", "groups", "one file, its group not loaded: loaded", Formula{8, 2},
         "the application, get_MenuGroups; isMenuLoaded's 4 + 2·groups; LoadMenuFile",
         growing(&S::menuGroups), menuFileOfAnUnloadedGroupLoaded},
        {"loadMenus_files", "loadMenus", "files", "files the host cannot find, over one group", Formula{3, 7},
         "the application, get_MenuGroups; per file isMenuLoaded's 4 + 2·1, LoadMenuFile", smallest,
         [](int n) { return missingFilesPassedOver(Z::loadMenus, n); }},
        {"unloadMenus_groups", "unloadMenus", "groups", "one file, its group last: unloaded", Formula{5, 2},
         "the application, get_MenuGroups, get_Count, per group Item, then per group get_Name, Unload",
         growing(&S::menuGroups), soughtGroupUnloaded},
        {"unloadMenus_files", "unloadMenus", "files", "files of no loaded group, over one group",
         Formula{5, 1}, "the application, get_MenuGroups, get_Count, Item; per file get_Name", smallest,
         [](int n) { return missingFilesPassedOver(Z::unloadMenus, n); }},

        // Menu bar
        {"addMenuToMenuBar_groups", "addMenuToMenuBar", "groups",
         "the group last, no items, its menu off the bar", Formula{10, 2},
         "the group's menu, get_OnMenuBar, InsertInMenuBar", growing(&S::menuGroups),
         [](int) { return menuAddedWithItems(0); }},
        {"addMenuToMenuBar_items", "addMenuToMenuBar", "items", "n items added, the menu off the bar",
         Formula{12, 2},
         "the group's menu over one group, per item AddMenuItem, put_Enabled; get_OnMenuBar, InsertInMenuBar",
         smallest, menuAddedWithItems},
        {"removeMenuFromMenuBar_groups", "removeMenuFromMenuBar", "groups",
         "the group last, its menu on the bar", Formula{10, 2},
         "the group's menu, get_OnMenuBar, RemoveFromMenuBar", withSoughtMenuOnMenuBar,
         [](int) {
             Z::removeMenuFromMenuBar(MxtString(kSoughtGroup));
             return !soughtMenuOnMenuBar();
         }},
        {"getNumberOfMenusOnMenuBar_menus", "getNumberOfMenusOnMenuBar", "bar menus", "counted",
         Formula{4, 0}, "the application, get_MenuBar, get_Count", growing(&S::menuBarMenus),
         [](int n) { return Z::getNumberOfMenusOnMenuBar() == n; }},
        {"isMenuLoadedOnMenuBar_menus", "isMenuLoadedOnMenuBar", "bar menus", "the tag sought last",
         Formula{4, 2}, "the application, get_MenuBar, get_Count, per menu Item, get_TagString",
         growing(&S::menuBarMenus), [](int) { return Z::isMenuLoadedOnMenuBar(MxtString(L"SOUGHT")); }},

        // Menu combining
        {"combineMenusOnMenuBar_groups", "combineMenusOnMenuBar", "groups",
         "one source, its group last, one command item", Formula{27, 2},
         "the application; the group's menu; get_MenuGroups, Item(0), get_Menus, AddMenu, put_Name; "
         "the menu's copy; InsertInMenuBar",
         growing(&S::menuGroups), [](int) { return combined(1); }},
        {"combineMenusOnMenuBar_items", "combineMenusOnMenuBar", "items", "one source of n command items",
         Formula{23, 6}, "as by groups, over one group", growing(&S::menuItems),
         [](int) { return combined(1); }},
        {"combineMenusOnMenuBar_names", "combineMenusOnMenuBar", "names", "one group named n times, one item",
         Formula{8, 21},
         "the application; per name the group's menu over one group (10); get_MenuGroups, Item(0), "
         "get_Menus, AddMenu, put_Name; per name the copy of a menu of one item (11); InsertInMenuBar",
         smallest, combined},

        // Snap menu
        {"addMenuItemsToSnapMenu_groups", "addMenuItemsToSnapMenu", "groups",
         "the MX group last, one new entry", Formula{13, 2},
         "the snap menu lookup; get_Count; per entry and item Item, get_Macro; AddSeparator; "
         "per entry AddMenuItem",
         growing(&S::menuGroups), [](int) { return snapEntriesAdded(1); }},
        {"addMenuItemsToSnapMenu_menus", "addMenuItemsToSnapMenu", "menus",
         "the snap menu last, one new entry", Formula{13, 2}, "as by groups", growing(&S::menus),
         [](int) { return snapEntriesAdded(1); }},
        {"addMenuItemsToSnapMenu_items", "addMenuItemsToSnapMenu", "items", "one new entry", Formula{13, 2},
         "as by groups", growing(&S::menuItems), [](int) { return snapEntriesAdded(1); }},
        {"addMenuItemsToSnapMenu_entries", "addMenuItemsToSnapMenu", "entries", "all new, over one item",
         Formula{12, 3}, "as by groups", smallest, snapEntriesAdded},
        {"addMenuItemsToSnapMenu_entries_on_as_many_items", "addMenuItemsToSnapMenu", "entries",
         "all new, on a snap menu of as many items", Formula{12, 1, 2},
         "as by groups: each entry looked for among all the items", growing(&S::menuItems), snapEntriesAdded},
        {"removeMenuItemsFromSnapMenu_groups", "removeMenuItemsFromSnapMenu", "groups",
         "the MX group last, one entry found", Formula{13, 2},
         "the snap menu lookup; get_Count; per entry Item, get_Label; per entry Item, Delete",
         growingWithSnapEntry(&S::menuGroups), [](int) { return snapEntriesRemoved(1); }},
        {"removeMenuItemsFromSnapMenu_menus", "removeMenuItemsFromSnapMenu", "menus",
         "the snap menu last, one entry found", Formula{13, 2}, "as by groups",
         growingWithSnapEntry(&S::menus), [](int) { return snapEntriesRemoved(1); }},
        {"removeMenuItemsFromSnapMenu_items", "removeMenuItemsFromSnapMenu", "items",
         "one entry found after n items and a separator", Formula{15, 0}, "as by groups: no item is walked",
         growingWithSnapEntry(&S::menuItems), [](int) { return snapEntriesRemoved(1); }},
        {"removeMenuItemsFromSnapMenu_entries", "removeMenuItemsFromSnapMenu", "entries", "all found",
         Formula{11, 4}, "as by groups", [](int n) { return withSnapEntries(smallest(n), n); },
         snapEntriesRemoved},

        // Toolbars
        {"showHideToolbar_hiding_groups", "showHideToolbar", "groups", "hiding, the group last",
         Formula{15, 2},
         "the group lookup, get_Toolbars, get_Count, per toolbar Item, get_TagString; for the match "
         "get_Visible, get_DockStatus, put_Visible, get_Left, get_Top, get_FloatingRows, get_DockStatus",
         growing(&S::menuGroups), [](int) { return !showHide(false); }},
        {"showHideToolbar_hiding_toolbars", "showHideToolbar", "toolbars", "hiding, the toolbar last",
         Formula{15, 2}, "as by groups", growing(&S::toolbars), [](int) { return !showHide(false); }},
        {"showHideToolbar_hiding_alike", "showHideToolbar", "toolbars", "hiding, every toolbar tagged alike",
         Formula{8, 9}, "as by groups, every toolbar a match", withToolbarsTaggedAlike,
         [](int) { return everyToolbarHidden(); }},
        {"showHideToolbar_showing_toolbars", "showHideToolbar", "toolbars",
         "showing a hidden one, last, docked", Formula{12, 2},
         "the group lookup, get_Toolbars, get_Count, per toolbar Item, get_TagString; for the match "
         "get_Visible, get_DockStatus, Dock, put_Visible",
         withSoughtToolbarHidden, [](int) { return showHide(true) && soughtToolbarOf(hostState()).visible; }},
        {"isToolbarVisible_groups", "isToolbarVisible", "groups", "the group last", Formula{9, 2},
         "the toolbar lookup, get_Visible", growing(&S::menuGroups),
         [](int) { return soughtToolbarVisible(); }},
        {"isToolbarVisible_toolbars", "isToolbarVisible", "toolbars", "the toolbar last", Formula{9, 2},
         "the toolbar lookup, get_Visible", growing(&S::toolbars),
         [](int) { return soughtToolbarVisible(); }},
        {"attachToolbarToFlyout_groups", "attachToolbarToFlyout", "groups", "the group last", Formula{12, 2},
         "the button lookup, AttachToolbarToFlyout", growing(&S::menuGroups),
         [](int) { return soughtToolbarAttachedToItsButton(); }},
        {"attachToolbarToFlyout_toolbars", "attachToolbarToFlyout", "toolbars", "the toolbar last",
         Formula{12, 2}, "the button lookup, AttachToolbarToFlyout", growing(&S::toolbars),
         [](int) { return soughtToolbarAttachedToItsButton(); }},
        {"attachToolbarToFlyout_buttons", "attachToolbarToFlyout", "buttons", "the button last",
         Formula{12, 2}, "the button lookup, AttachToolbarToFlyout", growing(&S::buttons),
         [](int) { return soughtToolbarAttachedToItsButton(); }},
        {"replaceToolbarButton_groups", "replaceToolbarButton", "groups", "the group last, with a flyout",
         Formula{16, 2},
         "the button lookup; AddButton, put_TagString, SetBitmaps, AttachToolbarToFlyout, Delete",
         growing(&S::menuGroups), [](int) { return soughtButtonReplaced(); }},
        {"replaceToolbarButton_toolbars", "replaceToolbarButton", "toolbars",
         "the toolbar last, with a flyout", Formula{16, 2}, "as by groups", growing(&S::toolbars),
         [](int) { return soughtButtonReplaced(); }},
        {"replaceToolbarButton_buttons", "replaceToolbarButton", "buttons", "the button last, with a flyout",
         Formula{16, 2}, "as by groups", growing(&S::buttons), [](int) { return soughtButtonReplaced(); }},

        // Documents, plotting and zoom
        {"closeActiveDocument_documents", "closeActiveDocument", "documents", "closed, saved", Formula{5, 0},
         "the application, get_ActiveDocument, get_FullFileName, Close", growing(&S::documents),
         [](int) { return Z::closeActiveDocument(true); }},
        {"openAndActivateDocument_open_documents", "openAndActivateDocument", "documents",
         "open already, last: activated", Formula{5, 2},
         "the application, get_Documents, get_Count, per document Item, get_FullFileName, Activate",
         growing(&S::documents), [](int) { return soughtDrawingActivated(); }},
        {"openAndActivateDocument_opening_documents", "openAndActivateDocument", "documents",
         "not open: opened and activated", Formula{12, 4},
         "the application, get_Documents, get_Count, per document Item, get_FullFileName; sdk.zbedGetVar, "
         "sdk.zbedSetVar, Open; get_Count, per document (one more now) Item, get_FullFileName, Activate; "
         "sdk.zbedSetVar",
         growing(&S::documents), drawingOpenedBeside},
        {"plotLayout_documents", "plotLayout", "documents", "a window plotted", Formula{12, 0},
         "the application, get_ActiveDocument, get_Plot, get_ActiveLayout, SetWindowToPlot, put_PlotType, "
         "put_NumberOfCopies, put_QuietErrorMode, StartBatchMode, SetLayoutsToPlot, PlotToDevice",
         growing(&S::documents), [](int) { return windowPlotted(); }},
        {"zoomWindow_documents", "zoomWindow", "documents", "zoomed", Formula{3, 0},
         "the application, ZoomWindow", growing(&S::documents), [](int) { return windowZoomed(); }},
    };
}

constexpr long long kMostExaminedPerCall = 4;

std::string journalText(const std::vector<sim::JournalEntry>& calls)
{
    std::ostringstream text;
    for (const sim::JournalEntry& call : calls)
        text << "  " << sim::formatJournalLine(call) << '\n';
    return text.str();
}

class PerOperation : public ModuleTest,
                     public ::testing::WithParamInterface<std::tuple<CountedOperation, int>> {};

TEST_P(PerOperation, FollowsItsFormula)
{
    const CountedOperation& operation = std::get<0>(GetParam());
    const int n = std::get<1>(GetParam());
    RecordProperty("row", operation.test);
    RecordProperty("operation", operation.operation);
    RecordProperty("unit", operation.unit);
    RecordProperty("measured", operation.measured);
    RecordProperty("formula", operation.formula.text(operation.unit));
    state() = operation.host(n);
    host().syncEnvironment();
    host().journal().clear();
    const long long examinedBefore = host().entriesExamined();

    EXPECT_TRUE(operation.run(n)) << operation.operation
                                  << " did not go the measured way: " << operation.measured;
    const std::vector<sim::JournalEntry>& calls = host().journal().entries();
    EXPECT_EQ(static_cast<long>(calls.size()), operation.formula(n))
        << operation.operation << " with n = " << n << " " << operation.unit << " should make "
        << operation.formula.text(operation.unit) << " host calls (" << operation.calls << "); it made:\n"
        << journalText(calls);
    // The host's own work per call does not grow with the host: each call finds its object's node
    // where the host last saw it (a menu item: its group, its menu, itself and its journal name).
    // A collection asked by name is read once, to index it, after the state was set (n + 1 at most).
    const long long examined = host().entriesExamined() - examinedBefore;
    EXPECT_LE(examined, kMostExaminedPerCall * static_cast<long long>(calls.size()) + n + 1)
        << operation.operation << " with n = " << n << " " << operation.unit << ": " << calls.size()
        << " host calls looked at " << examined << " entries of the host's collections";
}

INSTANTIATE_TEST_SUITE_P(HostCallCounts, PerOperation,
                         ::testing::Combine(::testing::ValuesIn(countedOperations()),
                                            ::testing::Values(1, 10, 100)),
                         [](const auto& info) {
                             return std::get<0>(info.param).test + "_" +
                                    std::to_string(std::get<1>(info.param));
                         });

}  // namespace

#include "demo_scenario.h"

#include "json_file.h"

namespace zorbsim {
namespace {

// Written as a scenario file would be, and read by the same reader.
constexpr const char* kDemoScenario = R"json({
  "description": "A whole MX session on the default host: the MX product puts its folders where the host looks, its menus on the menu bar and its entries on the snap menu, arranges its toolbars, opens, plots, zooms and closes a project drawing, and at shut-down takes its snap entries, menu and menu groups away again.",
  "steps": [
    {
      "title": "The MX product finds the host application",
      "call": "getCADAppDispatch",
      "expect": { "result": "0x00000000", "outputs": { "dispatch": "IDispatch" } }
    },
    {
      "call": "getCadApplication",
      "expect": { "result": "HostApplication" }
    },
    {
      "title": "It reads the host's support path",
      "call": "getCADAppSupportPath",
      "expect": { "result": "C:\\Users\\mx\\AppData\\Roaming\\Zorb\\Zorb 2026\\R26.0\\enu\\Support;C:\\Program Files\\Zorb 2026\\Support;C:\\Program Files\\Zorb 2026\\Fonts;C:\\Program Files\\Zorb 2026\\Help;C:\\Program Files\\Zorb 2026\\Support\\Color" }
    },
    {
      "title": "Merging skips folders the path already names, whatever their letter case",
      "call": "preparePathes",
      "args": {
        "folders": [ "C:\\Program Files\\MX\\Support", "c:\\program files\\zorb 2026\\fonts" ],
        "current": "C:\\Program Files\\Zorb 2026\\Support;C:\\Program Files\\Zorb 2026\\Fonts"
      },
      "expect": { "outputs": { "merged": "C:\\Program Files\\Zorb 2026\\Support;C:\\Program Files\\Zorb 2026\\Fonts;C:\\Program Files\\MX\\Support" } }
    },
    {
      "title": "It adds its support folder to the support path",
      "call": "ZORBAppUtilities::addPathesToCADAppSupportPath",
      "args": { "folders": [ "C:\\Program Files\\MX\\Support" ] },
      "expect": { "result": true, "outputs": { "merged": "C:\\Users\\mx\\AppData\\Roaming\\Zorb\\Zorb 2026\\R26.0\\enu\\Support;C:\\Program Files\\Zorb 2026\\Support;C:\\Program Files\\Zorb 2026\\Fonts;C:\\Program Files\\Zorb 2026\\Help;C:\\Program Files\\Zorb 2026\\Support\\Color;C:\\Program Files\\MX\\Support" } }
    },
    {
      "title": "The plot interface adds the symbol folder; the support folder is there already",
      "call": "CADPlotUtilities::addPathesToCADAppSupportPath",
      "args": { "folders": [ "C:\\Program Files\\MX\\Support", "C:\\Program Files\\MX\\Symbols" ] },
      "expect": { "result": true }
    },
    {
      "title": "It adds its support folder to the printer style sheet path",
      "call": "CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath",
      "expect": { "result": true }
    },
    {
      "title": "A second time there is nothing to add: true, and nothing merged",
      "call": "ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath",
      "expect": { "result": true, "outputs": { "merged": "" } }
    },
    {
      "call": "getPlotStylePath",
      "expect": { "result": true, "outputs": { "path": "C:\\Users\\mx\\AppData\\Roaming\\Zorb\\Zorb 2026\\R26.0\\enu\\Plotters\\Plot Styles;C:\\Program Files\\MX\\Support" } }
    },
    {
      "title": "It points the host's drawing templates at its own",
      "call": "setTemplateDwgPath",
      "args": { "path": "C:\\Program Files\\MX\\Templates" },
      "expect": { "result": true }
    },
    {
      "title": "It asks where the host keeps drawings, where it is installed, and its linetype and hatch files",
      "call": "getCadDrawingPath",
      "expect": { "result": true, "outputs": { "path": "C:\\Users\\mx\\Documents" } }
    },
    {
      "call": "getCadProductLocation",
      "expect": { "result": true, "outputs": { "location": "C:\\Program Files\\Zorb 2026" } }
    },
    {
      "call": "getLinetypeFilePath",
      "args": { "valueName": "LinetypeFile" },
      "expect": { "result": true, "outputs": { "path": "zorb.lin" } }
    },
    {
      "call": "getHatchFilePath",
      "args": { "valueName": "HatchFile" },
      "expect": { "result": true, "outputs": { "path": "C:\\Program Files\\Zorb 2026\\Support\\zorb.pat" } }
    },
    {
      "title": "The host's preferences now name the MX folders",
      "expectHost": {
        "/preferences/supportPath": "C:\\Users\\mx\\AppData\\Roaming\\Zorb\\Zorb 2026\\R26.0\\enu\\Support;C:\\Program Files\\Zorb 2026\\Support;C:\\Program Files\\Zorb 2026\\Fonts;C:\\Program Files\\Zorb 2026\\Help;C:\\Program Files\\Zorb 2026\\Support\\Color;C:\\Program Files\\MX\\Support;C:\\Program Files\\MX\\Symbols",
        "/preferences/printerStyleSheetPath": "C:\\Users\\mx\\AppData\\Roaming\\Zorb\\Zorb 2026\\R26.0\\enu\\Plotters\\Plot Styles;C:\\Program Files\\MX\\Support",
        "/preferences/templateDrawingFolder": "C:\\Program Files\\MX\\Templates"
      }
    },
    {
      "title": "It loads its two menu files",
      "call": "loadMenus",
      "args": { "menuFiles": [ "C:\\Program Files\\MX\\Support\\MX", "C:\\Program Files\\MX\\Support\\MXTOOLS" ] },
      "expect": { "result": true }
    },
    {
      "call": "isMenuLoaded",
      "args": { "groupName": "MX" },
      "expect": { "result": true }
    },
    {
      "title": "The groups follow the host's own; none of their menus is on the menu bar yet",
      "expectHost": {
        "/menuGroups/1/name": "MX",
        "/menuGroups/2/name": "MXTOOLS",
        "/menuBar/5": { "menuGroup": "ZORB", "menu": 5 }
      }
    },
    {
      "title": "It puts the MX group's first menu on the menu bar before Help, with two items at its end (the group's first menu, whichever it is: kept on purpose, as MX products have always seen it)",
      "call": "addMenuToMenuBar",
      "args": {
        "groupName": "MX",
        "items": [
          { "index": 10, "label": "MX &Beams...", "macro": "^C^C_MXBEAM" },
          { "index": 11, "label": "MX &Settings...", "macro": "^C^C_MXSETTINGS" }
        ],
        "position": 5
      }
    },
    {
      "title": "The group's first menu is its object-snap cursor menu PM_0001, not M&X: that is the one on the bar",
      "expectHost": {
        "/menuBar/5": { "menuGroup": "MX", "menu": 0 },
        "/menuBar/6": { "menuGroup": "ZORB", "menu": 5 },
        "/menuGroups/1/menus/0/tag": "PM_0001",
        "/menuGroups/1/menus/0/items/10/label": "MX &Beams...",
        "/menuGroups/1/menus/0/items/11/macro": "^C^C_MXSETTINGS"
      }
    },
    {
      "title": "The host's six menus and the MX one",
      "call": "getNumberOfMenusOnMenuBar",
      "expect": { "result": 7 }
    },
    {
      "title": "A menu whose upper-cased tag holds PM_00 is on the menu bar",
      "call": "isMenuLoadedOnMenuBar",
      "args": { "text": "PM_00" },
      "expect": { "result": true }
    },
    {
      "title": "It adds three snap entries, led by a separator, before the snap menu's last two items",
      "call": "addMenuItemsToSnapMenu",
      "args": { "labels": [ "&Tangent", "&Quadrant", "No&de" ], "macros": [ "_tan", "_qua", "_nod" ], "positionFromEnd": 2 },
      "expect": { "result": true }
    },
    {
      "expectHost": {
        "/menuGroups/1/menus/0/items/9/label": "&Osnap Settings...",
        "/menuGroups/1/menus/0/items/10/type": "separator",
        "/menuGroups/1/menus/0/items/11/label": "&Tangent",
        "/menuGroups/1/menus/0/items/13/macro": "_nod",
        "/menuGroups/1/menus/0/items/14/label": "MX &Beams..."
      }
    },
    {
      "title": "It combines the MX and MXTOOLS menus into one menu before Help",
      "call": "combineMenusOnMenuBar",
      "args": { "menuName": "MX &All", "groupNames": [ "MX", "MXTOOLS" ], "position": 5 }
    },
    {
      "title": "The new menu went into the host's own group, the first loaded; the copied MX menu left the bar",
      "expectHost": {
        "/menuBar/5": { "menuGroup": "ZORB", "menu": 7 },
        "/menuBar/6": { "menuGroup": "ZORB", "menu": 5 },
        "/menuGroups/0/menus/7/name": "MX &All",
        "/menuGroups/0/menus/7/items/0/label": "MX Object Snap",
        "/menuGroups/0/menus/7/items/1/label": "MX &Tools"
      }
    },
    {
      "title": "Copied separators land where the new menu's count stood as each copy began: the snap menu's three on top, the tools menu's one second",
      "expectHost": {
        "/menuGroups/0/menus/7/items/0/submenu/items/2/type": "separator",
        "/menuGroups/0/menus/7/items/0/submenu/items/3/label": "&Endpoint",
        "/menuGroups/0/menus/7/items/1/submenu/items/0/label": "&Numbering...",
        "/menuGroups/0/menus/7/items/1/submenu/items/1/type": "separator",
        "/menuGroups/0/menus/7/items/1/submenu/items/2/label": "&Clash Check"
      }
    },
    {
      "title": "The MX toolbars: its main toolbar is shown",
      "call": "isToolbarVisible",
      "args": { "groupName": "mx", "toolbarName": "tb_mx_main" },
      "expect": { "result": true }
    },
    {
      "title": "Hiding it answers false and hands back its place, docked at the top",
      "call": "showHideToolbar",
      "args": { "show": false, "groupName": "MX", "toolbarName": "TB_MX_MAIN", "left": -1, "top": -1, "dockStatus": -1, "floatingRows": -1 },
      "expect": { "result": false, "outputs": { "left": 0, "top": 0, "dockStatus": 0, "floatingRows": 1 } }
    },
    {
      "expectHost": { "/menuGroups/1/toolbars/0/visible": false }
    },
    {
      "title": "Shown again at the place it was hidden from",
      "call": "showHideToolbar",
      "args": { "show": true, "groupName": "MX", "toolbarName": "TB_MX_MAIN", "left": 0, "top": 0, "dockStatus": 0, "floatingRows": 1 },
      "expect": { "result": true }
    },
    {
      "expectHost": { "/menuGroups/1/toolbars/0/visible": true, "/menuGroups/1/toolbars/0/dockStatus": 0 }
    },
    {
      "title": "The hidden connections toolbar is shown floating at the place the product remembered",
      "call": "showHideToolbar",
      "args": { "show": true, "groupName": "MX", "toolbarName": "TB_MX_CONNECTIONS", "left": 500, "top": 300, "dockStatus": 4, "floatingRows": 3 },
      "expect": { "result": true }
    },
    {
      "expectHost": {
        "/menuGroups/1/toolbars/2/visible": true,
        "/menuGroups/1/toolbars/2/left": 500,
        "/menuGroups/1/toolbars/2/top": 300,
        "/menuGroups/1/toolbars/2/floatingRows": 3
      }
    },
    {
      "title": "The Connections button of the main toolbar opens the main toolbar as a flyout (the toolbar named is the one searched)",
      "call": "attachToolbarToFlyout",
      "args": { "groupName": "MX", "toolbarName": "TB_MX_MAIN", "buttonName": "id_mx_connections" }
    },
    {
      "expectHost": { "/menuGroups/1/toolbars/0/buttons/3/flyout": { "menuGroup": "MX", "toolbar": "TB_MX_MAIN" } }
    },
    {
      "title": "The Plate button is replaced by one that opens the connections toolbar",
      "call": "replaceToolbarButton",
      "args": {
        "groupName": "MX", "toolbarName": "TB_MX_MAIN", "buttonName": "ID_MX_PLATE",
        "newButtonName": "Plate+", "newButtonTag": "ID_MX_PLATE2", "helpString": "Places plates",
        "macro": "^C^C_MXPLATE2", "smallBitmap": "MX_PLATE2_16", "largeBitmap": "MX_PLATE2_32",
        "flyoutToolbarName": "TB_MX_CONNECTIONS"
      }
    },
    {
      "title": "It stands where the old button stood, and the old one is gone",
      "expectHost": {
        "/menuGroups/1/toolbars/0/buttons/2/tag": "ID_MX_PLATE2",
        "/menuGroups/1/toolbars/0/buttons/2/largeBitmap": "MX_PLATE2_32",
        "/menuGroups/1/toolbars/0/buttons/2/flyout": { "menuGroup": "MX", "toolbar": "TB_MX_CONNECTIONS" },
        "/menuGroups/1/toolbars/0/buttons/3/tag": "ID_MX_CONNECTIONS"
      }
    },
    {
      "title": "A project drawing is opened and made active, DWGCHECK held at 0 meanwhile and put back",
      "call": "openAndActivateDocument",
      "args": { "path": "C:\\Projects\\Warehouse 12\\Drawings\\GA-002.dwg", "activate": true },
      "expect": { "result": true }
    },
    {
      "expectHost": { "/activeDocument": 1, "/systemVariables/DWGCHECK": 1 }
    },
    {
      "title": "A window of its layout is plotted with the layout's own configuration",
      "call": "plotLayout",
      "args": { "plotConfigName": "", "layoutName": "Layout1", "plotType": 4, "x1": 0, "x2": 10, "y1": 0, "y2": 5, "errorMessage": "none" },
      "expect": { "result": true, "outputs": { "errorMessage": "none" } }
    },
    {
      "expectHost": { "/plotJobs/0/device": null, "/plotJobs/0/window": { "lowerLeft": [0.0, 0.0], "upperRight": [10.0, 5.0] } }
    },
    {
      "title": "The view is zoomed (the operation keeps one reference on the application, by design)",
      "call": "zoomWindow",
      "args": { "lowerLeft": [0, 0], "upperRight": [20, 10] },
      "expect": { "result": true }
    },
    {
      "title": "The drawing is closed without saving",
      "call": "closeActiveDocument",
      "args": { "saveChanges": false },
      "expect": { "result": true }
    },
    {
      "expectHost": { "/documents/0/fullFileName": "C:\\Projects\\Warehouse 12\\Drawings\\GA-001.dwg", "/activeDocument": 0 }
    },
    {
      "title": "The session ends: the MX product removes its snap entries",
      "call": "removeMenuItemsFromSnapMenu",
      "args": { "labels": [ "&Tangent", "&Quadrant", "No&de" ], "positionFromEnd": 2 },
      "expect": { "result": true }
    },
    {
      "title": "The removal starts one item before the entries (kept on purpose, as MX products have always seen it): the separator, &Tangent and &Quadrant go, No&de stays",
      "expectHost": {
        "/menuGroups/1/menus/0/items/9/label": "&Osnap Settings...",
        "/menuGroups/1/menus/0/items/10/label": "No&de",
        "/menuGroups/1/menus/0/items/11/label": "MX &Beams..."
      }
    },
    {
      "title": "It takes the MX menu off the menu bar",
      "call": "removeMenuFromMenuBar",
      "args": { "groupName": "MX" }
    },
    {
      "title": "Combining took it off already, so nothing changed: the host's six menus and MX &All",
      "call": "getNumberOfMenusOnMenuBar",
      "expect": { "result": 7 }
    },
    {
      "title": "Both MX groups are unloaded",
      "call": "unloadMenus",
      "args": { "menuFiles": [ "C:\\Program Files\\MX\\Support\\MX", "C:\\Program Files\\MX\\Support\\MXTOOLS" ] },
      "expect": { "result": true }
    },
    {
      "call": "isMenuLoaded",
      "args": { "groupName": "MX" },
      "expect": { "result": false }
    },
    {
      "call": "isMenuLoaded",
      "args": { "groupName": "MXTOOLS" },
      "expect": { "result": false }
    },
    {
      "title": "MX &All belongs to the host's own group, so it stays on the menu bar after the MX groups are gone",
      "expectHost": {
        "/menuBar/5": { "menuGroup": "ZORB", "menu": 7 },
        "/menuGroups/0/menus/7/name": "MX &All"
      }
    }
  ]
})json";

}  // namespace

Scenario demoScenario() { return parseScenario(parseJsonText(kDemoScenario, "built-in demo"), "built-in demo", "."); }

}  // namespace zorbsim

#include "operations.h"

#include "nearest_name.h"
#include "operation_binding.h"

#include "CADPlotUtilities.h"
#include "ZORBAppUtilities.h"

namespace zorbsim {
namespace {

// getCADAppDispatch gives a status code in a long; the report shows it as one.
StatusCode getCADAppDispatch(IDispatch** dispatch) { return {ZORBAppUtilities::getCADAppDispatch(dispatch)}; }

}  // namespace

// Adding an operation of the module takes one entry here, with the parameter names of its
// signature; a parameter or result type new to the table also needs its kind in argument_kinds.h.
const std::vector<Operation>& operationTable()
{
    static const std::vector<Operation> table{
        bindOperation("ZORBAppUtilities", "getCADAppDispatch", &getCADAppDispatch, "dispatch"),
        bindOperation("ZORBAppUtilities", "getCadApplication", &ZORBAppUtilities::getCadApplication),
        bindOperation("ZORBAppUtilities", "preparePathes", &ZORBAppUtilities::preparePathes, "folders", "current",
                      "merged"),
        bindOperation("ZORBAppUtilities", "getCADAppSupportPath", &ZORBAppUtilities::getCADAppSupportPath),
        bindOperation("ZORBAppUtilities", "addPathesToCADAppSupportPath",
                      &ZORBAppUtilities::addPathesToCADAppSupportPath, "folders", "merged"),
        bindOperation("ZORBAppUtilities", "getPlotStylePath", &ZORBAppUtilities::getPlotStylePath, "path"),
        bindOperation("ZORBAppUtilities", "addMXPathToCADPrinterStyleSheetPath",
                      &ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath, "merged"),
        bindOperation("ZORBAppUtilities", "setTemplateDwgPath", &ZORBAppUtilities::setTemplateDwgPath, "path"),
        bindOperation("ZORBAppUtilities", "getCadDrawingPath", &ZORBAppUtilities::getCadDrawingPath, "path"),
        bindOperation("ZORBAppUtilities", "getCadProductLocation", &ZORBAppUtilities::getCadProductLocation,
                      "location"),
        bindOperation("ZORBAppUtilities", "getLinetypeFilePath", &ZORBAppUtilities::getLinetypeFilePath, "valueName",
                      "path"),
        bindOperation("ZORBAppUtilities", "getHatchFilePath", &ZORBAppUtilities::getHatchFilePath, "valueName",
                      "path"),
        bindOperation("ZORBAppUtilities", "isMenuLoaded", &ZORBAppUtilities::isMenuLoaded, "groupName"),
        bindOperation("ZORBAppUtilities", "loadMenus", &ZORBAppUtilities::loadMenus, "menuFiles"),
        bindOperation("ZORBAppUtilities", "unloadMenus", &ZORBAppUtilities::unloadMenus, "menuFiles"),
        bindOperation("ZORBAppUtilities", "addMenuToMenuBar", &ZORBAppUtilities::addMenuToMenuBar,
                      "groupName", "items", "position"),
        bindOperation("ZORBAppUtilities", "removeMenuFromMenuBar", &ZORBAppUtilities::removeMenuFromMenuBar,
                      "groupName"),
        bindOperation("ZORBAppUtilities", "getNumberOfMenusOnMenuBar",
                      &ZORBAppUtilities::getNumberOfMenusOnMenuBar),
        bindOperation("ZORBAppUtilities", "isMenuLoadedOnMenuBar", &ZORBAppUtilities::isMenuLoadedOnMenuBar,
                      "text"),
        bindOperation("ZORBAppUtilities", "combineMenusOnMenuBar", &ZORBAppUtilities::combineMenusOnMenuBar,
                      "menuName", "groupNames", "position"),
        bindOperation("ZORBAppUtilities", "addMenuItemsToSnapMenu", &ZORBAppUtilities::addMenuItemsToSnapMenu,
                      "labels", "macros", "positionFromEnd"),
        bindOperation("ZORBAppUtilities", "removeMenuItemsFromSnapMenu",
                      &ZORBAppUtilities::removeMenuItemsFromSnapMenu, "labels", "positionFromEnd"),
        bindOperation("ZORBAppUtilities", "showHideToolbar", &ZORBAppUtilities::showHideToolbar, "show",
                      input("groupName"), input("toolbarName"), inOut("left"), inOut("top"),
                      inOut("dockStatus"), inOut("floatingRows")),
        bindOperation("ZORBAppUtilities", "isToolbarVisible", &ZORBAppUtilities::isToolbarVisible, "groupName",
                      "toolbarName"),
        bindOperation("ZORBAppUtilities", "attachToolbarToFlyout", &ZORBAppUtilities::attachToolbarToFlyout,
                      "groupName", "toolbarName", "buttonName"),
        bindOperation("ZORBAppUtilities", "replaceToolbarButton", &ZORBAppUtilities::replaceToolbarButton,
                      "groupName", "toolbarName", "buttonName", "newButtonName", "newButtonTag", "helpString",
                      "macro", "smallBitmap", "largeBitmap", "flyoutToolbarName"),
        bindOperation("ZORBAppUtilities", "closeActiveDocument", &ZORBAppUtilities::closeActiveDocument,
                      "saveChanges"),
        bindOperation("ZORBAppUtilities", "openAndActivateDocument", &ZORBAppUtilities::openAndActivateDocument,
                      "path", "activate"),
        bindOperation("ZORBAppUtilities", "plotLayout", &ZORBAppUtilities::plotLayout, "plotConfigName",
                      "layoutName", "plotType", "x1", "x2", "y1", "y2", "errorMessage"),
        bindOperation("ZORBAppUtilities", "zoomWindow", &ZORBAppUtilities::zoomWindow, "lowerLeft", "upperRight")
            .keepingApplicationReference(),
        bindOperation("CADPlotUtilities", "addMXPathToCADPrinterStyleSheetPath",
                      &CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath),
        bindOperation("CADPlotUtilities", "addPathesToCADAppSupportPath",
                      &CADPlotUtilities::addPathesToCADAppSupportPath, "folders"),
    };
    return table;
}

const Operation& findOperation(const std::string& name, const InputPlace& place)
{
    const bool qualified = name.find("::") != std::string::npos;
    std::vector<const Operation*> matches;
    for (const Operation& operation : operationTable()) {
        if ((qualified ? operation.qualifiedName() : operation.name()) == name)
            matches.push_back(&operation);
    }
    if (matches.size() == 1)
        return *matches.front();
    if (matches.empty()) {
        std::vector<std::string> names;
        for (const Operation& operation : operationTable())
            names.push_back(qualified ? operation.qualifiedName() : operation.name());
        const std::optional<std::string> meant = nearestName(name, names);
        place.fail("unknown operation \"" + name + "\"" + (meant ? "; did you mean \"" + *meant + "\"?" : "") +
                   " (`zorbsim ops` lists them)");
    }
    std::string candidates;
    for (const Operation* operation : matches)
        candidates += (candidates.empty() ? "" : " or ") + operation->qualifiedName();
    place.fail("\"" + name + "\" is ambiguous: " + candidates);
}

}  // namespace zorbsim

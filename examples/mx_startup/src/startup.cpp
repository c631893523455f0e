#include "mx_startup/startup.h"

namespace mx_startup {

namespace {

bool placeMenu(const Plan& plan)
{
    if (!ZORBAppUtilities::isMenuLoaded(plan.menuGroup)) {
        MxtArray<MxtString> files;
        files.add(plan.menuFile);
        ZORBAppUtilities::loadMenus(files);
        // The host passes over a file it cannot load, so loading is judged by its result.
        if (!ZORBAppUtilities::isMenuLoaded(plan.menuGroup))
            return false;
    }
    try {
        ZORBAppUtilities::addMenuToMenuBar(plan.menuGroup, plan.items, plan.menuBarPosition);
        return true;
    }
    catch (const _com_error&) {
        return false;
    }
}

}  // namespace

Outcome startUp(const Plan& plan)
{
    Outcome outcome;
    MxtString merged;
    outcome.supportPathSet = ZORBAppUtilities::addPathesToCADAppSupportPath(plan.supportFolders, merged);
    outcome.menuPlaced = placeMenu(plan);
    return outcome;
}

bool shutDown(const Plan& plan)
{
    try {
        ZORBAppUtilities::removeMenuFromMenuBar(plan.menuGroup);
    }
    catch (const _com_error&) {
        return false;
    }
    MxtArray<MxtString> files;
    files.add(plan.menuFile);
    return ZORBAppUtilities::unloadMenus(files);
}

}  // namespace mx_startup

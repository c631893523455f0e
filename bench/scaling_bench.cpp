// Each operation that walks a collection, on hosts of 10 to 10,000 of what it walks (sizedHost:
// the entry sought stands last), with Google Benchmark's fit of the time to n. Where what the
// operation is given is walked too, it is given n as well: n folders to merge into a path of n,
// n snap entries on a snap menu of n items. The host-call time and overhead ratio counters are
// those of timed_session.h. Run by hand: build/linux/bin/scaling_bench, or `make bench`, which
// writes docs/performance.md.
#include "timed_session.h"

#include "support/sized_host.h"

namespace {

using namespace module_bench;
using module_testing::HostSizes;

struct Scaling {
    const char* operation;
    const char* unit;                  // what n counts
    int HostSizes::*size;              // grown to n, the other sizes stay 1
    bool givenGrows = false;           // the operation is also given n folders or snap entries
    int largest = 10000;               // the largest n run
    bool groupMenusOnMenuBar = false;  // each of the groups has a menu on the menu bar
    bool groupToolbars = false;        // each of the groups has a toolbar
};

// Each of n new entries is compared with each of the n items, and on the simulated host each item
// read walks the menu's items: some n³ steps, several minutes for one call at n = 10,000.
const int kLargestSnapEntriesOnAsManyItems = 1000;

const Scaling kScalings[] = {
    {"preparePathes", "folders", &HostSizes::pathFolders, true},
    {"isMenuLoaded", "groups", &HostSizes::menuGroups},
    {"loadMenus", "groups", &HostSizes::menuGroups},
    {"unloadMenus", "groups", &HostSizes::menuGroups},
    {"addMenuToMenuBar", "groups", &HostSizes::menuGroups},
    {"removeMenuFromMenuBar", "groups", &HostSizes::menuGroups},
    {"getNumberOfMenusOnMenuBar", "bar_menus", &HostSizes::menuBarMenus},
    {"isMenuLoadedOnMenuBar", "bar_menus", &HostSizes::menuBarMenus},
    {"isMenuLoadedOnMenuBar", "bar_menus_of_as_many_groups", &HostSizes::menuGroups, false, 10000, true},
    {"combineMenusOnMenuBar", "groups", &HostSizes::menuGroups},
    {"combineMenusOnMenuBar", "items", &HostSizes::menuItems},
    {"addMenuItemsToSnapMenu", "menus", &HostSizes::menus},
    {"addMenuItemsToSnapMenu", "items", &HostSizes::menuItems},
    {"addMenuItemsToSnapMenu", "entries_on_as_many_items", &HostSizes::menuItems, true,
     kLargestSnapEntriesOnAsManyItems},
    {"removeMenuItemsFromSnapMenu", "menus", &HostSizes::menus},
    {"removeMenuItemsFromSnapMenu", "entries_on_as_many_items", &HostSizes::menuItems, true},
    {"showHideToolbar/hiding", "toolbars", &HostSizes::toolbars},
    {"showHideToolbar/showing", "toolbars", &HostSizes::toolbars},
    {"isToolbarVisible", "toolbars", &HostSizes::toolbars},
    {"attachToolbarToFlyout", "buttons", &HostSizes::buttons},
    // The flyout's toolbar is named by its group and by its tag: among many groups, and many toolbars.
    {"attachToolbarToFlyout", "groups_with_toolbars", &HostSizes::menuGroups, false, 10000, false, true},
    {"attachToolbarToFlyout", "toolbars", &HostSizes::toolbars},
    {"replaceToolbarButton", "buttons", &HostSizes::buttons},
    {"closeActiveDocument", "documents", &HostSizes::documents},
    {"openAndActivateDocument/open", "documents", &HostSizes::documents},
    {"openAndActivateDocument/opening", "documents", &HostSizes::documents},
};

Targets sizedHostTargets()
{
    return {module_testing::kSoughtGroup,
            module_testing::kSoughtToolbar,
            module_testing::kSoughtButton,
            module_testing::kSoughtDrawing,
            module_testing::kDrawingToOpen,
            L"SOUGHT",
            L"C:\\Program Files\\MX\\Support\\MXTOOLS",
            std::wstring(L"C:\\Menus\\") + module_testing::kSoughtGroup};
}

const bool registered = [] {
    for (const Scaling& scaling : kScalings) {
        const Operation& operation = operationNamed(scaling.operation);
        const std::string name = std::string(scaling.operation) + "/" + scaling.unit;
        benchmark::RegisterBenchmark(name.c_str(),
                                     [&operation, &scaling](benchmark::State& state) {
                                         const int n = static_cast<int>(state.range(0));
                                         HostSizes sizes;
                                         sizes.*scaling.size = n;
                                         sizes.groupMenusOnMenuBar = scaling.groupMenusOnMenuBar;
                                         sizes.groupToolbars = scaling.groupToolbars;
                                         timeOperation(state, operation, module_testing::sizedHost(sizes),
                                                       sizedHostTargets(), scaling.givenGrows ? n : 1);
                                         state.SetComplexityN(n);
                                     })
            ->RangeMultiplier(10)
            ->Range(10, scaling.largest)
            ->Complexity();
    }
    return true;
}();

}  // namespace

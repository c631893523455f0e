// Each operation that walks a collection, on hosts of 10 to 10,000 of what it walks (sizedHost:
// the entry sought stands last), with Google Benchmark's fit of the time to n. The host-call time
// and overhead ratio counters are those of timed_session.h. Run by hand:
// build/linux/bin/scaling_bench, or `make bench`, which writes docs/performance.md.
#include "timed_session.h"

#include "support/sized_host.h"

namespace {

using namespace module_bench;
using module_testing::HostSizes;

struct Scaling {
    const char* operation;
    const char* unit;        // what n counts
    int HostSizes::*size;    // grown to n, the other sizes stay 1
    bool givenGrows = false; // the operation is also given n folders
};

const Scaling kScalings[] = {
    {"preparePathes", "folders", &HostSizes::pathFolders, true},
    {"isMenuLoaded", "groups", &HostSizes::menuGroups},
    {"loadMenus", "groups", &HostSizes::menuGroups},
    {"unloadMenus", "groups", &HostSizes::menuGroups},
    {"addMenuToMenuBar", "groups", &HostSizes::menuGroups},
    {"removeMenuFromMenuBar", "groups", &HostSizes::menuGroups},
    {"getNumberOfMenusOnMenuBar", "bar_menus", &HostSizes::menuBarMenus},
    {"isMenuLoadedOnMenuBar", "bar_menus", &HostSizes::menuBarMenus},
    {"combineMenusOnMenuBar", "groups", &HostSizes::menuGroups},
    {"combineMenusOnMenuBar", "items", &HostSizes::menuItems},
    {"addMenuItemsToSnapMenu", "menus", &HostSizes::menus},
    {"addMenuItemsToSnapMenu", "items", &HostSizes::menuItems},
    {"removeMenuItemsFromSnapMenu", "menus", &HostSizes::menus},
    {"showHideToolbar/hiding", "toolbars", &HostSizes::toolbars},
    {"showHideToolbar/showing", "toolbars", &HostSizes::toolbars},
    {"isToolbarVisible", "toolbars", &HostSizes::toolbars},
    {"attachToolbarToFlyout", "buttons", &HostSizes::buttons},
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
                                         timeOperation(state, operation, module_testing::sizedHost(sizes),
                                                       sizedHostTargets(), scaling.givenGrows ? n : 1);
                                         state.SetComplexityN(n);
                                     })
            ->RangeMultiplier(10)
            ->Range(10, 10000)
            ->Complexity();
    }
    return true;
}();

}  // namespace

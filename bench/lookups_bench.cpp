// Host calls that find an entry by its name, on hosts of 10 to 10,000 entries of its kind, the
// entry asked for standing last (sizedHost): a host that searched for it would grow with n, an
// index does not. Google Benchmark fits the time to n.
#include "sim_application.h"

#include "support/sized_host.h"

#include "sim/host.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

namespace {

using module_testing::HostSizes;
using sim_bench::application;

struct Lookup {
    const char* name;
    void (*grow)(HostSizes& sizes, int n);
    // Makes the call to time on the installed host, reaching what it is made on once.
    std::function<std::function<void()>()> reach;
};

const Lookup kLookups[] = {
    {"groups_by_name", [](HostSizes& sizes, int n) { sizes.menuGroups = n; },
     [] {
         return [groups = application()->GetMenuGroups()] {
             groups->Item(_variant_t(module_testing::kSoughtGroup));
         };
     }},
    {"items_by_label", [](HostSizes& sizes, int n) { sizes.menuItems = n; },
     [] {
         HostPopupMenuPtr menu = application()
                                     ->GetMenuGroups()
                                     ->Item(_variant_t(module_testing::kSoughtGroup))
                                     ->GetMenus()
                                     ->Item(_variant_t(0L));
         const _variant_t last((L"Item " + std::to_wstring(menu->GetCount())).c_str());
         return [menu, last] { menu->Item(last); };
     }},
    {"documents_by_file_name", [](HostSizes& sizes, int n) { sizes.documents = n; },
     [] {
         return [documents = application()->GetDocuments()] { documents->Item(_variant_t(L"SOUGHT.dwg")); };
     }},
    // A flyout's toolbar named by its group among n groups and by its tag among the group's n toolbars.
    {"flyout_among_groups_and_toolbars",
     [](HostSizes& sizes, int n) {
         sizes.menuGroups = n;
         sizes.groupToolbars = true;
         sizes.toolbars = n;
     },
     [] {
         HostToolbarItemPtr button = application()
                                         ->GetMenuGroups()
                                         ->Item(_variant_t(module_testing::kSoughtGroup))
                                         ->GetToolbars()
                                         ->Item(_variant_t(0L))
                                         ->Item(_variant_t(0L));
         return [button] {
             button->AttachToolbarToFlyout(module_testing::kSoughtGroup, module_testing::kSoughtToolbar);
         };
     }},
    // A menu file loaded beside n groups, whose names it checks the new group's against, and unloaded.
    {"menu_file_load_beside_groups",
     [](HostSizes& sizes, int n) {
         sizes.menuGroups = n;
         sizes.menuFiles = 1;
     },
     [] {
         return [groups = application()->GetMenuGroups()] {
             groups->LoadMenuFile(L"C:\\Menus\\FILE1.mnu")->Unload();
         };
     }},
    // The same beside n groups whose menus all stand on the menu bar: unloading takes the group's
    // menus off the bar without a pass over it.
    {"menu_file_load_beside_a_bar_of_groups_menus",
     [](HostSizes& sizes, int n) {
         sizes.menuGroups = n;
         sizes.groupMenusOnMenuBar = true;
         sizes.menuFiles = 1;
     },
     [] {
         return [groups = application()->GetMenuGroups()] {
             groups->LoadMenuFile(L"C:\\Menus\\FILE1.mnu")->Unload();
         };
     }},
    {"system_variable", [](HostSizes& sizes, int n) { sizes.systemVariables = n; },
     [] {
         return [] {
             resbuf value{};
             zbedGetVar(L"DWGCHECK", &value);
         };
     }},
    {"search_path_file", [](HostSizes& sizes, int n) { sizes.searchPathFiles = n; },
     [] {
         return [] {
             ZbString found;
             zbedFindFile(L"zorb.pat", found);
             zbHeapFree(found.buffer);
         };
     }},
};

const bool registered = [] {
    for (const Lookup& lookup : kLookups) {
        benchmark::RegisterBenchmark((std::string("lookup/") + lookup.name).c_str(),
                                     [&lookup](benchmark::State& state) {
                                         const int n = static_cast<int>(state.range(0));
                                         HostSizes sizes;
                                         lookup.grow(sizes, n);
                                         sim::Host host(module_testing::sizedHost(sizes));
                                         host.journal().setEnabled(false);
                                         const auto call = lookup.reach();
                                         for (auto _ : state)
                                             call();
                                         state.SetComplexityN(n);
                                     })
            ->RangeMultiplier(10)
            ->Range(10, 10000)
            ->Complexity();
    }
    return true;
}();

}  // namespace

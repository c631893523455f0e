// Simple host calls on the simulated host, as the module makes them through the typed
// interfaces: a collection's count, an item by position, the item's name. Run by hand:
// build/linux/bin/sim_calls_bench. Items per second are host calls per second.
#include "sim/host.h"

#include "framework.h"
#include "host/object_model.h"
#include "host/sdk.h"

#include <benchmark/benchmark.h>

namespace {

HostApplicationPtr application()
{
    IDispatch* dispatch = zbedGetZorbWinApp()->GetIDispatch(TRUE);
    HostApplicationPtr application(dispatch);
    dispatch->Release();
    return application;
}

// Three host calls per iteration: count, item, name.
void countItemName(benchmark::State& state)
{
    sim::Host host;
    const bool journalOn = state.range(0) != 0;
    host.journal().setEnabled(journalOn);
    HostMenuGroupsPtr groups = application()->GetMenuGroups();
    const _variant_t first(0L);
    for (auto _ : state) {
        benchmark::DoNotOptimize(groups->GetCount());
        HostMenuGroupPtr group = groups->Item(first);
        benchmark::DoNotOptimize(group->GetName());
        // A long run would otherwise keep every entry; clearing is part of the cost.
        if (journalOn && host.journal().entries().size() >= 30000)
            host.journal().clear();
    }
    state.SetItemsProcessed(state.iterations() * 3);
    state.SetLabel(journalOn ? "journal on" : "journal off");
}
BENCHMARK(countItemName)->Arg(0)->Arg(1);

// The same on an item deep in the model: a menu item's label, found through its menu.
void menuItemLabel(benchmark::State& state)
{
    sim::Host host;
    const bool journalOn = state.range(0) != 0;
    host.journal().setEnabled(journalOn);
    HostPopupMenuPtr menu = application()->GetMenuBar()->Item(_variant_t(0L));
    const _variant_t position(5L);
    for (auto _ : state) {
        benchmark::DoNotOptimize(menu->GetCount());
        HostPopupMenuItemPtr item = menu->Item(position);
        benchmark::DoNotOptimize(item->GetLabel());
        if (journalOn && host.journal().entries().size() >= 30000)
            host.journal().clear();
    }
    state.SetItemsProcessed(state.iterations() * 3);
    state.SetLabel(journalOn ? "journal on" : "journal off");
}
BENCHMARK(menuItemLabel)->Arg(0)->Arg(1);

}  // namespace

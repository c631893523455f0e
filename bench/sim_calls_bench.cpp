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

// Three host calls per iteration on the collection `reach` gives: its count, the item at
// `position`, the item's name as `nameOf` reads it. The journal is on or off as the argument says.
template <class Reach, class NameOf>
void countItemName(benchmark::State& state, Reach reach, long position, NameOf nameOf)
{
    sim::Host host;
    const bool journalOn = state.range(0) != 0;
    host.journal().setEnabled(journalOn);
    const auto collection = reach();
    const _variant_t index(position);
    for (auto _ : state) {
        benchmark::DoNotOptimize(collection->GetCount());
        benchmark::DoNotOptimize(nameOf(collection->Item(index)));
        // A long run would otherwise keep every entry; clearing is part of the cost.
        if (journalOn && host.journal().entries().size() >= 30000)
            host.journal().clear();
    }
    state.SetItemsProcessed(state.iterations() * 3);
    state.SetLabel(journalOn ? "journal on" : "journal off");
}

BENCHMARK_CAPTURE(
    countItemName, menuGroups, [] { return application()->GetMenuGroups(); }, 0L,
    [](const HostMenuGroupPtr& group) { return group->GetName(); })
    ->Arg(0)
    ->Arg(1);
// The same on an item deep in the model: a menu item's label, found through its menu.
BENCHMARK_CAPTURE(
    countItemName, menuItems, [] { return application()->GetMenuBar()->Item(_variant_t(0L)); }, 5L,
    [](const HostPopupMenuItemPtr& item) { return item->GetLabel(); })
    ->Arg(0)
    ->Arg(1);

}  // namespace

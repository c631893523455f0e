// Simple host calls on the simulated host, as the module makes them through the typed
// interfaces: a collection's count, an item by position, the item's name. The program also times
// lookups by name and host states read and written on hosts of growing size (lookups_bench.cpp,
// state_bench.cpp) and a call beside a GoogleMock mock's (mock_peer_bench.cpp). Run by hand:
// build/linux/bin/sim_calls_bench, or `make bench`. Items per second are host calls per second.
#include "sim_application.h"

#include "sim/host.h"

#include <benchmark/benchmark.h>

namespace {

using sim_bench::application;

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

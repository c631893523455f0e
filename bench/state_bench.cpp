// Host states written as JSON, read back and compared, on hosts of 10 to 10,000 of one shape: the
// menu bar refers to the groups' menus and the active drawing to one of the drawings, which must
// make none of the three worse than linear. Google Benchmark fits the time to n.
#include "support/sized_host.h"

#include "sim/state_json.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using module_testing::HostSizes;

struct Shape {
    const char* name;
    void (*grow)(HostSizes& sizes, int n);
};

const Shape kShapes[] = {
    {"groups_with_bar_menus",
     [](HostSizes& sizes, int n) {
         sizes.menuGroups = n;
         sizes.groupMenusOnMenuBar = true;
     }},
    {"groups_with_bar_menus_and_toolbars",
     [](HostSizes& sizes, int n) {
         sizes.menuGroups = n;
         sizes.groupMenusOnMenuBar = true;
         sizes.groupToolbars = true;
     }},
    {"toolbars", [](HostSizes& sizes, int n) { sizes.toolbars = n; }},
    {"documents", [](HostSizes& sizes, int n) { sizes.documents = n; }},
};

sim::HostState hostOf(const Shape& shape, int n)
{
    HostSizes sizes;
    shape.grow(sizes, n);
    return module_testing::sizedHost(sizes);
}

void dump(benchmark::State& state, const Shape& shape)
{
    const sim::HostState host = hostOf(shape, static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(sim::stateToJson(host));
}

void load(benchmark::State& state, const Shape& shape)
{
    const nlohmann::json dumped = sim::stateToJson(hostOf(shape, static_cast<int>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(sim::stateFromJson(dumped));
}

void compare(benchmark::State& state, const Shape& shape)
{
    const sim::HostState host = hostOf(shape, static_cast<int>(state.range(0)));
    const sim::HostState copy = sim::clone(host);
    for (auto _ : state)
        benchmark::DoNotOptimize(host == copy);
}

const bool registered = [] {
    for (const Shape& shape : kShapes) {
        for (const auto& [kind, time] : {std::make_pair("dump", &dump), std::make_pair("load", &load),
                                         std::make_pair("compare", &compare)}) {
            benchmark::RegisterBenchmark((std::string("state/") + kind + "/" + shape.name).c_str(),
                                         [time = time, &shape](benchmark::State& state) {
                                             time(state, shape);
                                             state.SetComplexityN(state.range(0));
                                         })
                ->RangeMultiplier(10)
                ->Range(10, 10000)
                ->Complexity();
        }
    }
    return true;
}();

}  // namespace

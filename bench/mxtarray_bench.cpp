// What MxtArray's linear growth costs when elements are appended one by one: every eighth append
// reallocates and copies every element so far, so appending n elements copies about n * n / 16.
// Against it: the same array sized once up front, and std::vector's geometric growth.
#include "MxtArray"
#include "MxtString"

#include "test_widget.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

TestWidget hostObject;

void reportAllocations(benchmark::State& state, std::size_t allocationsBefore)
{
    const auto allocations = MxtMemoryControllerController::allocationCount() - allocationsBefore;
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocations),
                                                       benchmark::Counter::kAvgIterations);
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

template <class Element>
void appendToMxtArray(benchmark::State& state, const Element& element)
{
    const auto count = static_cast<int>(state.range(0));
    const std::size_t before = MxtMemoryControllerController::allocationCount();
    for (auto _ : state) {
        MxtArray<Element> array;
        for (int i = 0; i < count; ++i)
            array.add(element);
        benchmark::DoNotOptimize(array.getData());
    }
    reportAllocations(state, before);
}

template <class Element>
void fillPresizedMxtArray(benchmark::State& state, const Element& element)
{
    const auto count = static_cast<int>(state.range(0));
    const std::size_t before = MxtMemoryControllerController::allocationCount();
    for (auto _ : state) {
        MxtArray<Element> array;
        array.setLength(count);
        for (int i = 0; i < count; ++i)
            array[i] = element;
        benchmark::DoNotOptimize(array.getData());
    }
    reportAllocations(state, before);
}

template <class Element>
void appendToStdVector(benchmark::State& state, const Element& element)
{
    const auto count = static_cast<std::size_t>(state.range(0));
    for (auto _ : state) {
        std::vector<Element> vector;
        for (std::size_t i = 0; i < count; ++i)
            vector.push_back(element);
        benchmark::DoNotOptimize(vector.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

const MxtString supportFolder(L"C:\\Program Files\\MX\\Support\\Menus");

#define MX_SIZES RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)

BENCHMARK_CAPTURE(appendToMxtArray, strings, supportFolder)->MX_SIZES->Complexity(benchmark::oNSquared);
BENCHMARK_CAPTURE(appendToMxtArray, hostObjects, ITestWidgetPtr(&hostObject))->MX_SIZES->Complexity(benchmark::oNSquared);
BENCHMARK_CAPTURE(fillPresizedMxtArray, strings, supportFolder)->MX_SIZES->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(fillPresizedMxtArray, hostObjects, ITestWidgetPtr(&hostObject))->MX_SIZES->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(appendToStdVector, strings, supportFolder)->MX_SIZES->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(appendToStdVector, hostObjects, ITestWidgetPtr(&hostObject))->MX_SIZES->Complexity(benchmark::oN);

}  // namespace

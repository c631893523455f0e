// One host member, HostMenuGroups::get_Count, answered by the simulated host and by a GoogleMock
// mock of the same imported interface with an expectation, both called through the interface as
// the module calls it (the typed wrapper GetCount): the ratio of the two says what the simulated
// host's journal-less call costs over the least a test double can cost.
#include "sim_application.h"

#include "sim/host.h"

#include <benchmark/benchmark.h>
#include <gmock/gmock.h>

namespace {

using ::testing::_;
using ::testing::DoAll;
using ::testing::Return;
using ::testing::SetArgPointee;

class MockMenuGroups : public HostMenuGroups {
public:
    MOCK_METHOD(HRESULT, QueryInterface, (REFIID, void**), (override, Calltype(STDMETHODCALLTYPE)));
    MOCK_METHOD(ULONG, AddRef, (), (override, Calltype(STDMETHODCALLTYPE)));
    MOCK_METHOD(ULONG, Release, (), (override, Calltype(STDMETHODCALLTYPE)));
    MOCK_METHOD(HRESULT, GetTypeInfoCount, (UINT*), (override, Calltype(STDMETHODCALLTYPE)));
    MOCK_METHOD(HRESULT, GetTypeInfo, (UINT, LCID, ITypeInfo**), (override, Calltype(STDMETHODCALLTYPE)));
    MOCK_METHOD(HRESULT, GetIDsOfNames, (REFIID, LPOLESTR*, UINT, LCID, DISPID*),
                (override, Calltype(STDMETHODCALLTYPE)));
    MOCK_METHOD(HRESULT, Invoke, (DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*),
                (override, Calltype(STDMETHODCALLTYPE)));
    MOCK_METHOD(HRESULT, get_Count, (long*), (override, Calltype(STDMETHODCALLTYPE)));
    MOCK_METHOD(HRESULT, raw_Item, (VARIANT, HostMenuGroup**), (override, Calltype(STDMETHODCALLTYPE)));
    MOCK_METHOD(HRESULT, raw_LoadMenuFile, (BSTR, VARIANT, HostMenuGroup**),
                (override, Calltype(STDMETHODCALLTYPE)));
    MOCK_METHOD(HRESULT, raw__NewEnum, (IUnknown**), (override, Calltype(STDMETHODCALLTYPE)));
};

// The count through `groups`, which the compiler must not see through.
void countThrough(benchmark::State& state, HostMenuGroups* groups)
{
    benchmark::DoNotOptimize(groups);
    for (auto _ : state)
        benchmark::DoNotOptimize(groups->GetCount());
    state.SetItemsProcessed(state.iterations());
}

void simulatedHost(benchmark::State& state)
{
    sim::Host host;
    host.journal().setEnabled(false);
    HostMenuGroupsPtr groups = sim_bench::application()->GetMenuGroups();
    countThrough(state, groups.GetInterfacePtr());
}

void googleMock(benchmark::State& state)
{
    MockMenuGroups groups;
    EXPECT_CALL(groups, get_Count(_)).WillRepeatedly(DoAll(SetArgPointee<0>(1L), Return(S_OK)));
    countThrough(state, &groups);
}

BENCHMARK(simulatedHost)->Name("peer/get_Count/simulated_host");
BENCHMARK(googleMock)->Name("peer/get_Count/google_mock");

}  // namespace

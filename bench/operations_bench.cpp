// Every exported operation on the default host with the MX menus loaded, time per call, and its
// time against that of its host calls alone (see timed_session.h). Run by hand:
// build/linux/bin/operations_bench, or `make bench`, which writes docs/performance.md.
#include "timed_session.h"

#include "ZORBAppUtilities.h"

namespace {

using namespace module_bench;

const std::wstring kMxSupport = L"C:\\Program Files\\MX\\Support";

Targets defaultHostTargets()
{
    const sim::HostState host = sim::defaultHostState();
    return {L"MX",
            L"TB_MX_MAIN",
            L"ID_MX_SETTINGS",
            host.documents.front()->fullFileName,
            host.drawingsOnDisk.at(1),
            L"HELP",
            kMxSupport + L"\\MXTOOLS",
            kMxSupport + L"\\MX"};
}

// The MX start-up's first step: its menu group loaded, as every menu and toolbar operation needs.
void loadMxMenus(sim::Host&)
{
    MxtArray<MxtString> files;
    files.add(MxtString((kMxSupport + L"\\MX").c_str()));
    ZORBAppUtilities::loadMenus(files);
}

const bool registered = [] {
    for (const Operation& operation : operations())
        benchmark::RegisterBenchmark(operation.name.c_str(), [&operation](benchmark::State& state) {
            timeOperation(state, operation, sim::defaultHostState(), defaultHostTargets(), 1, loadMxMenus);
        });
    return true;
}();

}  // namespace

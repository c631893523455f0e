// The core library's way into the module and the exported statics are one and the same: each of
// the ten interface operations and its static, on equal hosts with equal arguments, give the same
// results and outputs, leave the same host state and make the same host calls, both undisturbed
// and when the host refuses the last call the operation makes.
#include "CADPlotUtilities.h"
#include "ZORBAppUtilities.h"

#include "support/mxt_text.h"

#include "MxtCadPlotUtilitiesInterface"
#include "MxtGlobalStorage"
#include "MxtZorbAppUtilitiesInterface"
#include "sim/host.h"
#include "sim/state_json.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

using namespace module_testing;

namespace {

const std::wstring kMxSupport = L"C:\\Program Files\\MX\\Support\\";
const std::wstring kOnDisk = L"C:\\Projects\\Warehouse 12\\Drawings\\GA-002.dwg";

MxtZorbAppUtilitiesInterface& app() { return *MxtZorbAppUtilitiesInterface::getImplementation(); }
MxtCadPlotUtilitiesInterface& plot() { return *MxtCadPlotUtilitiesInterface::getImplementation(); }

std::string shown(bool result, const MxtString& output = MxtString())
{
    return (result ? "true " : "false ") + narrow(text(output));
}

// One interface operation and its static. Each returns its result and outputs as text.
struct Pair {
    std::string name;
    std::function<std::string()> viaInterface;
    std::function<std::string()> viaStatic;
    std::function<void()> prepare = [] {};  // brings the host to where the operation has work to do
};

void loadMxMenus() { ZORBAppUtilities::loadMenus(mxtStrings({(kMxSupport + L"MX").c_str()})); }

std::vector<Pair> pairs()
{
    const MxtArray<MxtString> menuFiles = mxtStrings({(kMxSupport + L"MX").c_str()});
    const MxtArray<MxtString> folders = mxtStrings({L"C:\\MX\\Symbols", L"C:\\MX\\Support"});
    const auto plotWindow = [](auto plotLayout) {
        MxtString message(L"untouched");
        const bool result = plotLayout(MxtString(L"MX A3"), MxtString(L"Layout1"), ZbDbPlotSettings::kWindow, 1.0,
                                       30.0, 2.0, 40.0, message);
        return shown(result, message);
    };
    return {
        {"getCADAppSupportPath", [] { return narrow(text(app().getCADAppSupportPath())); },
         [] { return narrow(text(ZORBAppUtilities::getCADAppSupportPath())); }},
        {"setTemplateDwgPath", [] { return shown(app().setTemplateDwgPath(MxtString(L"C:\\MX\\Templates"))); },
         [] { return shown(ZORBAppUtilities::setTemplateDwgPath(MxtString(L"C:\\MX\\Templates"))); }},
        {"loadMenus", [=] { return shown(app().loadMenus(menuFiles)); },
         [=] { return shown(ZORBAppUtilities::loadMenus(menuFiles)); }},
        {"getLinetypeFilePath",
         [] {
             MxtString path(L"before");
             return shown(app().getLinetypeFilePath(MxtString(L"LinetypeFile"), path), path);
         },
         [] {
             MxtString path(L"before");
             return shown(ZORBAppUtilities::getLinetypeFilePath(MxtString(L"LinetypeFile"), path), path);
         }},
        {"closeActiveDocument", [] { return shown(app().closeActiveDocument(true)); },
         [] { return shown(ZORBAppUtilities::closeActiveDocument(true)); }},
        {"openAndActivateDocument", [] { return shown(app().openAndActivateDocument(MxtString(kOnDisk.c_str()), true)); },
         [] { return shown(ZORBAppUtilities::openAndActivateDocument(MxtString(kOnDisk.c_str()), true)); }},
        {"plotLayout",
         [=] { return plotWindow([](auto&&... arguments) { return app().plotLayout(arguments...); }); },
         [=] { return plotWindow([](auto&&... arguments) { return ZORBAppUtilities::plotLayout(arguments...); }); }},
        {"unloadMenus", [=] { return shown(app().unloadMenus(menuFiles)); },
         [=] { return shown(ZORBAppUtilities::unloadMenus(menuFiles)); }, loadMxMenus},
        {"addMXPathToCADPrinterStyleSheetPath", [] { return shown(plot().addMXPathToCADPrinterStyleSheetPath()); },
         [] { return shown(CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath()); }},
        {"addPathesToCADAppSupportPath", [=] { return shown(plot().addPathesToCADAppSupportPath(folders)); },
         [=] { return shown(CADPlotUtilities::addPathesToCADAppSupportPath(folders)); }},
    };
}

// Everything a caller or the host can tell of one call.
struct Observed {
    std::string outcome;
    nlohmann::json state;
    std::vector<std::string> hostCalls;  // with their arguments' types and values
    std::optional<std::wstring> supportPathsRecord;
    long referencesHeld = 0;

    bool operator==(const Observed& other) const
    {
        return outcome == other.outcome && state == other.state && hostCalls == other.hostCalls &&
               supportPathsRecord == other.supportPathsRecord && referencesHeld == other.referencesHeld;
    }
};

void PrintTo(const Observed& observed, std::ostream* out)
{
    *out << observed.outcome << "\n";
    for (const std::string& call : observed.hostCalls)
        *out << "  " << call << "\n";
}

sim::HostState strictDefaultHost()
{
    sim::HostState state = sim::defaultHostState();
    state.behaviour.strictArguments = true;
    return state;
}

void forgetSupportPathsRecord()
{
    delete MxtGlobalStorage::g_pZorbSupportPaths;
    MxtGlobalStorage::g_pZorbSupportPaths = nullptr;
}

Observed observe(const Pair& pair, const std::function<std::string()>& call, const std::optional<sim::Fault>& fault)
{
    forgetSupportPathsRecord();
    sim::Host host(strictDefaultHost());
    pair.prepare();
    host.journal().clear();
    if (fault)
        host.armFault(*fault);

    Observed observed;
    observed.outcome = call();
    observed.state = sim::stateToJson(host.state());
    for (const sim::JournalEntry& entry : host.journal().entries())
        observed.hostCalls.push_back(sim::formatJournalLine(entry));
    if (MxtGlobalStorage::g_pZorbSupportPaths)
        observed.supportPathsRecord = text(*MxtGlobalStorage::g_pZorbSupportPaths);
    observed.referencesHeld = host.referencesHeld();
    return observed;
}

// The last host object call of an undisturbed run, failed at that same occurrence.
sim::Fault failingLastCall(const Pair& pair)
{
    sim::Host host(strictDefaultHost());
    pair.prepare();
    host.journal().clear();
    pair.viaStatic();
    const std::vector<std::string> methods = host.journal().methods();
    sim::Fault fault;
    fault.kind = sim::FaultKind::failCall;
    fault.status = E_FAIL;
    for (const std::string& method : methods)
        if (method.rfind("sdk.", 0) != 0)
            fault.method = method;
    fault.nth = static_cast<long>(std::count(methods.begin(), methods.end(), fault.method));
    return fault;
}

// GoogleTest would otherwise print the functions' bytes.
void PrintTo(const Pair& pair, std::ostream* out) { *out << pair.name; }

class BothPaths : public testing::TestWithParam<Pair> {};

TEST_P(BothPaths, AgreeOnResultOutputsHostStateAndHostCalls)
{
    const Pair& pair = GetParam();
    ASSERT_NE(MxtZorbAppUtilitiesInterface::getImplementation(), nullptr);
    ASSERT_NE(MxtCadPlotUtilitiesInterface::getImplementation(), nullptr);

    const Observed undisturbed = observe(pair, pair.viaStatic, std::nullopt);
    EXPECT_FALSE(undisturbed.hostCalls.empty()) << "the operation never reached the host";
    EXPECT_EQ(observe(pair, pair.viaInterface, std::nullopt), undisturbed);

    const sim::Fault fault = failingLastCall(pair);
    const Observed refused = observe(pair, pair.viaStatic, fault);
    EXPECT_FALSE(refused == undisturbed) << "the fault did not act";
    EXPECT_EQ(observe(pair, pair.viaInterface, fault), refused) << "with " << fault.method << " refused";
    forgetSupportPathsRecord();
}

INSTANTIATE_TEST_SUITE_P(UtilityInterfaces, BothPaths, testing::ValuesIn(pairs()),
                         [](const testing::TestParamInfo<Pair>& info) { return info.param.name; });

}  // namespace

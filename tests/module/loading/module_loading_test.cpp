// The module loaded and unloaded at run time by a program that never linked it: loading registers
// its two implementations with the core library, every interface operation then reaches the
// simulated host, and unloading withdraws both and takes the module out of the process.
#include "loaded_library.h"

#include "support/mxt_text.h"

#include "MxtCadPlotUtilitiesInterface"
#include "MxtGlobalStorage"
#include "MxtZorbAppUtilitiesInterface"
#include "sim/host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

using module_testing::mxtStrings;
using module_testing::text;

namespace {

const std::wstring kMxSupport = L"C:\\Program Files\\MX\\Support";
const std::wstring kOnDisk = L"C:\\Projects\\Warehouse 12\\Drawings\\GA-002.dwg";

bool bothRegistered()
{
    return MxtZorbAppUtilitiesInterface::getImplementation() != nullptr &&
           MxtCadPlotUtilitiesInterface::getImplementation() != nullptr;
}

bool noneRegistered()
{
    return MxtZorbAppUtilitiesInterface::getImplementation() == nullptr &&
           MxtCadPlotUtilitiesInterface::getImplementation() == nullptr;
}

bool hasGroup(const sim::HostState& state, const std::wstring& name)
{
    return std::any_of(state.menuGroups.begin(), state.menuGroups.end(),
                       [&](const auto& group) { return group && group->name == name; });
}

bool endsWith(const std::wstring& text, const std::wstring& tail)
{
    return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

// A host loads and unloads a module more than once in a session; each load must register anew.
TEST(ModuleLoading, EachLoadRegistersTheModulesOwnImplementationsAndEachUnloadWithdrawsThem)
{
    ASSERT_FALSE(LoadedLibrary::isMapped(MODULE_FILE)) << "the test program must not link the module";
    ASSERT_TRUE(noneRegistered());
    for (int load = 1; load <= 2; ++load) {
        SCOPED_TRACE("load " + std::to_string(load));
        LoadedLibrary module(MODULE_FILE);
        ASSERT_TRUE(bothRegistered());
        EXPECT_TRUE(module.contains(MxtZorbAppUtilitiesInterface::getImplementation()));
        EXPECT_TRUE(module.contains(MxtCadPlotUtilitiesInterface::getImplementation()));

        ASSERT_TRUE(module.unload());
        EXPECT_TRUE(noneRegistered());
        EXPECT_FALSE(LoadedLibrary::isMapped(MODULE_FILE)) << "the unload left the module in the process";
    }
}

TEST(ModuleLoading, EveryInterfaceOperationOfTheLoadedModuleWorksOnTheSimulatedHost)
{
    auto host = std::make_unique<sim::Host>();
    host->state().behaviour.strictArguments = true;
    sim::HostState& state = host->state();
    LoadedLibrary module(MODULE_FILE);
    ASSERT_TRUE(bothRegistered());
    MxtZorbAppUtilitiesInterface& app = *MxtZorbAppUtilitiesInterface::getImplementation();
    MxtCadPlotUtilitiesInterface& plot = *MxtCadPlotUtilitiesInterface::getImplementation();

    EXPECT_EQ(text(app.getCADAppSupportPath()), state.preferences.supportPath);
    EXPECT_TRUE(app.setTemplateDwgPath(MxtString(L"C:\\MX\\Templates")));
    EXPECT_EQ(state.preferences.templateDrawingFolder, L"C:\\MX\\Templates");
    MxtString path;
    EXPECT_TRUE(app.getLinetypeFilePath(MxtString(L"LinetypeFile"), path));
    EXPECT_EQ(text(path), L"zorb.lin");

    const MxtArray<MxtString> menuFiles = mxtStrings({(kMxSupport + L"\\MX").c_str()});
    EXPECT_TRUE(app.loadMenus(menuFiles));
    EXPECT_TRUE(hasGroup(state, L"MX"));
    EXPECT_TRUE(app.unloadMenus(menuFiles));
    EXPECT_FALSE(hasGroup(state, L"MX"));

    EXPECT_TRUE(app.openAndActivateDocument(MxtString(kOnDisk.c_str()), true));
    ASSERT_NE(state.activeDocument, nullptr);
    EXPECT_EQ(state.activeDocument->fullFileName, kOnDisk);
    MxtString message(L"untouched");
    EXPECT_TRUE(app.plotLayout(MxtString(), MxtString(L"Layout1"), ZbDbPlotSettings::kWindow, 0, 10, 0, 5, message));
    EXPECT_EQ(state.plotJobs.size(), 1u);
    EXPECT_EQ(text(message), L"untouched");
    EXPECT_TRUE(app.closeActiveDocument(false));
    EXPECT_EQ(state.documents.size(), 1u);

    EXPECT_TRUE(plot.addMXPathToCADPrinterStyleSheetPath());
    EXPECT_TRUE(endsWith(state.preferences.printerStyleSheetPath, L";" + kMxSupport));
    EXPECT_TRUE(plot.addPathesToCADAppSupportPath(mxtStrings({L"C:\\MX\\Symbols"})));
    EXPECT_TRUE(endsWith(state.preferences.supportPath, L";C:\\MX\\Symbols"));
    EXPECT_NE(MxtGlobalStorage::g_pZorbSupportPaths, nullptr);

    EXPECT_EQ(host->referencesHeld(), 0);
    EXPECT_EQ(host->buffersHeld(), 0);
    ASSERT_TRUE(module.unload());
    EXPECT_TRUE(noneRegistered());
    delete MxtGlobalStorage::g_pZorbSupportPaths;
    MxtGlobalStorage::g_pZorbSupportPaths = nullptr;
}

}  // namespace

// Registration of the utility interfaces with the core library, and the core's shared settings.
#include "MXSettings"
#include "MxtCadPlotUtilitiesInterface"
#include "MxtGlobalStorage"
#include "MxtZorbAppUtilitiesInterface"

#include "core_test_support.h"

#include <memory>

namespace {

// Implementations that do nothing: what is under test is which object the core library holds.
class PlotUtilities : public MxtCadPlotUtilitiesInterface {
public:
    PlotUtilities() : MxtCadPlotUtilitiesInterface(this) {}
    bool addMXPathToCADPrinterStyleSheetPath() override { return false; }
    bool addPathesToCADAppSupportPath(const MxtArray<MxtString>&) override { return false; }
};

class AppUtilities : public MxtZorbAppUtilitiesInterface {
public:
    AppUtilities() : MxtZorbAppUtilitiesInterface(this) {}
    MxtString getCADAppSupportPath() override { return MxtString(); }
    bool setTemplateDwgPath(const MxtString&) override { return false; }
    bool loadMenus(const MxtArray<MxtString>&) override { return false; }
    bool getLinetypeFilePath(const MxtString&, MxtString&) override { return false; }
    bool closeActiveDocument(bool) override { return false; }
    bool openAndActivateDocument(const MxtString&, bool) override { return false; }
    bool plotLayout(const MxtString&, const MxtString&, ZbDbPlotSettings::PlotType, double, double, double, double,
                    MxtString&) override
    {
        return false;
    }
    bool unloadMenus(const MxtArray<MxtString>&) override { return false; }
};

using UtilityInterfaces = CoreTest;

TEST_F(UtilityInterfaces, ConstructingMakesAnImplementationCurrentAndDestroyingItLeavesNone)
{
    EXPECT_EQ(MxtZorbAppUtilitiesInterface::getImplementation(), nullptr);
    {
        AppUtilities app;
        EXPECT_EQ(MxtZorbAppUtilitiesInterface::getImplementation(), &app);
    }
    EXPECT_EQ(MxtZorbAppUtilitiesInterface::getImplementation(), nullptr);
}

TEST_F(UtilityInterfaces, TheLatestRegistrationIsCurrentAndAnOlderOneLeavesItInPlace)
{
    auto older = std::make_unique<PlotUtilities>();
    PlotUtilities newer;
    EXPECT_EQ(MxtCadPlotUtilitiesInterface::getImplementation(), &newer);
    older.reset();
    EXPECT_EQ(MxtCadPlotUtilitiesInterface::getImplementation(), &newer);
}

TEST(CoreSettings, SupportPathIsKeptByTheOneInstanceAndTheGlobalSupportPathsStartUnset)
{
    ASSERT_EQ(MXSettings::getInstance(), MXSettings::getInstance());
    MXSettings::getInstance()->setPathSupport(L"C:\\MX\\Support");
    EXPECT_EQ(MXSettings::getInstance()->getPathSupport(), MxtString(L"C:\\MX\\Support"));

    EXPECT_EQ(MxtGlobalStorage::g_pZorbSupportPaths, nullptr);
    MxtGlobalStorage::g_pZorbSupportPaths = new MxtString(L"C:\\MX\\Support");
    EXPECT_EQ(*MxtGlobalStorage::g_pZorbSupportPaths, MxtString(L"C:\\MX\\Support"));
}

}  // namespace

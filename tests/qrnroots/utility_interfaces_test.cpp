// Registration of the utility interfaces with the core library, and the core's shared settings.
#include "MXSettings"
#include "MxtCadPlotUtilitiesInterface"
#include "MxtGlobalStorage"
#include "MxtZorbAppUtilitiesInterface"

#include "core_test_support.h"

#include <memory>

namespace {

// Answers every call with what identifies it, so a test sees which object the core reached.
class PlotUtilities : public MxtCadPlotUtilitiesInterface {
public:
    explicit PlotUtilities(bool answer) : MxtCadPlotUtilitiesInterface(this), m_answer(answer) {}
    bool addMXPathToCADPrinterStyleSheetPath() override { return m_answer; }
    bool addPathesToCADAppSupportPath(const MxtArray<MxtString>& paths) override
    {
        received = paths;
        return m_answer;
    }
    MxtArray<MxtString> received;

private:
    bool m_answer;
};

class AppUtilities : public MxtZorbAppUtilitiesInterface {
public:
    AppUtilities() : MxtZorbAppUtilitiesInterface(this) {}
    MxtString getCADAppSupportPath() override { return L"C:\\Zorb\\Support"; }
    bool setTemplateDwgPath(const MxtString&) override { return true; }
    bool loadMenus(const MxtArray<MxtString>& menuFiles) override { return menuFiles.getLength() == 2; }
    bool getLinetypeFilePath(const MxtString&, MxtString&) override { return false; }
    bool closeActiveDocument(bool saveChanges) override { return saveChanges; }
    bool openAndActivateDocument(const MxtString&, bool activate) override { return activate; }
    bool plotLayout(const MxtString&, const MxtString&, ZbDbPlotSettings::PlotType plotType, double, double, double,
                    double, MxtString& errorMessage) override
    {
        errorMessage = L"plotted";
        return plotType == ZbDbPlotSettings::kWindow;
    }
    bool unloadMenus(const MxtArray<MxtString>&) override { return false; }
};

using UtilityInterfaces = CoreTest;

TEST_F(UtilityInterfaces, ConstructingMakesAnImplementationCurrentAndDestroyingItLeavesNone)
{
    EXPECT_EQ(MxtZorbAppUtilitiesInterface::getImplementation(), nullptr);
    {
        AppUtilities app;
        MxtZorbAppUtilitiesInterface* current = MxtZorbAppUtilitiesInterface::getImplementation();
        ASSERT_EQ(current, &app);
        EXPECT_EQ(current->getCADAppSupportPath(), MxtString(L"C:\\Zorb\\Support"));
        MxtString message;
        EXPECT_TRUE(current->plotLayout(L"", L"Layout1", ZbDbPlotSettings::kWindow, 0, 1, 0, 1, message));
        EXPECT_EQ(message, MxtString(L"plotted"));
        MxtArray<MxtString> menus;
        menus.add(L"mx.mnu");
        menus.add(L"mxsteel.mnu");
        EXPECT_TRUE(current->loadMenus(menus));
    }
    EXPECT_EQ(MxtZorbAppUtilitiesInterface::getImplementation(), nullptr);
}

TEST_F(UtilityInterfaces, TheLatestRegistrationIsCurrentAndAnOlderOneLeavesItInPlace)
{
    auto older = std::make_unique<PlotUtilities>(false);
    PlotUtilities newer(true);
    ASSERT_EQ(MxtCadPlotUtilitiesInterface::getImplementation(), &newer);
    older.reset();
    ASSERT_EQ(MxtCadPlotUtilitiesInterface::getImplementation(), &newer);

    MxtArray<MxtString> folders;
    folders.add(L"C:\\MX\\Support");
    EXPECT_TRUE(MxtCadPlotUtilitiesInterface::getImplementation()->addPathesToCADAppSupportPath(folders));
    ASSERT_EQ(newer.received.getLength(), 1);
    EXPECT_EQ(newer.received[0], MxtString(L"C:\\MX\\Support"));
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

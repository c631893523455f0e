// The start-up and shut-down of an MX product, tested on the simulated host with the test helper.
#include "mx_startup/startup.h"

#include "simtest/host_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

namespace {

const wchar_t kSupportFolder[] = L"C:\\Program Files\\MX\\Support";

mx_startup::Plan mxPlan()
{
    mx_startup::Plan plan;
    plan.supportFolders.add(kSupportFolder);
    plan.menuFile = L"C:\\Program Files\\MX\\Support\\MX";
    plan.menuGroup = L"MX";
    ZORBAppUtilities::ZORBMenuItem settings;
    settings.index = 0;
    settings.label = L"MX &Settings...";
    settings.macro = L"^C^C_MXSETTINGS";
    plan.items.add(settings);
    plan.menuBarPosition = 2;
    return plan;
}

std::shared_ptr<sim::MenuGroup> groupNamed(const sim::HostState& state, const std::wstring& name)
{
    for (const std::shared_ptr<sim::MenuGroup>& group : state.menuGroups)
        if (group->name == name)
            return group;
    return nullptr;
}

long callsOf(const std::vector<std::string>& calls, const std::string& method)
{
    return static_cast<long>(std::count(calls.begin(), calls.end(), method));
}

class StartupOnTheDefaultHost : public simtest::HostFixture {};

TEST_F(StartupOnTheDefaultHost, PutsTheFolderOnTheSupportPathAndTheMenuOnTheMenuBar)
{
    const mx_startup::Outcome outcome = mx_startup::startUp(mxPlan());

    EXPECT_TRUE(outcome.supportPathSet);
    EXPECT_TRUE(outcome.menuPlaced);
    EXPECT_NE(state().preferences.supportPath.find(kSupportFolder), std::wstring::npos);
    const std::shared_ptr<sim::MenuGroup> mx = groupNamed(state(), L"MX");
    ASSERT_NE(mx, nullptr);
    ASSERT_GT(state().menuBar.size(), 2u);
    EXPECT_EQ(state().menuBar[2].get(), mx->menus.front().get());
    EXPECT_EQ(mx->menus.front()->items.front()->label, L"MX &Settings...");
}

TEST_F(StartupOnTheDefaultHost, ASecondStartUpLoadsNothingAgain)
{
    mx_startup::startUp(mxPlan());
    const std::wstring supportPath = state().preferences.supportPath;
    clearHostCalls();

    mx_startup::startUp(mxPlan());

    EXPECT_EQ(callsOf(hostCalls(), "HostMenuGroups.LoadMenuFile"), 0);
    EXPECT_EQ(state().preferences.supportPath, supportPath);
}

TEST_F(StartupOnTheDefaultHost, AMenuBarThatRefusesTheMenuLeavesTheSupportPathSet)
{
    armFault(simtest::failingCall("HostPopupMenu.InsertInMenuBar"));

    const mx_startup::Outcome outcome = mx_startup::startUp(mxPlan());

    EXPECT_TRUE(outcome.supportPathSet);
    EXPECT_FALSE(outcome.menuPlaced);
    EXPECT_EQ(callsOf(hostCalls(), "HostPopupMenu.InsertInMenuBar"), 1);
}

TEST_F(StartupOnTheDefaultHost, ShutDownLeavesTheMenuBarAndGroupsAsTheyWere)
{
    const std::size_t menusOnTheBar = state().menuBar.size();

    mx_startup::startUp(mxPlan());
    EXPECT_TRUE(mx_startup::shutDown(mxPlan()));

    EXPECT_EQ(state().menuBar.size(), menusOnTheBar);
    EXPECT_EQ(groupNamed(state(), L"MX"), nullptr);
}

// A host of a plant whose MX installation lacks its menu file.
class StartupOnAPlantHost : public simtest::HostFixture {
protected:
    StartupOnAPlantHost() : HostFixture("plant-host.json") {}
};

TEST_F(StartupOnAPlantHost, AMissingMenuFileIsReportedAndTheFolderStillAdded)
{
    const mx_startup::Outcome outcome = mx_startup::startUp(mxPlan());

    EXPECT_TRUE(outcome.supportPathSet);
    EXPECT_FALSE(outcome.menuPlaced);
    EXPECT_EQ(state().preferences.supportPath, std::wstring(L"C:\\Zorb\\Support;") + kSupportFolder);
    EXPECT_EQ(state().menuBar.size(), 1u);
}

}  // namespace

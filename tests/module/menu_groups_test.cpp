// Whether a menu group is loaded, loading menu files and unloading their groups.
#include "ZORBAppUtilities.h"

#include "menu_host.h"

#include <gmock/gmock.h>

#include <algorithm>

using namespace module_testing;
using ::testing::ElementsAre;

namespace {

class MenuGroups : public MenuTest {};

std::vector<std::wstring> loadedNames(const sim::HostState& state)
{
    std::vector<std::wstring> names;
    for (const auto& group : state.menuGroups)
        names.push_back(group->name);
    return names;
}

}  // namespace

TEST_F(MenuGroups, ALoadedGroupIsFoundByItsExactNameOnly)
{
    loadGroup(kMXMenuFile);
    EXPECT_TRUE(ZORBAppUtilities::isMenuLoaded(MxtString(L"MX")));
    EXPECT_FALSE(ZORBAppUtilities::isMenuLoaded(MxtString(L"mx")));
    EXPECT_FALSE(ZORBAppUtilities::isMenuLoaded(MxtString(L"MX ")));
    EXPECT_FALSE(ZORBAppUtilities::isMenuLoaded(MxtString(L"MXTOOLS")));
    // Every group is copied before the names are read, and the walk stops at the first match.
    host().journal().clear();
    ZORBAppUtilities::isMenuLoaded(MxtString(L"ZORB"));
    EXPECT_THAT(typedHostCalls(), ElementsAre("sdk.zbedGetZorbWinApp()", "CWinApp.GetIDispatch()",
                                              "HostApplication.get_MenuGroups()",
                                              "HostMenuGroups.get_Count()", "HostMenuGroups.Item(VT_I4)",
                                              "HostMenuGroups.Item(VT_I4)", "HostMenuGroup.get_Name()"));
}

TEST_F(MenuGroups, APositionTheHostRefusesIsSkippedAndANullNameIsEmpty)
{
    loadGroup(kMXMenuFile);
    // The walk goes on past the refused first position to the group after it.
    armFault(failingCall("HostMenuGroups.Item", 1));
    EXPECT_TRUE(ZORBAppUtilities::isMenuLoaded(MxtString(L"MX")));
    armFault(failingCall("HostMenuGroups.Item", 1));
    EXPECT_FALSE(ZORBAppUtilities::isMenuLoaded(MxtString(L"ZORB")));
    host().clearFaults();
    armFault(answering("HostMenuGroup.get_Name", nullAnswer()));
    EXPECT_TRUE(ZORBAppUtilities::isMenuLoaded(MxtString(L"")));

    // A position left empty is kept in the copy: a group found before it is found all the same.
    host().clearFaults();
    armFault(withheldObject("HostMenuGroups.Item", 2));
    EXPECT_TRUE(ZORBAppUtilities::isMenuLoaded(MxtString(L"ZORB")));
}

TEST_F(MenuGroups, LoadingLoadsEachFileWhoseGroupIsNotLoadedAndPassesOverFailures)
{
    loadGroup(kMXToolsMenuFile);
    EXPECT_TRUE(
        ZORBAppUtilities::loadMenus(mxtStrings({L"C:\\nowhere\\NOPE", kMXToolsMenuFile, kMXMenuFile})));
    EXPECT_THAT(loadedNames(state()), ElementsAre(L"ZORB", L"MXTOOLS", L"MX"));
    // The whole path goes to the host with an empty base-menu argument.
    const std::vector<std::string> calls = typedHostCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "HostMenuGroups.LoadMenuFile(VT_BSTR, VT_EMPTY)"), 2);
    EXPECT_EQ(host().journal().entries().back().arguments[0].value, "C:\\Program Files\\MX\\Support\\MX");
    EXPECT_TRUE(ZORBAppUtilities::loadMenus(MxtArray<MxtString>()));

    // Only a refused read of the groups ends the operation at once. One that gives no collection
    // goes on to the loaded test of the first file, whose load then has nothing to load into.
    for (const sim::Fault& fault : {failingCall("HostApplication.get_MenuGroups", 1),
                                    withheldObject("HostApplication.get_MenuGroups", 1)}) {
        host().clearFaults();
        host().journal().clear();
        armFault(fault);
        EXPECT_TRUE(ZORBAppUtilities::loadMenus(mxtStrings({L"C:\\nowhere\\NOPE"})));
        const std::vector<std::string> calls = hostCalls();
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "HostApplication.get_MenuGroups"),
                  fault.kind == sim::FaultKind::nullObject ? 2 : 1);
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "HostMenuGroups.LoadMenuFile"), 0);
    }
}

TEST_F(MenuGroups, AGroupTheHostNamesInLowerCaseIsLoadedAgainOnEveryCall)
{
    state().menuFiles[L"D:\\Menus\\tools"] =
        std::make_shared<sim::MenuGroup>(sim::MenuGroup{L"tools", {}, {}});
    ZORBAppUtilities::loadMenus(mxtStrings({L"D:\\Menus\\tools"}));
    host().journal().clear();
    // Asked for "TOOLS" exactly, the loaded "tools" is not found; the host then refuses the load.
    EXPECT_TRUE(ZORBAppUtilities::loadMenus(mxtStrings({L"D:\\Menus\\tools"})));
    EXPECT_EQ(host().journal().entries().back().method, "HostMenuGroups.LoadMenuFile");
    EXPECT_EQ(host().journal().entries().back().status, E_FAIL);
    EXPECT_THAT(loadedNames(state()), ElementsAre(L"ZORB", L"tools"));
}

TEST_F(MenuGroups, UnloadingFindsGroupsWithoutRegardToCaseAndAPathNamedTwiceEndsFalse)
{
    loadGroup(kMXMenuFile);
    loadGroup(kMXToolsMenuFile);
    // A group unloaded by an earlier path still tells its name while the later paths are looked for;
    // a path whose only backslash comes first names the group after it.
    EXPECT_TRUE(ZORBAppUtilities::unloadMenus(mxtStrings({L"\\MX", L"NOTLOADED", L"C:\\Menus\\mxtools"})));
    EXPECT_THAT(loadedNames(state()), ElementsAre(L"ZORB"));
    // Each path's search ends at its group: two names read for the first path, three for the others.
    const std::vector<std::string> calls = hostCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "HostMenuGroup.get_Name"), 2 + 3 + 3);
    EXPECT_TRUE(ZORBAppUtilities::unloadMenus(MxtArray<MxtString>()));

    // The groups are copied before unloading: the second path reaches the unloaded group again,
    // whose unload the host refuses.
    loadGroup(kMXMenuFile);
    EXPECT_FALSE(ZORBAppUtilities::unloadMenus(mxtStrings({L"C:\\Menus\\MX", L"D:\\Other\\mx"})));
    EXPECT_THAT(loadedNames(state()), ElementsAre(L"ZORB"));
    EXPECT_EQ(host().journal().entries().back().method, "HostMenuGroup.Unload");
    EXPECT_EQ(host().journal().entries().back().status, E_FAIL);
}

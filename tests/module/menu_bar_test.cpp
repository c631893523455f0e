// The MX menus on the host's menu bar: adding with items, removing, counting and finding by tag.
#include "ZORBAppUtilities.h"

#include "menu_host.h"

#include "support/automation_failure.h"
#include "support/faults.h"

#include <gmock/gmock.h>

#include <functional>
#include <vector>

using namespace module_testing;
using ::testing::ElementsAre;

namespace {

class MenuBar : public MenuTest {
protected:
    MenuBar()
    {
        mx = loadGroup(kMXMenuFile);
        firstMenu = mx->menus[0];
    }

    static MxtArray<ZORBAppUtilities::ZORBMenuItem>
    items(std::initializer_list<ZORBAppUtilities::ZORBMenuItem> list)
    {
        MxtArray<ZORBAppUtilities::ZORBMenuItem> array;
        for (const auto& item : list)
            array.add(item);
        return array;
    }

    std::shared_ptr<sim::MenuGroup> mx;
    std::shared_ptr<sim::PopupMenu> firstMenu;
};

}  // namespace

TEST_F(MenuBar, AddingPutsTheGroupsFirstMenuWithItsNewItemsOnTheBarAtThePosition)
{
    // On a host that adds items disabled, the items are enabled all the same.
    state().behaviour.newMenuItemsEnabled = false;
    const size_t before = state().menuBar.size();
    ZORBAppUtilities::addMenuToMenuBar(
        MxtString(L"mx"), items({{0, L"&Beam Tools", L"^C^C_MXBT"}, {2, L"&Grid", L"^C^C_MXGRID"}}), 1);
    ASSERT_EQ(state().menuBar.size(), before + 1);
    EXPECT_EQ(state().menuBar[1], firstMenu);
    EXPECT_EQ(firstMenu->items[0]->label, L"&Beam Tools");
    EXPECT_EQ(firstMenu->items[2]->macro, L"^C^C_MXGRID");
    EXPECT_TRUE(firstMenu->items[0]->enabled);
    EXPECT_TRUE(firstMenu->items[2]->enabled);
    const std::vector<std::string> calls = typedHostCalls();
    EXPECT_THAT(std::vector<std::string>(calls.end() - 6, calls.end()),
                ElementsAre("HostPopupMenu.AddMenuItem(VT_I4, VT_BSTR, VT_BSTR)",
                            "HostPopupMenuItem.put_Enabled(VT_BOOL)",
                            "HostPopupMenu.AddMenuItem(VT_I4, VT_BSTR, VT_BSTR)",
                            "HostPopupMenuItem.put_Enabled(VT_BOOL)", "HostPopupMenu.get_OnMenuBar()",
                            "HostPopupMenu.InsertInMenuBar(VT_I4)"));
}

TEST_F(MenuBar, AddingAgainAddsTheItemsAgainButDoesNotInsertTheMenuTwice)
{
    const auto once = items({{0, L"&Grid", L"^C^C_MXGRID"}});
    ZORBAppUtilities::addMenuToMenuBar(MxtString(L"MX"), once, 0);
    ZORBAppUtilities::addMenuToMenuBar(MxtString(L"MX"), once, 0);
    EXPECT_EQ(firstMenu->items[0]->label, L"&Grid");
    EXPECT_EQ(firstMenu->items[1]->label, L"&Grid");
    EXPECT_EQ(std::count(state().menuBar.begin(), state().menuBar.end(), firstMenu), 1);
}

TEST_F(MenuBar, AnItemTheHostRefusesIsLeftOutAndTheOthersAreAdded)
{
    armFault(failingCall("HostPopupMenu.AddMenuItem", 1));
    const size_t count = firstMenu->items.size();
    ZORBAppUtilities::addMenuToMenuBar(
        MxtString(L"MX"), items({{0, L"&One", L"_one"}, {99, L"&Beyond", L"_far"}, {0, L"&Two", L"_two"}}),
        0);
    ASSERT_EQ(firstMenu->items.size(), count + 1);
    EXPECT_EQ(firstMenu->items[0]->label, L"&Two");
    EXPECT_EQ(state().menuBar[0], firstMenu);
}

TEST_F(MenuBar, UnknownGroupsAndGroupsWithoutMenusChangeNothingAndRaiseNothing)
{
    mx->menus.clear();
    const sim::HostState before = sim::clone(state());
    ZORBAppUtilities::addMenuToMenuBar(MxtString(L"NOPE"), items({{0, L"&A", L"_a"}}), 0);
    ZORBAppUtilities::addMenuToMenuBar(MxtString(L"MX"), items({{0, L"&A", L"_a"}}), 0);
    ZORBAppUtilities::removeMenuFromMenuBar(MxtString(L"MX"));
    EXPECT_TRUE(state() == before);
}

// Without the application no group is looked for: the host is asked for the application once.
TEST_F(MenuBar, WithoutTheApplicationNothingElseIsAsked)
{
    armFault(faultOfKind(sim::FaultKind::noDispatch));
    for (const auto& operation : std::vector<std::function<void()>>{
             [&] { ZORBAppUtilities::addMenuToMenuBar(MxtString(L"MX"), items({{0, L"&A", L"_a"}}), 0); },
             [] { ZORBAppUtilities::removeMenuFromMenuBar(MxtString(L"MX")); },
             [] { ZORBAppUtilities::combineMenusOnMenuBar(MxtString(L"MX"), mxtStrings({L"MX"}), 0); }}) {
        clearHostCalls();
        operation();
        EXPECT_THAT(hostCalls(), ElementsAre("sdk.zbedGetZorbWinApp", "CWinApp.GetIDispatch"));
    }
}

// Without a menu bar no menu is on it: none counted, none found, and nothing raised.
TEST_F(MenuBar, WithoutAMenuBarNoneIsCountedOrFound)
{
    armFault(withheldObject("HostApplication.get_MenuBar"));
    EXPECT_EQ(ZORBAppUtilities::getNumberOfMenusOnMenuBar(), 0);
    EXPECT_FALSE(ZORBAppUtilities::isMenuLoadedOnMenuBar(MxtString(L"")));
}

// Adding inserts unless the flag is exactly all bits set; removing removes when any bit is set.
// A flag of 1 makes both act, and the host refuses both: the failure reaches the caller.
TEST_F(MenuBar, TheTwoFlagTestsDifferAndTheHostsRefusalReachesTheCaller)
{
    state().menuBar.push_back(firstMenu);
    armFault(answering("HostPopupMenu.get_OnMenuBar", rawNumber(1)));
    EXPECT_EQ(failureOf([] { ZORBAppUtilities::addMenuToMenuBar(MxtString(L"MX"), {}, 0); }).Error(), E_FAIL);
    EXPECT_EQ(host().journal().entries().back().method, "HostPopupMenu.InsertInMenuBar");

    state().menuBar.pop_back();
    EXPECT_EQ(failureOf([] { ZORBAppUtilities::removeMenuFromMenuBar(MxtString(L"MX")); }).Error(), E_FAIL);
    EXPECT_EQ(host().journal().entries().back().method, "HostPopupMenu.RemoveFromMenuBar");

    host().clearFaults();
    host().journal().clear();
    ZORBAppUtilities::removeMenuFromMenuBar(MxtString(L"MX"));
    EXPECT_EQ(hostCalls().back(), "HostPopupMenu.get_OnMenuBar");
}

TEST_F(MenuBar, MenusAreCountedAndFoundByTheirUpperCasedTag)
{
    const long count = static_cast<long>(state().menuBar.size());
    EXPECT_EQ(ZORBAppUtilities::getNumberOfMenusOnMenuBar(), count);
    state().menuBar.push_back(mx->menus[1]);  // tagged PM_MX_MAIN
    EXPECT_EQ(ZORBAppUtilities::getNumberOfMenusOnMenuBar(), count + 1);
    EXPECT_TRUE(ZORBAppUtilities::isMenuLoadedOnMenuBar(MxtString(L"MX_MAIN")));
    EXPECT_FALSE(ZORBAppUtilities::isMenuLoadedOnMenuBar(MxtString(L"mx_main")));
    EXPECT_FALSE(ZORBAppUtilities::isMenuLoadedOnMenuBar(MxtString(L"M&X")));  // a name, not a tag
    EXPECT_TRUE(ZORBAppUtilities::isMenuLoadedOnMenuBar(MxtString(L"")));

    mx->menus[1]->tag = L"pm_mx_main";
    EXPECT_TRUE(ZORBAppUtilities::isMenuLoadedOnMenuBar(MxtString(L"PM_MX")));
    state().menuBar.clear();
    EXPECT_FALSE(ZORBAppUtilities::isMenuLoadedOnMenuBar(MxtString(L"")));
}


#if AUTOMATION_HAS_TEST_HOOKS
// The menu bar's positions are passed as made, not copied: a variant copy that would fail is never
// reached.
TEST_F(MenuBar, TheMenuBarsPositionsAreNotCopied)
{
    state().menuBar.push_back(mx->menus[1]);  // tagged PM_MX_MAIN
    automation_testing::failVariantCopy(1, kInjectedStatus);
    const bool found = ZORBAppUtilities::isMenuLoadedOnMenuBar(MxtString(L"MX_MAIN"));
    automation_testing::failVariantCopy(0, S_OK);
    EXPECT_TRUE(found);
}
#endif

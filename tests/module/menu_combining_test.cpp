// Several MX menus combined into one new menu on the menu bar.
#include "ZORBAppUtilities.h"

#include "menu_host.h"

#include <gmock/gmock.h>

using namespace module_testing;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace {

class MenuCombining : public MenuTest {
protected:
    MenuCombining()
    {
        mx = loadGroup(kMXMenuFile);
        tools = loadGroup(kMXToolsMenuFile);
    }

    // The menu the operation added: the last of the first group.
    std::shared_ptr<sim::PopupMenu> combined() { return state().menuGroups[0]->menus.back(); }

    std::shared_ptr<sim::MenuGroup> mx;
    std::shared_ptr<sim::MenuGroup> tools;
};

sim::PopupMenuItem item(sim::ItemType type, std::wstring label,
                        std::shared_ptr<sim::PopupMenu> subMenu = nullptr)
{
    sim::PopupMenuItem made;
    made.type = type;
    made.label = std::move(label);
    made.macro = made.type == sim::ItemType::command ? L"_" + made.label : L"";
    made.subMenu = std::move(subMenu);
    return made;
}

std::shared_ptr<sim::PopupMenu> menuOf(std::wstring name, std::vector<sim::PopupMenuItem> items)
{
    auto menu = std::make_shared<sim::PopupMenu>();
    menu->name = std::move(name);
    for (auto& entry : items)
        menu->items.push_back(std::make_shared<sim::PopupMenuItem>(std::move(entry)));
    return menu;
}

}  // namespace

TEST_F(MenuCombining, EachSourceBecomesASubmenuOfANewMenuInTheFirstGroupOnTheBar)
{
    const size_t zorbMenus = state().menuGroups[0]->menus.size();
    state().menuBar.push_back(tools->menus[0]);
    ZORBAppUtilities::combineMenusOnMenuBar(MxtString(L"MX &All"), mxtStrings({L"mxtools", L"NOPE", L"MX"}),
                                            2);

    ASSERT_EQ(state().menuGroups[0]->menus.size(), zorbMenus + 1);
    EXPECT_EQ(combined()->name, L"MX &All");
    EXPECT_THAT(entriesOf(*combined()), ElementsAre(L"MX &Tools>", L"MX Object Snap>"));
    EXPECT_EQ(state().menuBar[2], combined());
    // A source on the menu bar is taken off it; one that was not is left as it was.
    EXPECT_EQ(std::count(state().menuBar.begin(), state().menuBar.end(), tools->menus[0]), 0);
    EXPECT_EQ(mx->menus[0]->items.size(), 10u);
    const std::vector<std::string> calls = typedHostCalls();
    EXPECT_NE(std::find(calls.begin(), calls.end(), "HostPopupMenus.AddMenu(VT_BSTR)"), calls.end());
    EXPECT_NE(std::find(calls.begin(), calls.end(), "HostPopupMenu.put_Name(VT_BSTR)"), calls.end());
    EXPECT_EQ(calls.back(), "HostPopupMenu.InsertInMenuBar(VT_I4)");
}

// Copied into the fresh menu (count 0), every separator of the first source goes to index 0 of its
// copy while commands keep their indexes; nested submenus are appended at the end of their copy.
TEST_F(MenuCombining, SeparatorsGoToOneIndexAndNestedSubmenusAreCopied)
{
    mx->menus[0] = menuOf(L"Nested", {item(sim::ItemType::command, L"A"), item(sim::ItemType::separator, L""),
                                      item(sim::ItemType::command, L"B"),
                                      item(sim::ItemType::submenu, L"Deeper",
                                           menuOf(L"Deeper", {item(sim::ItemType::command, L"C")})),
                                      item(sim::ItemType::separator, L"")});
    // Copies are left enabled or not as the host makes them.
    state().behaviour.newMenuItemsEnabled = false;
    ZORBAppUtilities::combineMenusOnMenuBar(MxtString(L"Combined"), mxtStrings({L"MX"}), 0);
    const auto copy = combined()->items[0]->subMenu;
    ASSERT_NE(copy, nullptr);
    EXPECT_THAT(entriesOf(*copy), ElementsAre(L"---", L"---", L"A", L"B", L"Deeper>"));
    EXPECT_FALSE(copy->items[2]->enabled);
    EXPECT_EQ(copy->items[2]->macro, L"_A");
    EXPECT_THAT(entriesOf(*copy->items[4]->subMenu), ElementsAre(L"C"));
}

TEST_F(MenuCombining, TwoCallsAddTwoMenusAndNoSourceNamesGiveAnEmptyMenu)
{
    const size_t zorbMenus = state().menuGroups[0]->menus.size();
    ZORBAppUtilities::combineMenusOnMenuBar(MxtString(L"Empty"), MxtArray<MxtString>(), 0);
    ZORBAppUtilities::combineMenusOnMenuBar(MxtString(L"Empty"), MxtArray<MxtString>(), 0);
    ASSERT_EQ(state().menuGroups[0]->menus.size(), zorbMenus + 2);
    EXPECT_TRUE(combined()->items.empty());
    EXPECT_EQ(state().menuBar[0], combined());

    // A name that matches no group leaves no trace: the new menu is not even asked its count.
    host().journal().clear();
    ZORBAppUtilities::combineMenusOnMenuBar(MxtString(L"Empty"), mxtStrings({L"NOPE"}), 0);
    EXPECT_TRUE(combined()->items.empty());
    const std::vector<std::string> calls = hostCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "HostPopupMenu.get_Count"), 0);
}

TEST_F(MenuCombining, AFailureIsSwallowedAndWhatWasDoneStays)
{
    armFault(failingCall("HostPopupMenu.InsertInMenuBar"));
    ZORBAppUtilities::combineMenusOnMenuBar(MxtString(L"Kept"), mxtStrings({L"MX"}), 0);
    EXPECT_EQ(combined()->name, L"Kept");
    EXPECT_EQ(std::count(state().menuBar.begin(), state().menuBar.end(), combined()), 0);

    // A failure inside one copy ends that copy only: the next source is still copied.
    host().clearFaults();
    armFault(failingCall("HostPopupMenuItem.get_Type", 1));
    ZORBAppUtilities::combineMenusOnMenuBar(MxtString(L"Partly"), mxtStrings({L"MX", L"MXTOOLS"}), 0);
    EXPECT_THAT(entriesOf(*combined()), ElementsAre(L"MX Object Snap>", L"MX &Tools>"));
    EXPECT_TRUE(combined()->items[0]->subMenu->items.empty());
    EXPECT_EQ(combined()->items[1]->subMenu->items.size(), tools->menus[0]->items.size());
}

// A source item, or an item's submenu, that the host withholds ends that source's copy there: the
// rest of it is not copied, and the source stays on the menu bar. (The host appends items beyond
// the end, so that a copy going on would show.)
TEST_F(MenuCombining, AWithheldItemOrSubmenuEndsTheCopyAndTheSourceStaysOnTheBar)
{
    state().behaviour.menuIndexBeyondEnd = sim::BeyondEnd::append;
    struct Row {
        const char* withheld;
        int nth;
        std::vector<std::wstring> copied;
    };
    for (const Row& row : {Row{"HostPopupMenu.Item", 2, {L"A"}}, Row{"HostPopupMenuItem.get_SubMenu", 1, {L"A", L"B"}}}) {
        SCOPED_TRACE(row.withheld);
        mx->menus[0] = menuOf(L"Source", {item(sim::ItemType::command, L"A"), item(sim::ItemType::command, L"B"),
                                          item(sim::ItemType::submenu, L"Deeper",
                                               menuOf(L"Deeper", {item(sim::ItemType::command, L"C")})),
                                          item(sim::ItemType::command, L"D")});
        state().menuBar = {mx->menus[0]};
        host().clearFaults();
        armFault(withheldObject(row.withheld, row.nth));
        ZORBAppUtilities::combineMenusOnMenuBar(MxtString(L"Combined"), mxtStrings({L"MX"}), 0);
        ASSERT_EQ(combined()->items.size(), 1u);
        EXPECT_THAT(entriesOf(*combined()->items[0]->subMenu), ElementsAreArray(row.copied));
        EXPECT_EQ(std::count(state().menuBar.begin(), state().menuBar.end(), mx->menus[0]), 1);
    }
}

// A submenu the host does not give back copies nothing, yet the source still leaves the menu bar.
TEST_F(MenuCombining, ACopyTheHostDoesNotGiveBackReadsNoItemYetTheSourceLeavesTheBar)
{
    state().menuBar = {mx->menus[0]};
    armFault(withheldObject("HostPopupMenu.AddSubMenu"));
    ZORBAppUtilities::combineMenusOnMenuBar(MxtString(L"Combined"), mxtStrings({L"MX"}), 0);
    EXPECT_EQ(std::count(state().menuBar.begin(), state().menuBar.end(), mx->menus[0]), 0);
    const std::vector<std::string> calls = hostCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "HostPopupMenuItem.get_Label"), 0);
}

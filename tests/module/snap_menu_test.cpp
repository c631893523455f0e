// The MX entries of the object-snap cursor menu: where the block goes, what counts as present, and
// the removal that deliberately leaves the block's last entry.
#include "ZORBAppUtilities.h"

#include "menu_host.h"

#include "support/automation_failure.h"

#include "MxtMemoryControllerController"

#include <gmock/gmock.h>

using namespace module_testing;
using ::testing::ElementsAre;

namespace {

class SnapMenu : public MenuTest {
protected:
    SnapMenu() : mx(loadGroup(kMXMenuFile)), snap(mx->menus[0]) {}

    std::vector<std::wstring> entries() { return entriesOf(*snap); }

    std::shared_ptr<sim::MenuGroup> mx;
    std::shared_ptr<sim::PopupMenu> snap;  // "MX Object Snap", tagged PM_0001, 10 items
};

const MxtArray<MxtString> kLabels = mxtStrings({L"MX &Beam Axis", L"MX &Plate Corner", L"MX &Hole"});
const MxtArray<MxtString> kMacros = mxtStrings({L"_MXAXIS", L"_MXCORNER", L"_MXHOLE"});

}  // namespace

TEST_F(SnapMenu, ABlockOfNewEntriesGoesBeforeTheLastItemsLedByASeparator)
{
    EXPECT_TRUE(ZORBAppUtilities::addMenuItemsToSnapMenu(kLabels, kMacros, 2));
    EXPECT_THAT(entries(), ElementsAre(L"&Endpoint", L"&Midpoint", L"&Intersection", L"---", L"&Center",
                                       L"&Perpendicular", L"Nea&rest", L"---", L"---", L"MX &Beam Axis",
                                       L"MX &Plate Corner", L"MX &Hole", L"&None", L"&Osnap Settings..."));
    EXPECT_EQ(snap->items[10]->macro, L"_MXCORNER");
    const std::vector<std::string> calls = typedHostCalls();
    EXPECT_THAT(std::vector<std::string>(calls.end() - 4, calls.end()),
                ElementsAre("HostPopupMenu.AddSeparator(VT_I4)",
                            "HostPopupMenu.AddMenuItem(VT_I4, VT_BSTR, VT_BSTR)",
                            "HostPopupMenu.AddMenuItem(VT_I4, VT_BSTR, VT_BSTR)",
                            "HostPopupMenu.AddMenuItem(VT_I4, VT_BSTR, VT_BSTR)"));
    EXPECT_EQ(host().journal().entries()[calls.size() - 4].arguments[0].value, "8");

    // Present entries are recognised by their macro, in any letter case.
    EXPECT_TRUE(ZORBAppUtilities::addMenuItemsToSnapMenu(kLabels, kMacros, 2));
    EXPECT_EQ(snap->items.size(), 14u);
}

TEST_F(SnapMenu, WhenSomeEntriesArePresentOnlyTheOthersAreAddedWithoutASeparator)
{
    EXPECT_TRUE(ZORBAppUtilities::addMenuItemsToSnapMenu(mxtStrings({L"Axis", L"End", L"Hole"}),
                                                         mxtStrings({L"_MXAXIS", L"_ENDP", L"_MXHOLE"}), 0));
    const std::vector<std::wstring> after = entries();
    EXPECT_THAT(std::vector<std::wstring>(after.end() - 3, after.end()),
                ElementsAre(L"&Osnap Settings...", L"Axis", L"Hole"));
}

TEST_F(SnapMenu, AnEmptyMacroIsPresentAsSoonAsAnItemHasNoMacro)
{
    armFault(answering("HostPopupMenuItem.get_Macro", nullAnswer(), 3));
    EXPECT_TRUE(ZORBAppUtilities::addMenuItemsToSnapMenu(mxtStrings({L"Nothing"}), mxtStrings({L""}), 0));
    EXPECT_EQ(snap->items.size(), 10u);
}

TEST_F(SnapMenu, RemovingChecksTheBlockByLabelAndDeletesFromOneBeforeIt)
{
    ZORBAppUtilities::addMenuItemsToSnapMenu(kLabels, kMacros, 2);
    host().journal().clear();
    EXPECT_TRUE(ZORBAppUtilities::removeMenuItemsFromSnapMenu(
        mxtStrings({L"mx &beam axis", L"MX &PLATE CORNER", L"MX &Hole"}), 2));
    // The separator and the first two entries went; the last entry of the block stays.
    const std::vector<std::wstring> after = entries();
    EXPECT_THAT(std::vector<std::wstring>(after.begin() + 7, after.end()),
                ElementsAre(L"---", L"MX &Hole", L"&None", L"&Osnap Settings..."));
    const std::vector<sim::JournalEntry>& calls = host().journal().entries();
    std::vector<std::string> deletedAt;
    for (size_t i = 1; i < calls.size(); ++i)
        if (calls[i].method == "HostPopupMenuItem.Delete")
            deletedAt.push_back(calls[i - 1].arguments[0].value);
    EXPECT_THAT(deletedAt, ElementsAre("8", "8", "8"));
}

// An item the host leaves empty is passed over, in the check of the block and in the deletion alike.
TEST_F(SnapMenu, AnItemTheHostWithholdsIsPassedOverWhenRemoving)
{
    ZORBAppUtilities::addMenuItemsToSnapMenu(kLabels, kMacros, 2);
    armFault(withheldObject("HostPopupMenu.Item", 1));  // the block's first label goes unchecked
    armFault(withheldObject("HostPopupMenu.Item", 4));  // the first deletion finds nothing to delete
    EXPECT_TRUE(ZORBAppUtilities::removeMenuItemsFromSnapMenu(kLabels, 2));
    const std::vector<std::wstring> after = entries();
    EXPECT_THAT(std::vector<std::wstring>(after.begin() + 7, after.end()),
                ElementsAre(L"---", L"MX &Plate Corner", L"MX &Hole", L"&None", L"&Osnap Settings..."));
}

// Many entries at once must not cost a regrowth of the list of new ones every few entries.
TEST_F(SnapMenu, TheNewEntriesAreListedInOneAllocationWhateverTheirNumber)
{
    const MxtArray<MxtString> labels = numberedTexts(L"Entry ", 40);
    const MxtArray<MxtString> macros = numberedTexts(L"_ENTRY", 40);
    const std::size_t before = MxtMemoryControllerController::allocationCount();
    EXPECT_TRUE(ZORBAppUtilities::addMenuItemsToSnapMenu(labels, macros, 0));
    EXPECT_EQ(MxtMemoryControllerController::allocationCount() - before, 1u);
    EXPECT_EQ(snap->items.size(), 10u + 1u + 40u);
}

TEST_F(SnapMenu, ABlockThatIsNotThereIsLeftAloneAndTheAnswerIsStillTrue)
{
    ZORBAppUtilities::addMenuItemsToSnapMenu(kLabels, kMacros, 2);
    EXPECT_TRUE(ZORBAppUtilities::removeMenuItemsFromSnapMenu(
        mxtStrings({L"MX &Beam Axis", L"Something else", L"MX &Hole"}), 2));
    EXPECT_EQ(snap->items.size(), 14u);
}

TEST_F(SnapMenu, NoLabelsTouchNoHostObjectAndNoMXGroupGivesFalse)
{
    state().menuGroups.pop_back();
    host().journal().clear();
    EXPECT_TRUE(ZORBAppUtilities::addMenuItemsToSnapMenu(MxtArray<MxtString>(), MxtArray<MxtString>(), 0));
    EXPECT_TRUE(ZORBAppUtilities::removeMenuItemsFromSnapMenu(MxtArray<MxtString>(), 0));
    EXPECT_TRUE(hostCalls().empty());
    EXPECT_FALSE(ZORBAppUtilities::addMenuItemsToSnapMenu(kLabels, kMacros, 0));
    EXPECT_FALSE(ZORBAppUtilities::removeMenuItemsFromSnapMenu(kLabels, 0));
}

TEST_F(SnapMenu, TheSnapMenuIsTheFirstUntaggedOrPM0001MenuOfTheMXGroupInAnyCase)
{
    mx->name = L"mx";
    std::swap(mx->menus[0], mx->menus[1]);  // PM_MX_MAIN now comes first
    snap->tag = L"pm_0001";
    const auto addOne = [] {
        return ZORBAppUtilities::addMenuItemsToSnapMenu(mxtStrings({L"X"}), mxtStrings({L"_X"}), 0);
    };
    EXPECT_TRUE(addOne());
    EXPECT_EQ(snap->items.back()->label, L"X");

    // An untagged menu before it wins.
    mx->menus[0]->tag = L"";
    EXPECT_TRUE(addOne());
    EXPECT_EQ(mx->menus[0]->items.back()->label, L"X");

    // With no menu tagged so, the group's last menu is taken.
    mx->menus[0]->tag = L"OTHER";
    snap->tag = L"OTHER";
    EXPECT_TRUE(addOne());
    EXPECT_EQ(mx->menus.back()->items.back()->label, L"X");
}

// The first group named MX is the one searched, and a menu position the host leaves empty is passed
// over; a group position left empty ends the search with nothing found.
TEST_F(SnapMenu, TheFirstMXGroupIsSearchedPastAnEmptyMenuPositionButNotPastAnEmptyGroupPosition)
{
    loadGroup(kMXToolsMenuFile)->name = L"Mx";
    std::swap(mx->menus[0], mx->menus[1]);
    armFault(withheldObject("HostPopupMenus.Item", 1));
    EXPECT_TRUE(ZORBAppUtilities::addMenuItemsToSnapMenu(mxtStrings({L"X"}), mxtStrings({L"_X"}), 0));
    EXPECT_EQ(snap->items.back()->label, L"X");

    const size_t held = snap->items.size();
    host().clearFaults();
    armFault(withheldObject("HostMenuGroups.Item", 1));
    EXPECT_FALSE(ZORBAppUtilities::addMenuItemsToSnapMenu(kLabels, kMacros, 0));
    EXPECT_EQ(snap->items.size(), held);
}

// A snap menu with no items holds no macro, so every entry is new.
TEST_F(SnapMenu, EveryEntryIsAddedToASnapMenuWithoutItems)
{
    snap->items.clear();
    EXPECT_TRUE(ZORBAppUtilities::addMenuItemsToSnapMenu(kLabels, kMacros, 0));
    EXPECT_THAT(entries(), ::testing::IsSupersetOf({L"MX &Beam Axis", L"MX &Plate Corner", L"MX &Hole"}));
}

// A position before the menu's start is the host's to refuse, and its refusal reaches the caller.
TEST_F(SnapMenu, APositionBeforeTheMenusStartIsRefusedByTheHost)
{
    EXPECT_EQ(failureOf([] { ZORBAppUtilities::removeMenuItemsFromSnapMenu(kLabels, 10); }).Error(),
              DISP_E_BADINDEX);
}

#if AUTOMATION_HAS_TEST_HOOKS
// Positions are copied for each call: a copy that fails inside the lookup gives no snap menu, so the
// answer is false and nothing is raised or added.
TEST_F(SnapMenu, APositionCopyThatFailsInTheLookupGivesFalse)
{
    automation_testing::failVariantCopy(1, kInjectedStatus);
    const bool added = ZORBAppUtilities::addMenuItemsToSnapMenu(kLabels, kMacros, 2);
    automation_testing::failVariantCopy(0, S_OK);
    EXPECT_FALSE(added);
    EXPECT_EQ(snap->items.size(), 10u);
}
#endif

// The MX toolbars: visibility and placement, flyouts, and replacing a button.
#include "ZORBAppUtilities.h"

#include "menu_host.h"

#include "support/automation_failure.h"

#include "sim/state_json.h"

#include <gmock/gmock.h>

#include <string>
#include <tuple>
#include <utility>

using namespace module_testing;
using ::testing::ElementsAre;

namespace {

class Toolbars : public MenuTest {
protected:
    Toolbars() : mx(loadGroup(kMXMenuFile)) {}

    sim::Toolbar& toolbar(size_t position) { return *mx->toolbars[position]; }

    // Calls showHideToolbar with the placement held here.
    bool showHide(bool show, const wchar_t* group, const wchar_t* tag)
    {
        MxtString groupName(group);
        MxtString toolbarName(tag);
        return ZORBAppUtilities::showHideToolbar(show, groupName, toolbarName, left, top, dockStatus, rows);
    }

    std::vector<std::wstring> buttonTags(size_t position)
    {
        std::vector<std::wstring> tags;
        for (const auto& button : toolbar(position).buttons)
            tags.push_back(button->tag);
        return tags;
    }

    std::shared_ptr<sim::MenuGroup> mx;  // toolbars TB_MX_MAIN (shown), TB_MX_VIEWS, TB_MX_CONNECTIONS (hidden)
    long left = -1, top = -1, dockStatus = -1, rows = -1;
};

}  // namespace

TEST_F(Toolbars, HidingAShownToolbarFillsItsPlaceAndASecondHideLeavesItAlone)
{
    toolbar(0).dockStatus = 4;
    toolbar(0).left = 120;
    toolbar(0).top = 80;
    toolbar(0).floatingRows = 3;
    EXPECT_FALSE(showHide(false, L"mx", L"tb_mx_main"));
    EXPECT_FALSE(toolbar(0).visible);
    EXPECT_EQ((std::vector<long>{left, top, dockStatus, rows}), (std::vector<long>{120, 80, 4, 3}));
    const std::vector<std::string> calls = typedHostCalls();
    // The walk goes on over the group's two other toolbars afterwards.
    EXPECT_THAT(std::vector<std::string>(calls.end() - 11, calls.end() - 4),
                ElementsAre("HostToolbar.get_Visible()", "HostToolbar.get_DockStatus()", "HostToolbar.put_Visible(VT_BOOL)",
                            "HostToolbar.get_Left()", "HostToolbar.get_Top()", "HostToolbar.get_FloatingRows()",
                            "HostToolbar.get_DockStatus()"));

    left = top = dockStatus = rows = -1;
    EXPECT_TRUE(showHide(false, L"MX", L"TB_MX_MAIN"));
    EXPECT_EQ((std::vector<long>{left, top, dockStatus, rows}), (std::vector<long>{-1, -1, -1, -1}));
}

TEST_F(Toolbars, ShowingPlacesAHiddenToolbarBeforeMakingItVisible)
{
    left = 300, top = 200, dockStatus = 4, rows = 2;
    EXPECT_TRUE(showHide(true, L"MX", L"TB_MX_CONNECTIONS"));
    EXPECT_TRUE(toolbar(2).visible);
    EXPECT_EQ((std::vector<long>{toolbar(2).left, toolbar(2).top, toolbar(2).floatingRows}),
              (std::vector<long>{300, 200, 2}));
    const std::vector<sim::JournalEntry>& calls = host().journal().entries();
    ASSERT_GE(calls.size(), 2u);
    EXPECT_EQ(calls[calls.size() - 2].method, "HostToolbar.Float");
    // Top, left, rows, in that order.
    EXPECT_EQ(calls[calls.size() - 2].arguments[0].value, "200");
    EXPECT_EQ(calls[calls.size() - 2].arguments[1].value, "300");
    EXPECT_EQ(calls.back().method, "HostToolbar.put_Visible");

    toolbar(1).visible = false;
    dockStatus = 3;
    EXPECT_TRUE(showHide(true, L"MX", L"TB_MX_VIEWS"));
    EXPECT_EQ(toolbar(1).dockStatus, 3);
    EXPECT_TRUE(toolbar(1).visible);

    // A shown toolbar is left where it is, whatever the caller's placement says.
    dockStatus = 1;
    EXPECT_TRUE(showHide(true, L"MX", L"TB_MX_VIEWS"));
    EXPECT_EQ(toolbar(1).dockStatus, 3);
}

TEST_F(Toolbars, EveryToolbarWithTheTagIsHiddenAndTheLastOnesPlaceIsKept)
{
    toolbar(1).tag = L"TB_MX_MAIN";
    toolbar(1).left = 7;
    EXPECT_FALSE(showHide(false, L"MX", L"TB_MX_MAIN"));
    EXPECT_FALSE(toolbar(0).visible);
    EXPECT_FALSE(toolbar(1).visible);
    EXPECT_EQ(left, 7);
    EXPECT_EQ(dockStatus, 2);
    // Visibility asks only the first of them.
    toolbar(1).visible = true;
    EXPECT_FALSE(ZORBAppUtilities::isToolbarVisible(MxtString(L"MX"), MxtString(L"TB_MX_MAIN")));
}

TEST_F(Toolbars, ToolbarsAreKnownByTagAndOnlyExactYesNoValuesCount)
{
    EXPECT_TRUE(ZORBAppUtilities::isToolbarVisible(MxtString(L"mx"), MxtString(L"tb_mx_main")));
    EXPECT_FALSE(ZORBAppUtilities::isToolbarVisible(MxtString(L"MX"), MxtString(L"MX Main")));
    EXPECT_TRUE(showHide(false, L"MX", L"MX Main"));
    EXPECT_TRUE(toolbar(0).visible);
    EXPECT_FALSE(ZORBAppUtilities::isToolbarVisible(MxtString(L"NOPE"), MxtString(L"TB_MX_MAIN")));
    EXPECT_TRUE(showHide(false, L"NOPE", L"TB_MX_MAIN"));
    EXPECT_EQ(left, -1);
    // A host that gives no collection of groups has no group to find: the same answers, no failure.
    armFault(withheldObject("HostApplication.get_MenuGroups"));
    EXPECT_FALSE(ZORBAppUtilities::isToolbarVisible(MxtString(L"MX"), MxtString(L"TB_MX_MAIN")));
    EXPECT_TRUE(showHide(false, L"MX", L"TB_MX_MAIN"));
    EXPECT_TRUE(toolbar(0).visible);
    host().clearFaults();

    // A visibility of 1 is neither shown (-1) nor hidden (0): both directions leave it alone.
    armFault(answering("HostToolbar.get_Visible", rawNumber(1)));
    EXPECT_FALSE(ZORBAppUtilities::isToolbarVisible(MxtString(L"MX"), MxtString(L"TB_MX_MAIN")));
    host().journal().clear();
    EXPECT_TRUE(showHide(false, L"MX", L"TB_MX_MAIN"));
    EXPECT_TRUE(showHide(true, L"MX", L"TB_MX_MAIN"));
    for (const std::string& call : hostCalls())
        EXPECT_EQ(call.find("HostToolbar.put_"), std::string::npos) << call;
    EXPECT_EQ(left, -1);
}

TEST_F(Toolbars, OfTwoGroupsWhoseNamesDifferInCaseTheFirstIsUsed)
{
    // A group position the host leaves empty is passed over.
    armFault(withheldObject("HostMenuGroups.Item", 1));
    EXPECT_TRUE(ZORBAppUtilities::isToolbarVisible(MxtString(L"MX"), MxtString(L"TB_MX_MAIN")));
    host().clearFaults();

    auto twin = loadGroup(kMXToolsMenuFile);
    twin->name = L"mx";
    twin->toolbars[0]->tag = L"TB_MX_MAIN";
    std::swap(state().menuGroups[1], state().menuGroups[2]);
    EXPECT_FALSE(showHide(false, L"MX", L"TB_MX_MAIN"));
    EXPECT_FALSE(twin->toolbars[0]->visible);
    EXPECT_TRUE(toolbar(0).visible);
}

TEST_F(Toolbars, AFlyoutShowsTheToolbarAsNamedOnTheFirstButtonOfTheFirstToolbarWithTheTags)
{
    toolbar(1).tag = L"TB_MX_MAIN";
    ZORBAppUtilities::attachToolbarToFlyout(MxtString(L"mx"), MxtString(L"tb_mx_main"), MxtString(L"id_mx_plan"));
    for (const auto& button : toolbar(1).buttons)
        EXPECT_FALSE(button->flyout) << "a later toolbar with the tag was searched";
    toolbar(0).buttons[3]->tag = L"ID_MX_PLATE";
    ZORBAppUtilities::attachToolbarToFlyout(MxtString(L"mx"), MxtString(L"tb_mx_main"), MxtString(L"id_mx_plate"));
    EXPECT_FALSE(toolbar(0).buttons[3]->flyout) << "a later button with the tag was taken";
    ASSERT_TRUE(toolbar(0).buttons[2]->flyout);
    EXPECT_EQ(*toolbar(0).buttons[2]->flyout, std::make_pair(std::wstring(L"mx"), std::wstring(L"tb_mx_main")));
    EXPECT_EQ(typedHostCalls().back(), "HostToolbarItem.AttachToolbarToFlyout(VT_BSTR, VT_BSTR)");

    armFault(failingCall("HostToolbarItem.AttachToolbarToFlyout"));
    EXPECT_EQ(failureOf([] {
                  ZORBAppUtilities::attachToolbarToFlyout(MxtString(L"MX"), MxtString(L"TB_MX_CONNECTIONS"),
                                                          MxtString(L"ID_MX_SPLICE"));
              }).Error(),
              kInjectedStatus);
}

TEST_F(Toolbars, AReplacedButtonTakesTheFirstOldOnesPlaceWithEveryProperty)
{
    toolbar(0).buttons[3]->tag = L"ID_MX_COLUMN";
    ZORBAppUtilities::replaceToolbarButton(MxtString(L"MX"), MxtString(L"tb_mx_main"), MxtString(L"id_mx_column"),
                                           MxtString(L"Column+"), MxtString(L"ID_MX_COLUMN2"),
                                           MxtString(L"Places columns"), MxtString(L"^C^C_MXCOL2"),
                                           MxtString(L"MX_COL2_16"), MxtString(L"MX_COL2_32"),
                                           MxtString(L"TB_MX_VIEWS"));
    EXPECT_THAT(buttonTags(0), ElementsAre(L"ID_MX_BEAM", L"ID_MX_COLUMN2", L"ID_MX_PLATE", L"ID_MX_COLUMN",
                                           L"ID_MX_SETTINGS"));
    const sim::ToolbarButton& added = *toolbar(0).buttons[1];
    EXPECT_EQ(added.name, L"Column+");
    EXPECT_EQ(added.helpString, L"Places columns");
    EXPECT_EQ(added.macro, L"^C^C_MXCOL2");
    EXPECT_EQ(added.smallBitmap, L"MX_COL2_16");
    EXPECT_EQ(added.largeBitmap, L"MX_COL2_32");
    ASSERT_TRUE(added.flyout);
    EXPECT_EQ(added.flyout->second, L"TB_MX_VIEWS");
    EXPECT_EQ(hostCalls().back(), "HostToolbarItem.Delete");
}

TEST_F(Toolbars, ARefusedBitmapStepStillGivesTheNewButtonAndARefusedAddKeepsTheOldOne)
{
    const auto replaceColumn = [](const wchar_t* flyout) {
        ZORBAppUtilities::replaceToolbarButton(MxtString(L"MX"), MxtString(L"TB_MX_MAIN"), MxtString(L"ID_MX_COLUMN"),
                                               MxtString(L"Column+"), MxtString(L"ID_MX_COLUMN2"), MxtString(L""),
                                               MxtString(L"_col"), MxtString(L""), MxtString(L""), MxtString(flyout));
    };
    // The host refuses empty bitmap names; the button is kept all the same, without a flyout.
    replaceColumn(L"");
    EXPECT_THAT(buttonTags(0), ElementsAre(L"ID_MX_BEAM", L"ID_MX_COLUMN2", L"ID_MX_PLATE", L"ID_MX_CONNECTIONS",
                                           L"ID_MX_SETTINGS"));
    EXPECT_FALSE(toolbar(0).buttons[1]->flyout);

    // Nothing to replace any more: nothing changes.
    const sim::HostState before = sim::clone(state());
    replaceColumn(L"");
    EXPECT_TRUE(state() == before);

    toolbar(0).buttons[1]->tag = L"ID_MX_COLUMN";
    armFault(failingCall("HostToolbar.AddButton"));
    EXPECT_EQ(failureOf([&] { replaceColumn(L""); }).Error(), kInjectedStatus);
    EXPECT_EQ(toolbar(0).buttons.size(), 5u);

    // A flyout the host refuses leaves the new button beside the old one.
    host().clearFaults();
    EXPECT_EQ(failureOf([&] { replaceColumn(L"TB_NOWHERE"); }).Error(), E_INVALIDARG);
    EXPECT_EQ(toolbar(0).buttons.size(), 6u);
}

// Where long is wider than the host's 32 bits, a placement or a menu-bar position beyond them
// reaches the host whole and is refused as out of range: nothing is narrowed on the way, and the
// host's state still dumps and loads back.
TEST_F(Toolbars, ValuesBeyondThirtyTwoBitsAreRefusedByTheHostNotNarrowed)
{
    if (sizeof(long) == 4)
        GTEST_SKIP() << "long holds 32 bits here";
    const long wide = static_cast<long>(1LL << 32);
    left = wide, top = 10, dockStatus = 4, rows = 1;
    EXPECT_EQ(failureOf([&] { showHide(true, L"MX", L"TB_MX_CONNECTIONS"); }).Error(), DISP_E_OVERFLOW);
    EXPECT_FALSE(toolbar(2).visible);
    EXPECT_EQ(failureOf([&] { ZORBAppUtilities::addMenuToMenuBar(MxtString(L"MX"), {}, wide); }).Error(),
              DISP_E_OVERFLOW);
    EXPECT_EQ(std::count(state().menuBar.begin(), state().menuBar.end(), mx->menus[0]), 0);
    EXPECT_TRUE(sim::stateFromJson(sim::stateToJson(state())) == state());
}

// Called again after the old button's removal failed, a replacement finds its new button in place
// (its tag and name in any letter case) and removes only the old one, whether or not the new button
// keeps the old one's tag. A tag the host refuses takes the new button out again.
TEST_F(Toolbars, AReplacementIsSafeToCallAgainAndLeavesNoUntaggedButton)
{
    const auto original = toolbar(0).buttons;
    const auto replacePlate = [](const std::wstring& newTag, const wchar_t* newName) {
        ZORBAppUtilities::replaceToolbarButton(MxtString(L"MX"), MxtString(L"TB_MX_MAIN"), MxtString(L"ID_MX_PLATE"),
                                               MxtString(newName), MxtString(newTag.c_str()), MxtString(L""),
                                               MxtString(L"_plate2"), MxtString(L"P16"), MxtString(L"P32"),
                                               MxtString(L""));
    };
    // Each new tag, and the same in other letter case for the call again.
    const std::pair<std::wstring, std::wstring> newTags[] = {{L"ID_MX_PLATE2", L"id_mx_plate2"},
                                                             {L"ID_MX_PLATE", L"Id_Mx_Plate"}};
    for (const auto& tags : newTags) {
        const std::wstring& newTag = tags.first;
        SCOPED_TRACE(std::string(newTag.begin(), newTag.end()));
        toolbar(0).buttons = original;
        host().clearFaults();
        armFault(failingCall("HostToolbarItem.Delete", 1));
        EXPECT_EQ(failureOf([&] { replacePlate(newTag, L"Plate+"); }).Error(), kInjectedStatus);
        EXPECT_EQ(buttonTags(0), (std::vector<std::wstring>{L"ID_MX_BEAM", L"ID_MX_COLUMN", newTag, L"ID_MX_PLATE",
                                                           L"ID_MX_CONNECTIONS", L"ID_MX_SETTINGS"}));
        host().clearFaults();
        replacePlate(tags.second, L"PLATE+");
        EXPECT_EQ(buttonTags(0), (std::vector<std::wstring>{L"ID_MX_BEAM", L"ID_MX_COLUMN", newTag,
                                                           L"ID_MX_CONNECTIONS", L"ID_MX_SETTINGS"}));
        EXPECT_EQ(toolbar(0).buttons[2]->name, L"Plate+");
    }

    toolbar(0).buttons = original;
    host().clearFaults();
    armFault(failingCall("HostToolbarItem.put_TagString"));
    EXPECT_EQ(failureOf([&] { replacePlate(L"ID_MX_PLATE2", L"Plate+"); }).Error(), kInjectedStatus);
    EXPECT_EQ(toolbar(0).buttons, original);
}

// A group, toolbar or button that is not there, or a new button the host does not give, is no
// failure: the flyout and the replacement then change nothing and raise nothing.
TEST_F(Toolbars, WhatIsMissingLeavesFlyoutsAndButtonsAsTheyWere)
{
    const sim::HostState before = sim::clone(state());
    const auto buttons = toolbar(0).buttons;
    const auto replace = [](const wchar_t* group, const wchar_t* tag, const wchar_t* button) {
        ZORBAppUtilities::replaceToolbarButton(MxtString(group), MxtString(tag), MxtString(button), MxtString(L"New"),
                                               MxtString(L"ID_NEW"), MxtString(L""), MxtString(L"_new"),
                                               MxtString(L"N16"), MxtString(L"N32"), MxtString(L"TB_MX_VIEWS"));
    };
    const std::tuple<const wchar_t*, const wchar_t*, const wchar_t*> missing[] = {
        {L"NOPE", L"TB_MX_MAIN", L"ID_MX_PLATE"}, {L"MX", L"TB_NOPE", L"ID_MX_PLATE"}, {L"MX", L"TB_MX_MAIN", L"ID_NOPE"}};
    for (const auto& [group, tag, button] : missing) {
        ZORBAppUtilities::attachToolbarToFlyout(MxtString(group), MxtString(tag), MxtString(button));
        replace(group, tag, button);
    }
    EXPECT_TRUE(state() == before);

    armFault(withheldObject("HostToolbar.AddButton"));
    replace(L"MX", L"TB_MX_MAIN", L"ID_MX_PLATE");
    EXPECT_EQ(toolbar(0).buttons, buttons);
    EXPECT_EQ(hostCalls().back(), "HostToolbar.AddButton");
}

#if AUTOMATION_HAS_TEST_HOOKS
// Group and toolbar positions are each copied for the call, and a copy that fails raises its status
// before the host is asked for the item: with the groups ZORB and MX, the first copy is the first
// group's position and the third the first toolbar's.
TEST_F(Toolbars, EachPositionIsCopiedForTheCallAndAFailedCopyRaises)
{
    for (const unsigned long nth : {1ul, 3ul}) {
        host().journal().clear();
        automation_testing::failVariantCopy(nth, kInjectedStatus);
        const HRESULT status =
            failureOf([] { ZORBAppUtilities::isToolbarVisible(MxtString(L"MX"), MxtString(L"TB_MX_MAIN")); }).Error();
        automation_testing::failVariantCopy(0, S_OK);
        EXPECT_EQ(status, kInjectedStatus);
        EXPECT_EQ(hostCalls().back(), nth == 1 ? "HostMenuGroups.get_Count" : "HostToolbars.get_Count");
    }
}
#endif

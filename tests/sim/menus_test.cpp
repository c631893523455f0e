// Menu groups, popup menus, items and the menu bar as the simulated host keeps them.
#include "sim_test.h"

#include <algorithm>

using namespace sim_testing;

namespace {

class Menus : public SimTest {};

std::vector<std::wstring> labelsOf(const sim::PopupMenu& menu)
{
    std::vector<std::wstring> labels;
    for (const auto& item : menu.items)
        labels.push_back(item->type == sim::ItemType::separator ? L"---" : item->label);
    return labels;
}

}  // namespace

TEST_F(Menus, CollectionsRefuseBadIndexesNamingWhatWasWrong)
{
    HostMenuGroupsPtr groups = application()->GetMenuGroups();
    _com_error outOfRange = failureOf([&] { groups->Item(indexOf(VT_I4, 7)); });
    EXPECT_EQ(outOfRange.Error(), DISP_E_BADINDEX);
    EXPECT_EQ(descriptionOf(outOfRange), L"no menu group at index 7");
    EXPECT_EQ(outOfRange.Source(), _bstr_t(L"Zorb.HostMenuGroups"));
    EXPECT_TRUE(outOfRange.GUID_() == __uuidof(HostMenuGroups));
    EXPECT_EQ(failureOf([&] { groups->Item(indexOf(VT_I4, -1)); }).Error(), DISP_E_BADINDEX);

    _com_error unknown = failureOf([&] { groups->Item(_variant_t(L"NOPE")); });
    EXPECT_EQ(unknown.Error(), DISP_E_BADINDEX);
    EXPECT_EQ(descriptionOf(unknown), L"no menu group named 'NOPE'");

    _com_error wrongType = failureOf([&] { groups->Item(_variant_t(1.0)); });
    EXPECT_EQ(wrongType.Error(), DISP_E_TYPEMISMATCH);
    EXPECT_NE(descriptionOf(wrongType).find(L"VT_R8"), std::wstring::npos);
}

TEST_F(Menus, LoadingAMenuFileAddsItsGroupLastAndOffTheMenuBar)
{
    const size_t barBefore = state().menuBar.size();
    HostMenuGroupPtr mx = loadMx();
    EXPECT_EQ(mx->GetName(), _bstr_t(L"MX"));
    ASSERT_EQ(state().menuGroups.size(), 2u);
    EXPECT_EQ(state().menuGroups.back()->name, L"MX");
    EXPECT_EQ(state().menuBar.size(), barBefore);

    // The file's group is loaded as a copy: changes to it do not reach the menu file.
    mx->GetMenus()->Item(indexOf(VT_I4, 0))->AddSeparator(indexOf(VT_I4, 0));
    EXPECT_NE(state().menuGroups.back()->menus[0]->items.size(),
              state().menuFiles.begin()->second->menus[0]->items.size());
}

TEST_F(Menus, LoadingIsRefusedForALoadedGroupAnUnknownFileOrABaseMenu)
{
    HostMenuGroupsPtr groups = application()->GetMenuGroups();
    loadMx();
    // The host compares paths without regard to case or separator.
    _com_error again =
        failureOf([&] { groups->LoadMenuFile(L"c:/program files/mx/support/mx", _variant_t()); });
    EXPECT_EQ(again.Error(), E_FAIL);
    EXPECT_EQ(descriptionOf(again), L"menu group 'MX' is already loaded");
    EXPECT_EQ(failureOf([&] { groups->LoadMenuFile(L"C:\\nowhere\\MX", _variant_t()); }).Error(),
              HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(failureOf([&] {
                  groups->LoadMenuFile(L"C:\\Program Files\\MX\\Support\\MXTOOLS", _variant_t(true));
              }).Error(),
              E_INVALIDARG);
    EXPECT_EQ(state().menuGroups.size(), 2u);
}

TEST_F(Menus, AnUnloadedGroupTakesItsMenusOffTheBarAndItsObjectsFail)
{
    HostMenuGroupPtr mx = loadMx();
    HostPopupMenuPtr main = mx->GetMenus()->Item(_variant_t(L"M&X"));
    main->InsertInMenuBar(indexOf(VT_I4, 2));
    EXPECT_EQ(state().menuBar[2]->tag, L"PM_MX_MAIN");
    HostPopupMenuItemPtr item = main->Item(indexOf(VT_I4, 0));

    mx->Unload();
    EXPECT_EQ(state().menuGroups.size(), 1u);
    EXPECT_TRUE(std::none_of(state().menuBar.begin(), state().menuBar.end(),
                             [](const auto& menu) { return menu->tag == L"PM_MX_MAIN"; }));
    // The unloaded group still tells its name, and fails everything else.
    EXPECT_EQ(mx->GetName(), _bstr_t(L"MX"));
    _com_error gone = failureOf([&] { mx->Unload(); });
    EXPECT_EQ(gone.Error(), E_FAIL);
    EXPECT_EQ(descriptionOf(gone), L"menu group 'MX' is unloaded");
    EXPECT_EQ(failureOf([&] { mx->GetMenus(); }).Error(), E_FAIL);
    EXPECT_EQ(descriptionOf(failureOf([&] { item->GetLabel(); })), L"menu group 'MX' is unloaded");
}

TEST_F(Menus, ItemsGoBeforeTheItemAtTheIndexAndTheCountAppends)
{
    HostPopupMenuPtr snap = loadMx()->GetMenus()->Item(indexOf(VT_I4, 0));
    sim::PopupMenu& menu = *state().menuGroups.back()->menus[0];
    const long count = snap->GetCount();
    ASSERT_EQ(count, 10);

    snap->AddMenuItem(indexOf(VT_I4, 0), L"First", L"_first");
    snap->AddSeparator(indexOf(VT_I4, count + 1));
    snap->AddMenuItem(indexOf(VT_I4, count + 1), L"Before last", L"_bl");
    const auto labels = labelsOf(menu);
    EXPECT_EQ(labels.front(), L"First");
    EXPECT_EQ(labels[labels.size() - 2], L"Before last");
    EXPECT_EQ(labels.back(), L"---");
    EXPECT_TRUE(menu.items.front()->enabled);

    _com_error beyond = failureOf([&] { snap->AddMenuItem(indexOf(VT_I4, count + 4), L"x", L"y"); });
    EXPECT_EQ(beyond.Error(), E_INVALIDARG);
    EXPECT_EQ(failureOf([&] { snap->AddSeparator(_variant_t(L"0")); }).Error(), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(menu.items.size(), static_cast<size_t>(count + 3));
}

TEST_F(Menus, ADeletedItemFailsAndTheOthersMoveUp)
{
    HostPopupMenuPtr snap = loadMx()->GetMenus()->Item(indexOf(VT_I4, 0));
    HostPopupMenuItemPtr first = snap->Item(indexOf(VT_I4, 0));
    HostPopupMenuItemPtr second = snap->Item(indexOf(VT_I4, 1));
    first->Delete();
    EXPECT_EQ(second->GetLabel(), snap->Item(indexOf(VT_I4, 0))->GetLabel());
    EXPECT_EQ(descriptionOf(failureOf([&] { first->GetMacro(); })), L"menu item '&Endpoint' was deleted");
}

TEST_F(Menus, ItemsReportTheirKindAndOnlySubmenusHaveASubmenu)
{
    HostPopupMenuPtr main = loadMx()->GetMenus()->Item(_variant_t(L"m&x"));
    EXPECT_EQ(main->Item(indexOf(VT_I4, 0))->GetType(), 0);
    EXPECT_EQ(main->Item(indexOf(VT_I4, 3))->GetType(), 1);
    HostPopupMenuItemPtr connections = main->Item(indexOf(VT_I4, 4));
    EXPECT_EQ(connections->GetType(), 2);
    EXPECT_EQ(connections->GetSubMenu()->GetCount(), 3);
    EXPECT_EQ(failureOf([&] { main->Item(indexOf(VT_I4, 0))->GetSubMenu(); }).Error(), E_FAIL);
}

TEST_F(Menus, ASubmenuItemsLabelIsItsSubmenusName)
{
    HostPopupMenuPtr combined = group(L"ZORB")->GetMenus()->AddMenu(L"Combined");
    HostPopupMenuPtr sub = combined->AddSubMenu(indexOf(VT_I4, 0), L"Steel");
    EXPECT_EQ(sub->GetName(), _bstr_t(L"Steel"));
    sub->AddMenuItem(indexOf(VT_I4, 0), L"Beam", L"_beam");

    HostPopupMenuItemPtr leading = combined->Item(indexOf(VT_I4, 0));
    leading->PutLabel(L"Structure");
    EXPECT_EQ(sub->GetName(), _bstr_t(L"Structure"));
    sub->PutName(L"Frame");
    EXPECT_EQ(leading->GetLabel(), _bstr_t(L"Frame"));
    EXPECT_EQ(sub->GetCount(), 1);
    EXPECT_EQ(sub->GetOnMenuBar(), VARIANT_FALSE);
    EXPECT_EQ(failureOf([&] { sub->InsertInMenuBar(indexOf(VT_I4, 0)); }).Error(), E_FAIL);

    // A submenu whose leading item was deleted fails.
    leading->Delete();
    EXPECT_EQ(failureOf([&] { sub->GetCount(); }).Error(), E_FAIL);
}

TEST_F(Menus, TheMenuBarTakesAMenuOnceAtAPositionUpToItsCount)
{
    HostPopupMenusPtr menus = loadMx()->GetMenus();
    HostPopupMenuPtr main = menus->Item(_variant_t(L"M&X"));
    HostMenuBarPtr bar = application()->GetMenuBar();
    const long count = bar->GetCount();

    EXPECT_EQ(main->GetOnMenuBar(), VARIANT_FALSE);
    EXPECT_EQ(failureOf([&] { main->InsertInMenuBar(indexOf(VT_I4, count + 1)); }).Error(), E_INVALIDARG);
    main->InsertInMenuBar(indexOf(VT_I4, count));
    EXPECT_EQ(main->GetOnMenuBar(), VARIANT_TRUE);
    EXPECT_EQ(bar->Item(indexOf(VT_I4, count))->GetTagString(), _bstr_t(L"PM_MX_MAIN"));
    EXPECT_EQ(descriptionOf(failureOf([&] { main->InsertInMenuBar(indexOf(VT_I4, 0)); })),
              L"menu 'M&X' is already on the menu bar");

    main->RemoveFromMenuBar();
    EXPECT_EQ(bar->GetCount(), count);
    EXPECT_EQ(failureOf([&] { main->RemoveFromMenuBar(); }).Error(), E_FAIL);
}

TEST_F(Menus, AMenuBarMenuKnowsItsGroup)
{
    HostPopupMenuPtr file = application()->GetMenuBar()->Item(indexOf(VT_I4, 0));
    file->AddSeparator(indexOf(VT_I4, 0));
    EXPECT_EQ(state().menuGroups[0]->menus[0]->items[0]->type, sim::ItemType::separator);
    // Removing the menu from its group (as a test may) makes its object fail.
    state().menuGroups[0]->menus.erase(state().menuGroups[0]->menus.begin());
    EXPECT_EQ(descriptionOf(failureOf([&] { file->GetName(); })),
              L"menu '&File' was removed from menu group 'ZORB'");
}

// The group a menu-bar menu names follows the groups as the host and the test change them.
TEST_F(Menus, AMenuBarMenuNamesTheGroupThatHoldsItNow)
{
    const auto objectOfBarMenu = [&](long position) {
        application()->GetMenuBar()->Item(indexOf(VT_I4, position))->GetName();
        return host().journal().entries().back().object;
    };
    HostMenuGroupPtr mx = loadMx();
    HostPopupMenuPtr added = mx->GetMenus()->AddMenu(L"Steel");
    const long end = static_cast<long>(state().menuBar.size());
    added->InsertInMenuBar(indexOf(VT_I4, end));
    EXPECT_EQ(objectOfBarMenu(end), "HostPopupMenu 'MX'/'Steel'");
    EXPECT_EQ(objectOfBarMenu(0), "HostPopupMenu 'ZORB'/'ID_MnFile'");

    // A menu the test moves into another group is named by that group from then on.
    auto& zorbMenus = state().menuGroups[0]->menus;
    auto file = zorbMenus.front();
    zorbMenus.erase(zorbMenus.begin());
    state().menuGroups[1]->menus.push_back(file);
    EXPECT_EQ(objectOfBarMenu(0), "HostPopupMenu 'MX'/'ID_MnFile'");

    // Unloaded with MX, and put back on the bar, it belongs to no group until the test gives it one.
    mx->Unload();
    state().menuBar.push_back(file);
    const long last = static_cast<long>(state().menuBar.size()) - 1;
    EXPECT_EQ(objectOfBarMenu(last), "HostPopupMenu 'ID_MnFile'");
    state().menuGroups[0]->menus.push_back(file);
    EXPECT_EQ(objectOfBarMenu(last), "HostPopupMenu 'ZORB'/'ID_MnFile'");
}

TEST_F(Menus, ANullNodeIsAPlaceWhereTheHostGivesNoObject)
{
    state().menuGroups.push_back(nullptr);
    HostMenuGroupsPtr groups = application()->GetMenuGroups();
    EXPECT_EQ(groups->GetCount(), 2);
    EXPECT_EQ(groups->Item(indexOf(VT_I4, 1)).GetInterfacePtr(), nullptr);
}

TEST_F(Menus, ItemsAreFoundByLabelAndKeepTheirEnabledState)
{
    HostPopupMenuPtr snap = loadMx()->GetMenus()->Item(_variant_t(L"MX OBJECT SNAP"));
    HostPopupMenuItemPtr none = snap->Item(_variant_t(L"&none"));
    EXPECT_EQ(none->GetMacro(), _bstr_t(L"_non"));
    none->PutEnabled(VARIANT_FALSE);
    EXPECT_EQ(none->GetEnabled(), VARIANT_FALSE);
    EXPECT_FALSE(state().menuGroups.back()->menus[0]->items[8]->enabled);
    EXPECT_EQ(failureOf([&] { snap->Item(indexOf(VT_I4, 3))->PutLabel(L"x"); }).Error(), E_FAIL);  // separator
    EXPECT_EQ(failureOf([] { group(L"MX")->GetMenus()->AddMenu(L""); }).Error(), E_INVALIDARG);
}

TEST_F(Menus, ANullObjectFaultOnLoadingLoadsNothing)
{
    host().armFault(withheldObject("HostMenuGroups.LoadMenuFile"));
    EXPECT_EQ(loadMx().GetInterfacePtr(), nullptr);
    EXPECT_EQ(state().menuGroups.size(), 1u);
    EXPECT_EQ(host().journal().entries().back().arguments[1].type, VT_EMPTY);
}

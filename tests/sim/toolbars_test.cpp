// Toolbars and their buttons.
#include "sim_test.h"

using namespace sim_testing;

namespace {

class Toolbars : public SimTest {
protected:
    HostToolbarPtr mxToolbar(const wchar_t* name) { return loadMx()->GetToolbars()->Item(_variant_t(name)); }
    const sim::Toolbar& mxToolbarNode(size_t position)
    {
        return *state().menuGroups.back()->toolbars[position];
    }
};

}  // namespace

TEST_F(Toolbars, DockingAndFloatingPlaceAToolbarAndLeaveItsVisibilityAlone)
{
    HostToolbarPtr main = mxToolbar(L"MX Main");
    main->PutVisible(VARIANT_FALSE);
    main->Float(150, 300, 2);
    EXPECT_EQ(main->GetDockStatus(), sim::kDockFloating);
    EXPECT_EQ(main->GetTop(), 150);
    EXPECT_EQ(main->GetLeft(), 300);
    EXPECT_EQ(main->GetFloatingRows(), 2);
    EXPECT_EQ(main->GetVisible(), VARIANT_FALSE);

    main->Dock(3);
    EXPECT_EQ(mxToolbarNode(0).dockStatus, 3);
    EXPECT_FALSE(mxToolbarNode(0).visible);
    EXPECT_EQ(failureOf([&] { main->Dock(4); }).Error(), E_INVALIDARG);
    EXPECT_EQ(failureOf([&] { main->Float(0, 0, 0); }).Error(), E_INVALIDARG);
    // Where LONG is wider than the host's 32 bits, a value beyond them is out of its range.
    if (sizeof(LONG) > 4) {
        EXPECT_EQ(failureOf([&] { main->Float(static_cast<LONG>(1LL << 32), 0, 1); }).Error(), DISP_E_OVERFLOW);
    }
    EXPECT_EQ(mxToolbarNode(0).dockStatus, 3);
}

TEST_F(Toolbars, ButtonsAreAddedAtAnIndexAndKnowTheirPlace)
{
    HostToolbarPtr main = mxToolbar(L"mx main");
    HostToolbarItemPtr added = main->AddButton(indexOf(VT_I4, 1), L"Bolt", L"Places bolts", L"^C^C_MXBOLT");
    added->PutTagString(L"ID_MX_BOLT");
    added->SetBitmaps(L"MX_BOLT_16", L"MX_BOLT_32");
    HostToolbarItemPtr after = main->Item(indexOf(VT_I4, 2));
    EXPECT_EQ(added->GetIndex(), 1);
    EXPECT_EQ(after->GetIndex(), 2);
    const sim::ToolbarButton& node = *mxToolbarNode(0).buttons[1];
    EXPECT_EQ(node.tag, L"ID_MX_BOLT");
    EXPECT_EQ(node.helpString, L"Places bolts");
    EXPECT_EQ(node.macro, L"^C^C_MXBOLT");
    EXPECT_EQ(node.largeBitmap, L"MX_BOLT_32");

    added->Delete();
    EXPECT_EQ(after->GetIndex(), 1);
    EXPECT_EQ(descriptionOf(failureOf([&] { added->GetIndex(); })), L"toolbar button 'Bolt' was deleted");
    EXPECT_EQ(failureOf([&] { main->AddButton(indexOf(VT_I4, 99), L"x", L"", L""); }).Error(), E_INVALIDARG);
    EXPECT_EQ(failureOf([&] { after->SetBitmaps(L"", L"big"); }).Error(), E_INVALIDARG);
}

TEST_F(Toolbars, AFlyoutNamesAToolbarOfALoadedGroupByNameOrTag)
{
    HostToolbarItemPtr connections = mxToolbar(L"MX Main")->Item(_variant_t(L"Connections"));
    connections->AttachToolbarToFlyout(L"mx", L"TB_MX_CONNECTIONS");
    const auto& flyout = mxToolbarNode(0).buttons[3]->flyout;
    ASSERT_TRUE(flyout.has_value());
    EXPECT_EQ(flyout->first, L"mx");
    EXPECT_EQ(flyout->second, L"TB_MX_CONNECTIONS");
    connections->AttachToolbarToFlyout(L"ZORB", L"Zoom");
    EXPECT_EQ(mxToolbarNode(0).buttons[3]->flyout->second, L"Zoom");

    EXPECT_EQ(
        descriptionOf(failureOf([&] { connections->AttachToolbarToFlyout(L"MXTOOLS", L"TB_MXTOOLS"); })),
        L"no menu group 'MXTOOLS' is loaded");
    EXPECT_EQ(descriptionOf(failureOf([&] { connections->AttachToolbarToFlyout(L"MX", L"TB_NONE"); })),
              L"menu group 'MX' has no toolbar 'TB_NONE'");
    EXPECT_EQ(mxToolbarNode(0).buttons[3]->flyout->second, L"Zoom");
}

TEST_F(Toolbars, AToolbarOfAnUnloadedGroupFails)
{
    HostToolbarPtr main = mxToolbar(L"MX Main");
    HostToolbarsPtr toolbars = group(L"MX")->GetToolbars();
    group(L"MX")->Unload();
    EXPECT_EQ(descriptionOf(failureOf([&] { main->GetVisible(); })), L"menu group 'MX' is unloaded");
    EXPECT_EQ(failureOf([&] { toolbars->GetCount(); }).Error(), E_FAIL);
    _com_error noToolbar = failureOf([] { group(L"ZORB")->GetToolbars()->Item(indexOf(VT_I4, 7)); });
    EXPECT_EQ(descriptionOf(noToolbar), L"no toolbar at index 7");
}

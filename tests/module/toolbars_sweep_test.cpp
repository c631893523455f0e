// The fault sweep of the toolbars.
#include "ZORBAppUtilities.h"

#include "menu_host.h"

#include "support/fault_sweep.h"

#include <memory>

using namespace module_testing;

namespace {

using FH = FailureHandling;

// The default host with the MX group loaded: TB_MX_MAIN shown, TB_MX_CONNECTIONS hidden.
sim::HostState mxHost()
{
    sim::HostState state = sim::defaultHostState();
    loadGroupInto(state, kMXMenuFile);
    return state;
}

sim::Toolbar& mxToolbar(const sim::Host& host, size_t position)
{
    return *host.state().menuGroups.back()->toolbars[position];
}

// A position the host leaves empty is passed over: the walk goes on without that toolbar or button.
SweptOperation toolbarOperation(std::string name, std::function<void()> call,
                                std::function<void(const sim::Host&)> expectSuccess)
{
    SweptOperation operation;
    operation.name = std::move(name);
    operation.handling = FH::propagated;
    operation.initialState = mxHost;
    operation.run = std::move(call);
    operation.expectSuccess = std::move(expectSuccess);
    operation.skippedWhenWithheld = {"HostMenuGroups.Item", "HostToolbars.Item", "HostToolbar.Item"};
    return operation;
}

struct Placement {
    long left = -1, top = -1, dockStatus = -1, rows = -1;

    // In the order a hide reads them.
    std::vector<long> read() const { return {left, top, rows, dockStatus}; }
};

std::vector<long> placedAt(const sim::Toolbar& toolbar)
{
    return {toolbar.left, toolbar.top, toolbar.floatingRows, toolbar.dockStatus};
}

std::vector<SweptOperation> toolbarOperations()
{
    std::vector<SweptOperation> operations;

    const auto hidden = std::make_shared<bool>(true);
    const auto placement = std::make_shared<Placement>();
    SweptOperation hide = toolbarOperation(
        "showHideToolbar (hide)",
        [hidden, placement] {
            *placement = Placement();
            MxtString group(L"MX");
            MxtString toolbar(L"TB_MX_MAIN");
            *hidden = !ZORBAppUtilities::showHideToolbar(false, group, toolbar, placement->left, placement->top,
                                                          placement->dockStatus, placement->rows);
        },
        [hidden, placement](const sim::Host& host) {
            EXPECT_TRUE(*hidden);
            EXPECT_FALSE(mxToolbar(host, 0).visible);
            EXPECT_EQ(placement->read(), placedAt(mxToolbar(host, 0)));
        });
    hide.expectFailure = [hidden, placement](const sim::Host& host) {
        EXPECT_EQ(*hidden, !mxToolbar(host, 0).visible);
        // Those read before the failure are written, in the order read; the others stay as given.
        const std::vector<long> written = placement->read();
        const std::vector<long> place = placedAt(mxToolbar(host, 0));
        size_t read = 0;
        while (read < written.size() && written[read] == place[read])
            ++read;
        EXPECT_EQ(std::vector<long>(written.begin() + read, written.end()), std::vector<long>(written.size() - read, -1));
    };
    operations.push_back(hide);

    const auto shown = std::make_shared<bool>(false);
    SweptOperation show = toolbarOperation(
        "showHideToolbar (show)",
        [shown] {
            Placement place{300, 200, 4, 2};
            MxtString group(L"MX");
            MxtString toolbar(L"TB_MX_CONNECTIONS");
            *shown = ZORBAppUtilities::showHideToolbar(true, group, toolbar, place.left, place.top, place.dockStatus,
                                                       place.rows);
        },
        [shown](const sim::Host& host) {
            EXPECT_TRUE(*shown);
            EXPECT_TRUE(mxToolbar(host, 2).visible);
            EXPECT_EQ(mxToolbar(host, 2).left, 300);
        });
    show.expectFailure = [shown](const sim::Host&) { EXPECT_TRUE(*shown); };
    show.hostCalls = std::vector<std::string>{
        "sdk.zbedGetZorbWinApp", "CWinApp.GetIDispatch", "HostApplication.get_MenuGroups",
        "HostMenuGroups.get_Count", "HostMenuGroups.Item(VT_I4)", "HostMenuGroup.get_Name",
        "HostMenuGroups.Item(VT_I4)", "HostMenuGroup.get_Name", "HostMenuGroup.get_Toolbars",
        "HostToolbars.get_Count", "HostToolbars.Item(VT_I4)", "HostToolbar.get_TagString",
        "HostToolbars.Item(VT_I4)", "HostToolbar.get_TagString", "HostToolbars.Item(VT_I4)",
        "HostToolbar.get_TagString", "HostToolbar.get_Visible", "HostToolbar.get_DockStatus",
        "HostToolbar.Float(VT_I4, VT_I4, VT_I4)", "HostToolbar.put_Visible(VT_BOOL)"};
    operations.push_back(show);

    const auto visible = std::make_shared<bool>(false);
    SweptOperation asking = toolbarOperation(
        "isToolbarVisible",
        [visible] { *visible = ZORBAppUtilities::isToolbarVisible(MxtString(L"mx"), MxtString(L"tb_mx_main")); },
        [visible](const sim::Host&) { EXPECT_TRUE(*visible); });
    asking.expectFailure = [visible](const sim::Host&) { EXPECT_FALSE(*visible); };
    operations.push_back(asking);

    operations.push_back(toolbarOperation(
        "attachToolbarToFlyout",
        [] {
            ZORBAppUtilities::attachToolbarToFlyout(MxtString(L"MX"), MxtString(L"TB_MX_MAIN"),
                                                    MxtString(L"ID_MX_CONNECTIONS"));
        },
        [](const sim::Host& host) { EXPECT_TRUE(mxToolbar(host, 0).buttons[3]->flyout); }));

    // The bitmap step swallows its failure, and the replacement goes on after it.
    SweptOperation replace = toolbarOperation(
        "replaceToolbarButton",
        [] {
            ZORBAppUtilities::replaceToolbarButton(
                MxtString(L"MX"), MxtString(L"TB_MX_MAIN"), MxtString(L"ID_MX_PLATE"), MxtString(L"Plate+"),
                MxtString(L"ID_MX_PLATE2"), MxtString(L"Places plates"), MxtString(L"^C^C_MXPLATE2"),
                MxtString(L"MX_PLATE2_16"), MxtString(L"MX_PLATE2_32"), MxtString(L"TB_MX_CONNECTIONS"));
        },
        [](const sim::Host& host) {
            const sim::Toolbar& toolbar = mxToolbar(host, 0);
            ASSERT_EQ(toolbar.buttons.size(), 5u);
            EXPECT_EQ(toolbar.buttons[2]->tag, L"ID_MX_PLATE2");
            EXPECT_EQ(toolbar.buttons[2]->largeBitmap, L"MX_PLATE2_32");
        });
    replace.caughtInside = {"HostToolbarItem.SetBitmaps"};
    replace.afterFailure = AfterFailure::goesOn;
    operations.push_back(replace);

    return operations;
}

INSTANTIATE_TEST_SUITE_P(Toolbars, FaultSweep, ::testing::ValuesIn(toolbarOperations()),
                         [](const auto& info) { return sweptOperationName(info.param); });

}  // namespace

// The fault sweep of the menus.
#include "ZORBAppUtilities.h"

#include "menu_host.h"

#include "support/fault_sweep.h"

#include <memory>

using namespace module_testing;

namespace {

using FH = FailureHandling;

// The default host with the MX groups loaded and the MX main menu on the menu bar.
sim::HostState mxHost()
{
    sim::HostState state = sim::defaultHostState();
    const auto mx = loadGroupInto(state, kMXMenuFile);
    loadGroupInto(state, kMXToolsMenuFile);
    state.menuBar.push_back(mx->menus[1]);
    return state;
}

std::shared_ptr<sim::MenuGroup> groupNamed(const sim::HostState& state, const std::wstring& name)
{
    for (const auto& group : state.menuGroups)
        if (group->name == name)
            return group;
    return nullptr;
}

bool onMenuBar(const sim::HostState& state, const std::shared_ptr<sim::PopupMenu>& menu)
{
    return std::find(state.menuBar.begin(), state.menuBar.end(), menu) != state.menuBar.end();
}

// The host calls a lookup makes inside a helper that catches their failures.
const std::vector<std::string> kGroupMenuLookup = {
    "HostApplication.get_MenuGroups", "HostMenuGroups.get_Count", "HostMenuGroups.Item",
    "HostMenuGroup.get_Name",         "HostMenuGroup.get_Menus",  "HostPopupMenus.Item"};
const std::vector<std::string> kItemAdder = {"HostPopupMenu.AddMenuItem", "HostPopupMenuItem.put_Enabled"};
const std::vector<std::string> kSnapMenuLookup = {"HostApplication.get_MenuGroups",
                                                  "HostMenuGroups.get_Count",
                                                  "HostMenuGroups.Item",
                                                  "HostMenuGroup.get_Name",
                                                  "HostMenuGroup.get_Menus",
                                                  "HostPopupMenus.get_Count",
                                                  "HostPopupMenus.Item",
                                                  "HostPopupMenu.get_TagString"};

std::vector<std::string> joined(std::vector<std::string> first, const std::vector<std::string>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

const MxtArray<MxtString> kSnapLabels = mxtStrings({L"MX &Axis", L"MX &Corner", L"MX &Hole"});
const MxtArray<MxtString> kSnapMacros = mxtStrings({L"_MXAXIS", L"_MXCORNER", L"_MXHOLE"});

// An operation that answers yes or no: after success `expected`, after a failure `afterFailure`.
SweptOperation answeringYesNo(std::string name, FailureHandling handling, std::function<bool()> call,
                              bool expected, bool afterFailure,
                              std::function<void(const sim::Host&)> expectHost = nullptr)
{
    const auto answer = std::make_shared<bool>(false);
    SweptOperation operation;
    operation.name = std::move(name);
    operation.handling = handling;
    operation.initialState = mxHost;
    operation.run = [answer, call] { *answer = call(); };
    operation.expectSuccess = [answer, expected, expectHost](const sim::Host& host) {
        EXPECT_EQ(*answer, expected);
        if (expectHost)
            expectHost(host);
    };
    operation.expectFailure = [answer, afterFailure](const sim::Host&) { EXPECT_EQ(*answer, afterFailure); };
    return operation;
}

// An operation without a result: only the host tells what it did.
SweptOperation acting(std::string name, FailureHandling handling, std::function<void()> call,
                      std::function<void(const sim::Host&)> expectHost)
{
    SweptOperation operation;
    operation.name = std::move(name);
    operation.handling = handling;
    operation.initialState = mxHost;
    operation.run = std::move(call);
    operation.expectSuccess = std::move(expectHost);
    return operation;
}

std::vector<SweptOperation> menuOperations()
{
    std::vector<SweptOperation> operations;

    SweptOperation isLoaded = answeringYesNo(
        "isMenuLoaded", FH::caught, [] { return ZORBAppUtilities::isMenuLoaded(MxtString(L"MXTOOLS")); },
        true, false);
    isLoaded.skippedWhenFailing = {"HostMenuGroups.Item"};
    operations.push_back(isLoaded);

    SweptOperation load = answeringYesNo(
        "loadMenus", FH::caught,
        [] {
            return ZORBAppUtilities::loadMenus(mxtStrings({kMXToolsMenuFile, kMXMenuFile}));
        },
        true, true, [](const sim::Host& host) { EXPECT_NE(groupNamed(host.state(), L"MX"), nullptr); });
    load.initialState = [] {
        sim::HostState state = sim::defaultHostState();
        loadGroupInto(state, kMXToolsMenuFile);
        return state;
    };
    // A failure inside the loaded test makes the file load (or the host refuse it).
    load.afterFailure = AfterFailure::goesOn;
    operations.push_back(load);

    // A position the host refuses leaves that group out: true, with it still loaded.
    const auto unloaded = std::make_shared<bool>(false);
    SweptOperation unload = acting(
        "unloadMenus", FH::caught,
        [unloaded] { *unloaded = ZORBAppUtilities::unloadMenus(mxtStrings({L"C:\\Menus\\mxtools"})); },
        [unloaded](const sim::Host& host) {
            EXPECT_TRUE(*unloaded);
            EXPECT_EQ(groupNamed(host.state(), L"MXTOOLS"), nullptr);
        });
    unload.expectFailure = [unloaded](const sim::Host&) { EXPECT_FALSE(*unloaded); };
    unload.skippedWhenFailing = {"HostMenuGroups.Item"};
    unload.afterFailure = AfterFailure::goesOn;
    operations.push_back(unload);

    SweptOperation add = acting(
        "addMenuToMenuBar", FH::propagated,
        [] {
            MxtArray<ZORBAppUtilities::ZORBMenuItem> items;
            items.add({0, L"&Grid", L"^C^C_MXGRID"});
            items.add({1, L"&Axes", L"^C^C_MXAXES"});
            ZORBAppUtilities::addMenuToMenuBar(MxtString(L"mx"), items, 1);
        },
        [](const sim::Host& host) {
            const auto snap = groupNamed(host.state(), L"MX")->menus[0];
            EXPECT_EQ(snap->items[1]->label, L"&Axes");
            EXPECT_EQ(host.state().menuBar[1], snap);
        });
    add.caughtInside = joined(kGroupMenuLookup, kItemAdder);
    add.afterFailure = AfterFailure::goesOn;
    add.hostCalls = joined(
        {"sdk.zbedGetZorbWinApp", "CWinApp.GetIDispatch", "sdk.zbedGetZorbWinApp", "CWinApp.GetIDispatch",
         "HostApplication.get_MenuGroups", "HostMenuGroups.get_Count", "HostMenuGroups.Item(VT_I4)",
         "HostMenuGroup.get_Name", "HostMenuGroups.Item(VT_I4)", "HostMenuGroup.get_Name",
         "HostMenuGroup.get_Menus", "HostPopupMenus.Item(VT_I4)"},
        {"HostPopupMenu.AddMenuItem(VT_I4, VT_BSTR, VT_BSTR)", "HostPopupMenuItem.put_Enabled(VT_BOOL)",
         "HostPopupMenu.AddMenuItem(VT_I4, VT_BSTR, VT_BSTR)", "HostPopupMenuItem.put_Enabled(VT_BOOL)",
         "HostPopupMenu.get_OnMenuBar()", "HostPopupMenu.InsertInMenuBar(VT_I4)"});
    operations.push_back(add);

    SweptOperation remove = acting(
        "removeMenuFromMenuBar", FH::propagated,
        [] { ZORBAppUtilities::removeMenuFromMenuBar(MxtString(L"MX")); },
        [](const sim::Host& host) {
            EXPECT_FALSE(onMenuBar(host.state(), groupNamed(host.state(), L"MX")->menus[0]));
        });
    remove.initialState = [] {
        sim::HostState state = mxHost();
        state.menuBar.push_back(groupNamed(state, L"MX")->menus[0]);
        return state;
    };
    remove.caughtInside = kGroupMenuLookup;
    remove.afterFailure = AfterFailure::goesOn;  // the lookup passes over a group it is not given
    operations.push_back(remove);

    const auto count = std::make_shared<long>(-1);
    SweptOperation counting = acting(
        "getNumberOfMenusOnMenuBar", FH::propagated,
        [count] { *count = ZORBAppUtilities::getNumberOfMenusOnMenuBar(); },
        [count](const sim::Host& host) {
            EXPECT_EQ(*count, static_cast<long>(host.state().menuBar.size()));
        });
    counting.expectFailure = [count](const sim::Host&) { EXPECT_EQ(*count, 0); };
    operations.push_back(counting);

    operations.push_back(answeringYesNo(
        "isMenuLoadedOnMenuBar", FH::propagated,
        [] { return ZORBAppUtilities::isMenuLoadedOnMenuBar(MxtString(L"MX_MAIN")); }, true, false));

    SweptOperation combine = acting(
        "combineMenusOnMenuBar", FH::swallowed,
        [] {
            ZORBAppUtilities::combineMenusOnMenuBar(MxtString(L"MX &All"), mxtStrings({L"MX", L"MXTOOLS"}),
                                                    0);
        },
        [](const sim::Host& host) {
            const auto combined = host.state().menuGroups[0]->menus.back();
            EXPECT_EQ(combined->name, L"MX &All");
            EXPECT_EQ(combined->items.size(), 2u);
            EXPECT_EQ(host.state().menuBar[0], combined);
        });
    combine.afterFailure = AfterFailure::goesOn;
    operations.push_back(combine);

    // True after a failure only when the lookup had found the snap menu and the block went in.
    const auto added = std::make_shared<bool>(false);
    SweptOperation snapAdd = acting(
        "addMenuItemsToSnapMenu", FH::propagated,
        [added] { *added = ZORBAppUtilities::addMenuItemsToSnapMenu(kSnapLabels, kSnapMacros, 2); },
        [added](const sim::Host& host) {
            EXPECT_TRUE(*added);
            EXPECT_EQ(groupNamed(host.state(), L"MX")->menus[0]->items[9]->label, L"MX &Axis");
        });
    snapAdd.expectFailure = [added](const sim::Host& host) {
        EXPECT_TRUE(!*added || groupNamed(host.state(), L"MX")->menus[0]->items.size() == 14u);
    };
    snapAdd.caughtInside = kSnapMenuLookup;
    // Without its first menu the lookup falls back on the group's last menu, and works there.
    snapAdd.skippedWhenWithheld = {"HostPopupMenus.Item"};
    snapAdd.afterFailure = AfterFailure::goesOn;
    operations.push_back(snapAdd);

    const auto removed = std::make_shared<bool>(false);
    SweptOperation snapRemove = acting(
        "removeMenuItemsFromSnapMenu", FH::propagated,
        [removed] { *removed = ZORBAppUtilities::removeMenuItemsFromSnapMenu(kSnapLabels, 2); },
        [removed](const sim::Host& host) {
            EXPECT_TRUE(*removed);
            EXPECT_EQ(groupNamed(host.state(), L"MX")->menus[0]->items.size(), 11u);
        });
    snapRemove.initialState = [] {
        sim::HostState state = mxHost();
        auto& items = groupNamed(state, L"MX")->menus[0]->items;
        auto separator = std::make_shared<sim::PopupMenuItem>();
        separator->type = sim::ItemType::separator;
        std::vector<std::shared_ptr<sim::PopupMenuItem>> block = {separator};
        for (int i = 0; i < kSnapLabels.getLength(); ++i) {
            auto entry = std::make_shared<sim::PopupMenuItem>();
            entry->label = kSnapLabels[i].getStringW();
            entry->macro = kSnapMacros[i].getStringW();
            block.push_back(entry);
        }
        items.insert(items.end() - 2, block.begin(), block.end());
        return state;
    };
    // After a failure the lookup passed over, or a missing item, the answer is still true.
    snapRemove.caughtInside = kSnapMenuLookup;
    snapRemove.skippedWhenWithheld = {"HostPopupMenus.Item"};
    snapRemove.afterFailure = AfterFailure::goesOn;
    operations.push_back(snapRemove);

    return operations;
}

INSTANTIATE_TEST_SUITE_P(Menus, FaultSweep, ::testing::ValuesIn(menuOperations()),
                         [](const auto& info) { return sweptOperationName(info.param); });

}  // namespace

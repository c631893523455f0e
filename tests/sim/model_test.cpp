// Deep comparison and copying of host states, and the JSON forms a hand-written state may use.
#include "sim/host.h"
#include "sim/state_json.h"
#include "support/faults.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

sim::HostState loaded(const char* text) { return sim::stateFromJson(nlohmann::json::parse(text)); }

}  // namespace

// A member-wise copy would share the nodes, so `HostState b = a;` must not compile: clone copies.
static_assert(!std::is_copy_constructible_v<sim::HostState> && !std::is_copy_assignable_v<sim::HostState>);
static_assert(std::is_nothrow_move_constructible_v<sim::HostState> && std::is_move_assignable_v<sim::HostState>);

TEST(StateModel, ACloneSharesNoNodeWithItsOriginal)
{
    const sim::HostState original = sim::defaultHostState();
    sim::HostState copy = sim::clone(original);
    ASSERT_TRUE(copy == original);
    EXPECT_NE(copy.menuGroups[0], original.menuGroups[0]);
    EXPECT_EQ(copy.menuBar[0], copy.menuGroups[0]->menus[0]);
    EXPECT_EQ(copy.activeDocument, copy.documents[0]);

    copy.menuGroups[0]->menus[2]->items[3]->subMenu->items[0]->label = L"Zoom &Window";
    EXPECT_FALSE(copy == original);
    EXPECT_EQ(original.menuGroups[0]->menus[2]->items[3]->subMenu->items[0]->label, L"&Window");
}

TEST(StateJsonForms, MenuBarEntriesNameTheirMenuByPositionTagOrName)
{
    const sim::HostState state = loaded(R"({
        "menuGroups": [{"name": "G", "menus": [
            {"name": "First", "tag": "T1"}, {"name": "Second", "tag": ""}, {"name": "Third", "tag": "T3"}]}],
        "menuBar": [{"menuGroup": 0, "menu": "T3"}, {"menuGroup": "g", "menu": "Second"},
                    {"menuGroup": "G", "menu": 0}, {"menu": {"name": "Loose"}}, null]})");
    const auto& menus = state.menuGroups[0]->menus;
    ASSERT_EQ(state.menuBar.size(), 5u);
    EXPECT_EQ(state.menuBar[0], menus[2]);
    EXPECT_EQ(state.menuBar[1], menus[1]);
    EXPECT_EQ(state.menuBar[2], menus[0]);
    EXPECT_EQ(state.menuBar[3]->name, L"Loose");
    EXPECT_EQ(state.menuBar[4], nullptr);
    EXPECT_TRUE(sim::stateFromJson(sim::stateToJson(state)) == state);
}

TEST(StateJsonForms, ItemTypesMayBeNumbersAndLeftOutMembersKeepTheirDefaults)
{
    const sim::HostState state = loaded(R"({
        "menuGroups": [{"name": "G", "menus": [{"name": "M", "items": [
            {"type": 1}, {"label": "Plain"}, {"type": 2, "label": "Empty submenu"}]}],
            "toolbars": [{"name": "T"}]}],
        "documents": [{"fullFileName": "a.dwg"}], "activeDocument": {"fullFileName": "elsewhere.dwg"}})");
    const auto& items = state.menuGroups[0]->menus[0]->items;
    EXPECT_EQ(items[0]->type, sim::ItemType::separator);
    EXPECT_EQ(items[1]->type, sim::ItemType::command);
    EXPECT_TRUE(items[1]->enabled);
    EXPECT_EQ(items[2]->subMenu, nullptr);
    const sim::Toolbar& toolbar = *state.menuGroups[0]->toolbars[0];
    EXPECT_TRUE(toolbar.visible);
    EXPECT_EQ(toolbar.floatingRows, 1);
    EXPECT_EQ(state.documents[0]->activeLayout, nullptr);
    EXPECT_EQ(state.activeDocument->fullFileName, L"elsewhere.dwg");
    EXPECT_TRUE(state.plotterAnswers);
    EXPECT_TRUE(sim::stateFromJson(sim::stateToJson(state)) == state);
}

TEST(StateJsonForms, AStateWithAFaultTheHostCannotHonourIsNotInstalled)
{
    sim::HostState state = sim::defaultHostState();
    state.faults.push_back(module_testing::failingCall("HostMenuGroups.Item", 0, S_FALSE));
    EXPECT_THROW(sim::Host host(sim::clone(state)), std::invalid_argument);
    EXPECT_EQ(sim::Host::current(), nullptr);
}

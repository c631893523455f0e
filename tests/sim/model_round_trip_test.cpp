// Every member of the host state through equality, clone and the JSON dump and load: a state in
// which each member holds something other than its default, and for each member a change of that
// member alone, which all four must see. A member added to the model and forgotten in one of them
// fails here.
#include "sim/model.h"
#include "sim/state_json.h"
#include "support/faults.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using module_testing::answering;
using module_testing::failingCall;
using module_testing::hostValue;
using module_testing::nullAnswer;
using module_testing::rawNumber;
using module_testing::withheldObject;
using sim::ItemType;

// The probes below leave members out of brace initializers on purpose.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#if defined(__clang__)
// Its conversion is only ever named in unevaluated probes, never called.
#pragma clang diagnostic ignored "-Wundefined-internal"
#endif

// Stands for any member in a brace initializer, so that T{AnyMember...} compiles exactly up to the
// number of T's members.
struct AnyMember {
    template <class T> operator T() const;
};

// Whether T{Members...} compiles: the int overload is chosen over the long one whenever it exists.
template <class T, class... Members>
constexpr auto bracesFit(int) -> decltype(T{std::declval<Members>()...}, true)
{
    return true;
}
template <class T, class... Members> constexpr bool bracesFit(long) { return false; }

template <class T, class... Members> constexpr std::size_t memberCount()
{
    if constexpr (bracesFit<T, Members..., AnyMember>(0))
        return memberCount<T, Members..., AnyMember>();
    else
        return sizeof...(Members);
}

// Whoever adds a member to one of these structs sets it in everyMemberSet(), gives it a mutation
// in kMutations, and then updates its count here.
static_assert(memberCount<sim::PopupMenuItem>() == 6);
static_assert(memberCount<sim::PopupMenu>() == 3);
static_assert(memberCount<sim::ToolbarButton>() == 7);
static_assert(memberCount<sim::Toolbar>() == 8);
static_assert(memberCount<sim::MenuGroup>() == 3);
static_assert(memberCount<sim::PlotWindow>() == 4);
static_assert(memberCount<sim::Layout>() == 3);
static_assert(memberCount<sim::PlotSettings>() == 4);
static_assert(memberCount<sim::Document>() == 6);
static_assert(memberCount<sim::DrawingDemands>() == 2);
static_assert(memberCount<sim::PlotJob>() == 6);
static_assert(memberCount<sim::ZoomRequest>() == 4);
static_assert(memberCount<sim::PreferencesFiles>() == 4);
static_assert(memberCount<sim::HostBehaviour>() == 3);
static_assert(memberCount<sim::HostState>() == 19);  // the first is its base, sim::MoveOnly
static_assert(memberCount<sim::Answer>() == 2);
static_assert(memberCount<sim::Fault>() == 7);

#pragma GCC diagnostic pop

template <class T> std::shared_ptr<T> node(T value) { return std::make_shared<T>(std::move(value)); }

using Items = std::vector<std::shared_ptr<sim::PopupMenuItem>>;

std::shared_ptr<sim::PopupMenu> menu(const wchar_t* name, const wchar_t* tag, Items items)
{
    return node(sim::PopupMenu{name, tag, std::move(items)});
}

std::shared_ptr<sim::PopupMenuItem> item(ItemType type, const wchar_t* label, const wchar_t* macro,
                                         const wchar_t* tag, bool enabled,
                                         std::shared_ptr<sim::PopupMenu> subMenu = nullptr)
{
    return node(sim::PopupMenuItem{type, label, macro, tag, enabled, std::move(subMenu)});
}

// A group of its own on each call, so that the loaded group and the menu file share no node.
std::shared_ptr<sim::MenuGroup> extrasGroup()
{
    const auto bolts = menu(L"&Bolts", L"MX_BOLTS",
                            {item(ItemType::command, L"Bolt &list", L"^C^C_MXBOLTS ", L"ID_Bolts", true)});
    return node(sim::MenuGroup{L"MXEXTRAS", {bolts}, {}});
}

sim::HostState everyMemberSet()
{
    const auto connections =
        menu(L"&Connections", L"MX_CONNECTIONS",
             {item(ItemType::command, L"&Base plate", L"^C^C_MXBASE ", L"ID_Base", true)});
    const auto steel = menu(
        L"&Steel", L"MX_STEEL",
        {item(ItemType::command, L"&Beam", L"^C^C_MXBEAM ", L"ID_Beam", false),
         item(ItemType::separator, L"--", L"^C", L"ID_Rule", false),
         item(ItemType::submenu, L"&Connections", L"^C^C", L"ID_Connections", false, connections), nullptr});
    const auto drawings = menu(L"&Drawings", L"MX_DRAWINGS",
                               {item(ItemType::command, L"&Sheet", L"^C^C_MXSHEET ", L"ID_Sheet", true)});
    const auto beamButton = node(sim::ToolbarButton{L"Beam", L"TB_BEAM", L"^C^C_MXBEAM ", L"Draws a beam",
                                                    L"beam16.bmp", L"beam32.bmp", std::nullopt});
    const auto flyoutButton = node(
        sim::ToolbarButton{L"Columns", L"TB_COLUMNS", L"^C^C", L"Column tools", L"col16.bmp", L"col32.bmp",
                           std::make_pair(std::wstring(L"MX"), std::wstring(L"MX Columns"))});
    const auto beams = node(sim::Toolbar{
        L"MX Beams", L"TB_BEAMS", false, sim::kDockFloating, 120, 340, 2, {beamButton, flyoutButton}});
    const auto columns = node(sim::Toolbar{L"MX Columns", L"TB_COLUMNS", true, 1, 0, 0, 1, {}});
    const auto mx = node(sim::MenuGroup{L"MX", {steel, drawings}, {beams, columns}});

    const auto sheet = node(sim::Layout{L"Layout1", 4, sim::PlotWindow{0.5, 1.25, 420, 297}});
    const auto hall = node(sim::Document{L"C:\\Projects\\Hall\\hall.dwg", sheet,
                                         sim::PlotSettings{3, true, 2, {L"Layout1", L"Layout2"}}, true, short{0},
                                         {sheet, node(sim::Layout{L"Layout2", 5, std::nullopt})}});
    const auto roof = node(
        sim::Document{L"C:\\Projects\\Hall\\roof.dwg", nullptr, sim::PlotSettings{}, false, std::nullopt, {}});

    sim::HostState state;
    state.behaviour = sim::HostBehaviour{true, sim::BeyondEnd::append, false};
    state.menuGroups = {mx, extrasGroup()};
    const auto window =
        menu(L"&Window", L"ZB_WINDOW", {item(ItemType::command, L"&Tile", L"_TILE ", L"ID_Tile", true)});
    state.menuBar = {steel, window};  // a group's menu and a menu of no group
    state.documents = {hall, roof};
    state.activeDocument = hall;
    state.drawingsOnDisk = {L"C:\\Projects\\Hall\\hall.dwg", L"C:\\Projects\\Hall\\crane.dwg"};
    state.drawingDemands = {{L"C:\\Projects\\Hall\\crane.dwg", sim::DrawingDemands{true, L"Hook"}}};
    state.plotJobs = {sim::PlotJob{L"C:\\Projects\\Hall\\hall.dwg",
                                   L"Office plotter",
                                   {L"Layout1"},
                                   2,
                                   4,
                                   sim::PlotWindow{-5, -2.5, 200, 100}}};
    state.plotterAnswers = false;
    state.zoomRequests = {sim::ZoomRequest{-10.5, -20.25, 300, 150.75}};
    state.preferences = sim::PreferencesFiles{L"C:\\MX\\Support;C:\\Zorb\\Support", L"C:\\MX\\Plot Styles",
                                              L"C:\\MX\\Template", L"C:\\Projects"};
    state.systemVariables = {{L"DWGCHECK", 1}, {L"MXUNITS", -3}};
    state.registryRootKey = L"Software\\MX\\Steel";
    state.registryValues = {{L"", {{L"InstallFolder", L"C:\\Program Files\\MX"}}},
                            {L"Settings", {{L"Units", L"mm"}}}};
    state.searchPathFiles = {{L"mx.lin", L"C:\\MX\\Support\\mx.lin"}};
    state.menuFiles = {{L"C:\\Program Files\\MX\\Support\\MXEXTRAS", extrasGroup()},
                       {L"C:\\Program Files\\MX\\Support\\readme.txt", nullptr}};
    state.mxSupportFolder = L"C:\\MX\\Support";

    sim::Fault failing = failingCall("HostMenuGroups.Item", 2);
    failing.object = "'MX'";
    failing.matchingCallsSeen = 1;
    sim::Fault withheld = withheldObject("HostMenuGroups.Item", 3);
    withheld.object = "'MXEXTRAS'";
    withheld.status = E_NOTIMPL;
    withheld.matchingCallsSeen = 2;
    state.faults = {failing, withheld,
                    answering("HostToolbar.get_Visible", rawNumber(1)),
                    answering("HostPopupMenu.get_TagString", nullAnswer()),
                    answering("HostMenuGroups.get_Count", hostValue(), 0, S_FALSE)};
    return state;
}

// Places in the state that everyMemberSet() builds.
sim::MenuGroup& mx(sim::HostState& s) { return *s.menuGroups[0]; }
sim::PopupMenu& steel(sim::HostState& s) { return *mx(s).menus[0]; }
sim::PopupMenuItem& beam(sim::HostState& s) { return *steel(s).items[0]; }
sim::PopupMenuItem& rule(sim::HostState& s) { return *steel(s).items[1]; }
sim::PopupMenuItem& connections(sim::HostState& s) { return *steel(s).items[2]; }
sim::Toolbar& beams(sim::HostState& s) { return *mx(s).toolbars[0]; }
sim::ToolbarButton& flyoutButton(sim::HostState& s) { return *beams(s).buttons[1]; }
sim::Document& hall(sim::HostState& s) { return *s.documents[0]; }
sim::Layout& layout(sim::HostState& s) { return *hall(s).activeLayout; }
sim::PlotWindow& window(sim::HostState& s) { return *layout(s).window; }

struct Mutation {
    const char* member;
    std::function<void(sim::HostState&)> change;  // changes that member alone
};

const std::vector<Mutation> kMutations = {
    {"behaviour.strictArguments", [](sim::HostState& s) { s.behaviour.strictArguments = false; }},
    {"behaviour.menuIndexBeyondEnd",
     [](sim::HostState& s) { s.behaviour.menuIndexBeyondEnd = sim::BeyondEnd::refuse; }},
    {"behaviour.newMenuItemsEnabled", [](sim::HostState& s) { s.behaviour.newMenuItemsEnabled = true; }},
    {"menuGroups", [](sim::HostState& s) { s.menuGroups.pop_back(); }},
    {"MenuGroup.name", [](sim::HostState& s) { mx(s).name = L"MX2"; }},
    {"MenuGroup.menus", [](sim::HostState& s) { mx(s).menus.pop_back(); }},
    {"MenuGroup.toolbars", [](sim::HostState& s) { mx(s).toolbars.pop_back(); }},
    {"PopupMenu.name", [](sim::HostState& s) { steel(s).name = L"S&teel"; }},
    {"PopupMenu.tag", [](sim::HostState& s) { steel(s).tag = L"MX_STEEL2"; }},
    {"PopupMenu.items", [](sim::HostState& s) { steel(s).items.erase(steel(s).items.begin()); }},
    {"PopupMenu.items (a null one)",
     [](sim::HostState& s) { steel(s).items[3] = node(sim::PopupMenuItem{}); }},
    {"PopupMenuItem.type", [](sim::HostState& s) { rule(s).type = ItemType::command; }},
    {"PopupMenuItem.label", [](sim::HostState& s) { beam(s).label = L"&Beams"; }},
    {"PopupMenuItem.macro", [](sim::HostState& s) { beam(s).macro = L"^C^C_MXBEAMS "; }},
    {"PopupMenuItem.tag", [](sim::HostState& s) { beam(s).tag = L"ID_Beams"; }},
    {"PopupMenuItem.enabled", [](sim::HostState& s) { beam(s).enabled = true; }},
    {"PopupMenuItem.subMenu", [](sim::HostState& s) { connections(s).subMenu = nullptr; }},
    {"PopupMenuItem.subMenu (its content)",
     [](sim::HostState& s) { connections(s).subMenu->items[0]->label = L"&Plate"; }},
    {"Toolbar.name", [](sim::HostState& s) { beams(s).name = L"MX Girders"; }},
    {"Toolbar.tag", [](sim::HostState& s) { beams(s).tag = L"TB_GIRDERS"; }},
    {"Toolbar.visible", [](sim::HostState& s) { beams(s).visible = true; }},
    {"Toolbar.dockStatus", [](sim::HostState& s) { beams(s).dockStatus = 2; }},
    {"Toolbar.left", [](sim::HostState& s) { beams(s).left = 121; }},
    {"Toolbar.top", [](sim::HostState& s) { beams(s).top = 341; }},
    {"Toolbar.floatingRows", [](sim::HostState& s) { beams(s).floatingRows = 3; }},
    {"Toolbar.buttons", [](sim::HostState& s) { beams(s).buttons.pop_back(); }},
    {"ToolbarButton.name", [](sim::HostState& s) { flyoutButton(s).name = L"Posts"; }},
    {"ToolbarButton.tag", [](sim::HostState& s) { flyoutButton(s).tag = L"TB_POSTS"; }},
    {"ToolbarButton.macro", [](sim::HostState& s) { flyoutButton(s).macro = L"^C^C_MXPOST "; }},
    {"ToolbarButton.helpString", [](sim::HostState& s) { flyoutButton(s).helpString = L"Post tools"; }},
    {"ToolbarButton.smallBitmap", [](sim::HostState& s) { flyoutButton(s).smallBitmap = L"post16.bmp"; }},
    {"ToolbarButton.largeBitmap", [](sim::HostState& s) { flyoutButton(s).largeBitmap = L"post32.bmp"; }},
    {"ToolbarButton.flyout", [](sim::HostState& s) { flyoutButton(s).flyout.reset(); }},
    {"ToolbarButton.flyout (its group)",
     [](sim::HostState& s) { flyoutButton(s).flyout->first = L"MXEXTRAS"; }},
    {"ToolbarButton.flyout (its toolbar)",
     [](sim::HostState& s) { flyoutButton(s).flyout->second = L"MX Beams"; }},
    {"menuBar", [](sim::HostState& s) { s.menuBar.pop_back(); }},
    {"menuBar (a group's menu)", [](sim::HostState& s) { s.menuBar[0] = mx(s).menus[1]; }},
    {"menuBar (a menu of no group)", [](sim::HostState& s) { s.menuBar[1]->name = L"&Windows"; }},
    {"documents", [](sim::HostState& s) { s.documents.pop_back(); }},
    {"Document.fullFileName",
     [](sim::HostState& s) { hall(s).fullFileName = L"C:\\Projects\\Hall\\shed.dwg"; }},
    {"Document.activeLayout", [](sim::HostState& s) { hall(s).activeLayout = nullptr; }},
    {"Document.activeLayout (another of its layouts)",
     [](sim::HostState& s) { hall(s).activeLayout = hall(s).layouts[1]; }},
    {"Document.activeLayout (outside its layouts)",
     [](sim::HostState& s) { hall(s).activeLayout = node(sim::Layout(layout(s))); }},
    {"Document.layouts", [](sim::HostState& s) { hall(s).layouts.pop_back(); }},
    {"Document.readOnly", [](sim::HostState& s) { hall(s).readOnly = false; }},
    {"Document.drawingCheckWhenOpened", [](sim::HostState& s) { hall(s).drawingCheckWhenOpened.reset(); }},
    {"Layout.name", [](sim::HostState& s) { layout(s).name = L"Layout2"; }},
    {"Layout.plotType", [](sim::HostState& s) { layout(s).plotType = 1; }},
    {"Layout.window", [](sim::HostState& s) { layout(s).window.reset(); }},
    {"PlotWindow.lowerLeftX", [](sim::HostState& s) { window(s).lowerLeftX += 1; }},
    {"PlotWindow.lowerLeftY", [](sim::HostState& s) { window(s).lowerLeftY += 1; }},
    {"PlotWindow.upperRightX", [](sim::HostState& s) { window(s).upperRightX += 1; }},
    {"PlotWindow.upperRightY", [](sim::HostState& s) { window(s).upperRightY += 1; }},
    {"PlotSettings.numberOfCopies", [](sim::HostState& s) { hall(s).plot.numberOfCopies = 4; }},
    {"PlotSettings.quietErrorMode", [](sim::HostState& s) { hall(s).plot.quietErrorMode = false; }},
    {"PlotSettings.batchEntries", [](sim::HostState& s) { hall(s).plot.batchEntries = 0; }},
    {"PlotSettings.layoutsToPlot", [](sim::HostState& s) { hall(s).plot.layoutsToPlot.pop_back(); }},
    {"activeDocument", [](sim::HostState& s) { s.activeDocument = s.documents[1]; }},
    {"activeDocument (outside the collection)",
     [](sim::HostState& s) { s.activeDocument = node(sim::Document(hall(s))); }},
    {"drawingsOnDisk", [](sim::HostState& s) { s.drawingsOnDisk[1] = L"C:\\Projects\\Hall\\gantry.dwg"; }},
    {"drawingDemands", [](sim::HostState& s) { s.drawingDemands.clear(); }},
    {"DrawingDemands.stopsForCheck", [](sim::HostState& s) { s.drawingDemands.begin()->second.stopsForCheck = false; }},
    {"DrawingDemands.password", [](sim::HostState& s) { s.drawingDemands.begin()->second.password.reset(); }},
    {"plotJobs", [](sim::HostState& s) { s.plotJobs.push_back(sim::PlotJob{}); }},
    {"PlotJob.document", [](sim::HostState& s) { s.plotJobs[0].document = L"C:\\Projects\\Hall\\roof.dwg"; }},
    {"PlotJob.device", [](sim::HostState& s) { s.plotJobs[0].device.reset(); }},
    {"PlotJob.layouts", [](sim::HostState& s) { s.plotJobs[0].layouts.push_back(L"Layout2"); }},
    {"PlotJob.numberOfCopies", [](sim::HostState& s) { s.plotJobs[0].numberOfCopies = 1; }},
    {"PlotJob.plotType", [](sim::HostState& s) { s.plotJobs[0].plotType = 0; }},
    {"PlotJob.window", [](sim::HostState& s) { s.plotJobs[0].window.reset(); }},
    {"plotterAnswers", [](sim::HostState& s) { s.plotterAnswers = true; }},
    {"ZoomRequest.lowerLeftX", [](sim::HostState& s) { s.zoomRequests[0].lowerLeftX += 1; }},
    {"ZoomRequest.lowerLeftY", [](sim::HostState& s) { s.zoomRequests[0].lowerLeftY += 1; }},
    {"ZoomRequest.upperRightX", [](sim::HostState& s) { s.zoomRequests[0].upperRightX += 1; }},
    {"ZoomRequest.upperRightY", [](sim::HostState& s) { s.zoomRequests[0].upperRightY += 1; }},
    {"PreferencesFiles.supportPath",
     [](sim::HostState& s) { s.preferences.supportPath = L"C:\\MX\\Support"; }},
    {"PreferencesFiles.printerStyleSheetPath",
     [](sim::HostState& s) { s.preferences.printerStyleSheetPath = L"C:\\MX\\Styles"; }},
    {"PreferencesFiles.templateDrawingFolder",
     [](sim::HostState& s) { s.preferences.templateDrawingFolder = L"C:\\MX\\Templates"; }},
    {"PreferencesFiles.drawingPath", [](sim::HostState& s) { s.preferences.drawingPath = L"D:\\Projects"; }},
    {"systemVariables", [](sim::HostState& s) { s.systemVariables[L"DWGCHECK"] = 0; }},
    {"registryRootKey", [](sim::HostState& s) { s.registryRootKey = L"Software\\MX\\Steel 2"; }},
    {"registryValues", [](sim::HostState& s) { s.registryValues[L"Settings"][L"Units"] = L"inch"; }},
    {"searchPathFiles", [](sim::HostState& s) { s.searchPathFiles[L"mx.lin"] = L"D:\\MX\\mx.lin"; }},
    {"menuFiles",
     [](sim::HostState& s) { s.menuFiles.erase(L"C:\\Program Files\\MX\\Support\\readme.txt"); }},
    {"menuFiles (a file's group)", [](sim::HostState& s) { s.menuFiles.begin()->second->name = L"MXBOLTS"; }},
    {"mxSupportFolder", [](sim::HostState& s) { s.mxSupportFolder = L"D:\\MX\\Support"; }},
    {"faults", [](sim::HostState& s) { s.faults.pop_back(); }},
    {"Fault.kind", [](sim::HostState& s) { s.faults[0].kind = sim::FaultKind::nullObject; }},
    {"Fault.method", [](sim::HostState& s) { s.faults[1].method = "HostMenuGroups.LoadMenuFile"; }},
    {"Fault.object", [](sim::HostState& s) { s.faults[0].object = "'MXEXTRAS'"; }},
    {"Fault.nth", [](sim::HostState& s) { s.faults[0].nth = 0; }},
    {"Fault.status", [](sim::HostState& s) { s.faults[0].status = E_OUTOFMEMORY; }},
    {"Answer.kind", [](sim::HostState& s) { s.faults[4].answer.kind = sim::Answer::Kind::number; }},
    {"Answer.number", [](sim::HostState& s) { s.faults[2].answer.number = 0; }},
    {"Fault.matchingCallsSeen", [](sim::HostState& s) { s.faults[1].matchingCallsSeen = 0; }},
};

nlohmann::json reloaded(const nlohmann::json& dump) { return nlohmann::json::parse(dump.dump()); }

}  // namespace

TEST(StateRoundTrip, AStateWithEveryMemberSetEqualsItselfItsCloneAndItsLoadedDump)
{
    const sim::HostState state = everyMemberSet();
    EXPECT_TRUE(state == state);
    EXPECT_FALSE(state != state);
    EXPECT_TRUE(sim::clone(state) == state);
    EXPECT_TRUE(sim::stateFromJson(reloaded(sim::stateToJson(state))) == state);
}

TEST(StateRoundTrip, ChangingAnyOneMemberIsSeenByEqualityCloneDumpAndLoad)
{
    const sim::HostState original = everyMemberSet();
    const nlohmann::json originalDump = sim::stateToJson(original);
    for (const Mutation& mutation : kMutations) {
        SCOPED_TRACE(mutation.member);
        sim::HostState mutated = sim::clone(original);
        mutation.change(mutated);
        EXPECT_TRUE(mutated != original);
        EXPECT_TRUE(sim::clone(mutated) == mutated);
        const nlohmann::json dump = sim::stateToJson(mutated);
        EXPECT_NE(dump, originalDump);
        EXPECT_TRUE(sim::stateFromJson(reloaded(dump)) == mutated);
    }
}

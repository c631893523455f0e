// The page of a host state and of a run: host texts read as text, toolbars stand at their place,
// and what changed between two states is marked wherever the changed entry is shown.
#include "demo_scenario.h"
#include "html_report.h"
#include "html_text.h"
#include "html_view.h"
#include "runner.h"

#include "sim/host.h"
#include "sim/state_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>

namespace {

using testing::HasSubstr;
using testing::Not;
namespace html = zorbsim::html;

std::size_t occurrences(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

std::string viewOf(const sim::HostState& state, const sim::HostState* baseline = nullptr)
{
    std::ostringstream out;
    html::writeHostView(out, "test", state, baseline);
    return out.str();
}

// How many entries a view marks added, removed and changed: a mark is the last class of an element.
struct Marks {
    std::size_t added = 0, removed = 0, changed = 0;
    bool operator==(const Marks& other) const
    {
        return added == other.added && removed == other.removed && changed == other.changed;
    }
};

std::ostream& operator<<(std::ostream& out, const Marks& marks)
{
    return out << "{added " << marks.added << ", removed " << marks.removed << ", changed " << marks.changed
               << "}";
}

Marks marksOf(const std::string& view)
{
    return {occurrences(view, " added\""), occurrences(view, " removed\""), occurrences(view, " changed\"")};
}

template <class Node>
std::shared_ptr<Node> named(const std::vector<std::shared_ptr<Node>>& nodes, const std::wstring& name)
{
    const auto found = std::find_if(nodes.begin(), nodes.end(),
                                    [&](const auto& node) { return node && node->name == name; });
    return found == nodes.end() ? nullptr : *found;
}

// The part of a view between two texts.
std::string between(const std::string& view, const std::string& start, const std::string& end)
{
    const std::size_t from = view.find(start);
    const std::size_t to = view.find(end, from);
    return from == std::string::npos || to == std::string::npos ? std::string()
                                                                : view.substr(from, to - from);
}

TEST(HtmlText, EscapesMarkupInTextAndAttributes)
{
    EXPECT_EQ(html::escape(std::string("<a href=\"x\">'&'</a>")),
              "&lt;a href=&quot;x&quot;&gt;&#39;&amp;&#39;&lt;/a&gt;");
    EXPECT_EQ(html::escape(std::wstring(L"Gr\u00f6\u00dfe <1>")), "Gr\xc3\xb6\xc3\x9f"
                                                                  "e &lt;1&gt;");
}

TEST(HtmlText, MenuLabelsUnderlineTheirAccessKey)
{
    EXPECT_EQ(html::menuLabel(L"&File"), "<u>F</u>ile");
    EXPECT_EQ(html::menuLabel(L"Save && E&xit"), "Save &amp; E<u>x</u>it");
    EXPECT_EQ(html::menuLabel(L"&<b>"), "<u>&lt;</u>b&gt;");
    EXPECT_EQ(html::menuLabel(L"End&"), "End&amp;");
    EXPECT_EQ(html::menuLabel(L"&&&x"), "&amp;<u>x</u>");
    EXPECT_EQ(html::menuLabel(L"Gr\u00f6&\u00dfe"), "Gr\xc3\xb6<u>\xc3\x9f</u>e");
}

TEST(HostView, HostTextsReadAsTextAndLeaveTheMarkupWhole)
{
    sim::HostState state = sim::defaultHostState();
    auto& file = *state.menuGroups[0]->menus[0];
    file.items[0]->label = L"<script>alert(1)</script>";
    file.items[0]->tag = L"x\" onmouseover=\"alert(2)";
    state.menuGroups[0]->toolbars[0]->name = L"</div></details></ul></li></table>";
    state.menuGroups[0]->toolbars[0]->buttons[0]->helpString = L"'><b>";
    state.documents[0]->fullFileName = L"C:\\</td></tr>.dwg";
    state.systemVariables[L"<VAR>"] = 1;
    const std::string view = viewOf(state);
    EXPECT_THAT(view, Not(HasSubstr("<script")));
    EXPECT_THAT(view, Not(HasSubstr("<b>")));
    EXPECT_THAT(view, HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt;"));
    EXPECT_THAT(view, HasSubstr("tag: x&quot; onmouseover=&quot;alert(2)"));
    for (const char* element : {"div", "details", "ul", "li", "table", "tr", "td", "section", "nav"})
        EXPECT_EQ(occurrences(view, std::string("<") + element + ">") +
                      occurrences(view, std::string("<") + element + " "),
                  occurrences(view, std::string("</") + element + ">"))
            << element;
}

TEST(HostView, PlacesToolbarsAtTheirSideOrPlace)
{
    const std::string view = viewOf(sim::defaultHostState());
    const std::string top = between(view, "class=\"dock dock-top\"", "class=\"dock dock-left\"");
    const std::string left = between(view, "class=\"dock dock-left\"", "class=\"drawing\"");
    const std::string right = between(view, "class=\"dock dock-right\"", "class=\"dock dock-bottom\"");
    EXPECT_THAT(top, HasSubstr("data-name=\"Standard\""));
    EXPECT_THAT(left, HasSubstr("data-name=\"Draw\""));
    EXPECT_THAT(right, HasSubstr("data-name=\"Modify\""));
    EXPECT_THAT(top + left + right, Not(HasSubstr("data-name=\"Zoom\"")));
    // Hidden and floating: in line below the drawing, not at its place where hidden ones would pile
    // up, which its hover text still tells.
    const std::string parked = between(view, "class=\"dock parked\"", "class=\"dock dock-right\"");
    EXPECT_THAT(parked, HasSubstr("class=\"toolbar floating hidden\" data-name=\"Zoom\" "
                                  "title=\"TB_ZOOM, floating at (420, 310) in 1 row\""));
    EXPECT_THAT(parked, Not(HasSubstr("style=")));
    // The Standard toolbar's Zoom Window button opens the Zoom toolbar.
    EXPECT_THAT(view, HasSubstr("<span class=\"flyout-to\">&#9656; TB_ZOOM</span>"));
}

TEST(HostView, AStateAgainstItselfHasNoMarks)
{
    sim::HostState state = sim::defaultHostState();
    state.menuGroups.push_back(state.menuFiles.begin()->second);
    EXPECT_EQ(marksOf(viewOf(state)), Marks{});
    EXPECT_EQ(marksOf(viewOf(state, &state)), Marks{});
    EXPECT_EQ(html::changedParts(state, state), std::vector<std::string>{});
}

TEST(HostView, AnAddedItemIsMarkedWhereverItsMenuIsShown)
{
    const sim::HostState before = sim::defaultHostState();
    sim::HostState after = sim::clone(before);
    auto item = std::make_shared<sim::PopupMenuItem>();
    item->label = L"&Recent";
    auto& file = *named(after.menuGroups[0]->menus, L"&File");
    file.items.insert(file.items.begin() + 2, item);
    // The item on the menu bar and in its group; its menu in both places, and its group.
    EXPECT_EQ(marksOf(viewOf(after, &before)), (Marks{2, 0, 3}));
    EXPECT_EQ(html::changedParts(before, after), (std::vector<std::string>{"menu bar", "menu groups"}));
}

TEST(HostView, ARemovedToolbarStaysWhereItWasMarkedRemoved)
{
    const sim::HostState before = sim::defaultHostState();
    sim::HostState after = sim::clone(before);
    auto& toolbars = after.menuGroups[0]->toolbars;
    toolbars.erase(std::find(toolbars.begin(), toolbars.end(), named(toolbars, L"Modify")));
    const std::string view = viewOf(after, &before);
    EXPECT_EQ(marksOf(view), (Marks{0, 2, 1}));
    EXPECT_THAT(between(view, "class=\"dock dock-right\"", "class=\"dock dock-bottom\""),
                HasSubstr("class=\"toolbar removed\" data-name=\"Modify\""));
}

TEST(HostView, ALoadedGroupMarksItsToolbarsInTheWindowToo)
{
    const sim::HostState before = sim::defaultHostState();
    sim::HostState after = sim::clone(before);
    after.menuGroups.push_back(after.menuFiles.at(L"C:\\Program Files\\MX\\Support\\MX"));
    // The group, and its three toolbars where they stand in the window.
    EXPECT_EQ(marksOf(viewOf(after, &before)), (Marks{4, 0, 0}));
    // Unloaded again, they are shown where they were, marked removed.
    EXPECT_EQ(marksOf(viewOf(before, &after)), (Marks{0, 4, 0}));
}

TEST(HostView, MarksVariablesAndTheDocumentThatBecameActive)
{
    const sim::HostState before = sim::defaultHostState();
    sim::HostState after = sim::clone(before);
    after.systemVariables[L"DWGCHECK"] = 0;
    after.systemVariables[L"MXVAR"] = 3;
    auto opened = std::make_shared<sim::Document>();
    opened->fullFileName = after.drawingsOnDisk[1];
    after.documents.push_back(opened);
    after.activeDocument = opened;
    // The new variable and the new document (its tab and its row); DWGCHECK, and the document that
    // is no longer active (tab and row).
    EXPECT_EQ(marksOf(viewOf(after, &before)), (Marks{3, 0, 3}));
    EXPECT_EQ(html::changedParts(before, after), (std::vector<std::string>{"documents", "system variables"}));
}

TEST(HostView, ShowsADrawingsLayoutsWithTheActiveOneAndWhetherItIsReadOnly)
{
    sim::HostState state = sim::defaultHostState();
    sim::Document& open = *state.documents[0];
    open.activeLayout = open.layouts[1];
    open.readOnly = true;
    const std::string view = viewOf(state);
    EXPECT_THAT(view, HasSubstr("<td>Layout1, <strong>Layout2</strong> (active: plot type 5 layout, window none)</td>"));
    EXPECT_THAT(view, HasSubstr("<span class=\"badge\">read-only</span>"));

    open.activeLayout = std::make_shared<sim::Layout>(sim::Layout{L"Sheet", 4, std::nullopt});
    open.readOnly = false;
    EXPECT_THAT(viewOf(state), HasSubstr("<td><strong>Sheet</strong> (active: plot type 4 window, window none), "
                                         "Layout1, Layout2</td>"));
    EXPECT_THAT(viewOf(state), Not(HasSubstr("read-only")));
}

TEST(RunStates, AreKeptOnlyWhenAskedAndSharedWhileNothingChanges)
{
    // Each run starts from a clone of the demo's host: a run changes the state it is given.
    const zorbsim::Scenario demo = zorbsim::demoScenario();
    const zorbsim::RunResult dropped = zorbsim::runScenario(
        sim::clone(demo.host), demo.steps, zorbsim::HostCalls::dropped, zorbsim::HostStates::dropped);
    EXPECT_EQ(dropped.initialState, nullptr);
    EXPECT_TRUE(std::all_of(dropped.steps.begin(), dropped.steps.end(),
                            [](const zorbsim::StepResult& step) { return step.stateAfter == nullptr; }));

    const zorbsim::RunResult kept = zorbsim::runScenario(
        sim::clone(demo.host), demo.steps, zorbsim::HostCalls::dropped, zorbsim::HostStates::kept);
    ASSERT_NE(kept.initialState, nullptr);
    EXPECT_EQ(sim::stateToJson(*kept.initialState), sim::stateToJson(demo.host));
    // Step 1 only asks for the application; step 16 loads the MX menu files.
    EXPECT_EQ(kept.steps[0].stateAfter, kept.initialState);
    ASSERT_NE(kept.steps[15].stateAfter, kept.steps[14].stateAfter);
    EXPECT_EQ(kept.steps[15].stateAfter->menuGroups.size(), 3u);
    EXPECT_EQ(sim::stateToJson(*kept.steps.back().stateAfter), kept.finalState);
}

TEST(RunReport, ShowsEachStepWithWhatItChanged)
{
    const nlohmann::json document = nlohmann::json::parse(R"({
      "steps": [
        {"call": "setTemplateDwgPath", "args": {"path": "C:\\<T>"}, "expect": {"result": true}},
        {"call": "getCadDrawingPath", "expect": {"result": false}},
        {"faults": {"arm": [{"kind": "failCall", "method": "HostMenuGroups.Item", "status": "E_FAIL"}]}}
      ]})");
    const zorbsim::Scenario scenario = zorbsim::parseScenario(document, "<test>", ".");
    const zorbsim::RunResult run = zorbsim::runScenario(sim::defaultHostState(), scenario.steps,
                                                        zorbsim::HostCalls::kept, zorbsim::HostStates::kept);
    std::ostringstream out;
    html::writeRunReport(out, scenario, run);
    const std::string page = out.str();

    EXPECT_THAT(page, HasSubstr("<title>zorbsim report: &lt;test&gt;</title>"));
    EXPECT_THAT(page, HasSubstr("2 passed, 1 failed"));
    const std::string first = between(page, "id=\"step-1\"", "</section>\n</details>");
    EXPECT_THAT(first, HasSubstr("ZORBAppUtilities::setTemplateDwgPath(path: &quot;C:\\&lt;T&gt;&quot;)"));
    EXPECT_THAT(first, HasSubstr("<summary>the host after this step: changed preferences</summary>"));
    EXPECT_THAT(first, HasSubstr("<tr class=\"preference changed\"><td>template drawing folder</td>"));
    EXPECT_THAT(first,
                HasSubstr("host calls</summary><ol><li><code>sdk.zbedGetZorbWinApp() on sdk -&gt; S_OK"));
    EXPECT_THAT(page, HasSubstr("<section class=\"step failed\" id=\"step-2\">"));
    const std::string second = between(page, "id=\"step-2\"", "</section>");
    EXPECT_THAT(second, HasSubstr("<pre class=\"fail\">FAIL  result: expected false, got true</pre>"));
    EXPECT_THAT(second, HasSubstr("the host did not change"));
    // Arming a fault changes the host, but nothing the view shows.
    EXPECT_THAT(between(page, "id=\"step-3\"", "</section>"), HasSubstr("the view shows no change"));
    EXPECT_EQ(occurrences(page, "<script>"), 1u);
}

}  // namespace

// The host state as JSON: round trips and the complaints about bad input.
#include "sim/host.h"
#include "sim/state_json.h"
#include "support/faults.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

namespace {

std::string errorOf(const nlohmann::json& document)
{
    try {
        sim::stateFromJson(document);
    }
    catch (const sim::StateError& error) {
        return error.what();
    }
    return "(loaded)";
}

// A state file written for one test and removed after it.
class StateFile {
public:
    explicit StateFile(const std::string& text) : m_path(::testing::TempDir() + "sim_state_test.json")
    {
        std::ofstream(m_path, std::ios::binary) << text;
    }
    ~StateFile() { std::remove(m_path.c_str()); }
    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

std::string loadErrorOf(const std::string& text)
{
    StateFile file(text);
    try {
        sim::loadStateFile(file.path());
    }
    catch (const sim::StateError& error) {
        const std::string message = error.what();
        return message.substr(file.path().size());
    }
    return "(loaded)";
}

}  // namespace

TEST(StateJson, TheDefaultHostDumpsAndLoadsBackEqual)
{
    const sim::HostState original = sim::defaultHostState();
    const nlohmann::json dumped = sim::stateToJson(original);
    EXPECT_TRUE(sim::stateFromJson(nlohmann::json::parse(dumped.dump(2))) == original);
    EXPECT_EQ(dumped["menuBar"][0], (nlohmann::json{{"menuGroup", "ZORB"}, {"menu", 0}}));
}

TEST(StateJson, RelationsNullsFaultsAndWideTextSurviveARoundTrip)
{
    sim::HostState state = sim::defaultHostState();
    state.menuGroups.push_back(state.menuFiles.begin()->second);
    state.menuGroups.push_back(nullptr);
    state.menuBar.push_back(state.menuGroups[1]->menus[1]);
    state.menuBar.push_back(std::make_shared<sim::PopupMenu>());  // a menu of no group
    state.menuGroups[1]->menus[1]->items[4]->subMenu->items.push_back(nullptr);
    state.documents.push_back(std::make_shared<sim::Document>());
    state.documents.back()->fullFileName = L"C:\\Ünïcødé\\\U0001F3D7 site.dwg";  // beyond the BMP
    state.activeDocument = state.documents.back();
    state.plotJobs.push_back({L"a.dwg", std::nullopt, {L"Layout1"}, 2, 4, sim::PlotWindow{0, 0, 0.1, 1e9}});
    sim::Fault fault =
        module_testing::failingCall("HostToolbar.put_Visible", 3, static_cast<HRESULT>(0x80040205));
    fault.object = "'MX'";
    fault.matchingCallsSeen = 1;
    state.faults.push_back(fault);

    const sim::HostState loaded = sim::stateFromJson(nlohmann::json::parse(sim::stateToJson(state).dump()));
    EXPECT_TRUE(loaded == state);
    EXPECT_EQ(loaded.menuBar[loaded.menuBar.size() - 2], loaded.menuGroups[1]->menus[1]);
    EXPECT_EQ(loaded.activeDocument, loaded.documents.back());
    EXPECT_EQ(loaded.documents.back()->fullFileName, state.documents.back()->fullFileName);

    sim::HostState changed = sim::clone(loaded);
    EXPECT_TRUE(changed == loaded);
    changed.menuBar[0] = changed.menuGroups[0]->menus[1];  // same content elsewhere, another menu
    EXPECT_FALSE(changed == loaded);
}

TEST(StateJson, ErrorsNameThePathAndWhatWasExpected)
{
    nlohmann::json document = sim::stateToJson(sim::defaultHostState());
    document["menuGroups"][0]["toolbars"][0]["visible"] = "yes";
    EXPECT_EQ(errorOf(document), "/menuGroups/0/toolbars/0/visible: expected a boolean");

    EXPECT_EQ(errorOf({{"menuGroups", {{{"name", "A"}, {"toolbar", nullptr}}}}}),
              "/menuGroups/0/toolbar: unknown member (expected one of: name, menus, toolbars)");
    EXPECT_EQ(errorOf({{"menuBar", {{{"menuGroup", "NOPE"}, {"menu", 0}}}}}),
              "/menuBar/0/menuGroup: no loaded menu group 'NOPE'");
    EXPECT_EQ(errorOf({{"systemVariables", {{"DWGCHECK", 40000}}}}),
              "/systemVariables/DWGCHECK: expected a whole number from -32768 to 32767");
    EXPECT_EQ(errorOf({{"registry", {{"values", {{"a/b", {{"x", 1}}}}}}}}),
              "/registry/values/a~1b/x: expected a string");
    EXPECT_EQ(errorOf({{"faults",
                        {{{"kind", "failCall"}, {"method", "HostMenuGroups.Item"}, {"status", "E_WHAT"}}}}}),
              "/faults/0/status: expected a status name such as \"E_FAIL\" or a code such as \"0x80004005\"");
    EXPECT_EQ(errorOf({{"activeDocument", 0}}), "/activeDocument: no open drawing at index 0");
    EXPECT_EQ(errorOf(nlohmann::json::array()), "expected an object");
    EXPECT_EQ(errorOf({{"drawingsOnDisk", {std::string("\xC3\x28")}}}),
              "/drawingsOnDisk/0: expected a string of valid UTF-8");
}

TEST(StateJson, MalformedFilesAreReportedByLineAndColumn)
{
    EXPECT_EQ(
        loadErrorOf(
            "{\n  \"plotterAnswers\": true,\n  \"mxSupportFolder\": \"C:\\\\MX\"\n  \"faults\": []\n}\n")
            .substr(0, 7),
        ":4:10: ");  // where the parser noticed: the end of the unexpected "faults"
    EXPECT_EQ(loadErrorOf("// a comment is allowed\n{\"plotterAnswers\": 1}"),
              ": /plotterAnswers: expected a boolean");
    EXPECT_EQ(loadErrorOf("{\"mxSupportFolder\": \"é\" x}").substr(0, 6), ":1:25:");
    EXPECT_NE(std::string("(loaded)"), loadErrorOf("{"));
}

TEST(StateJson, FaultsLoadOnTheirOwnForScenarios)
{
    const auto faults = sim::faultsFromJson(nlohmann::json::parse(R"([
        {"kind": "noDispatch"},
        {"kind": "failCall", "method": "sdk.zbedGetVar", "status": 2147942487}])"));
    ASSERT_EQ(faults.size(), 2u);
    EXPECT_EQ(faults[0].kind, sim::FaultKind::noDispatch);
    EXPECT_EQ(faults[1].status, E_INVALIDARG);
    EXPECT_THROW(sim::faultsFromJson(nlohmann::json::parse(R"([{"kind": "nullObject"}])")), sim::StateError);
}

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

// Every member's round trip is the model round trip's; these are the forms it does not hold: a
// menu bar entry named by its group and position, a null group, text beyond the BMP and a status
// with no name.
TEST(StateJson, NullGroupsWideTextAndUnnamedStatusesSurviveARoundTrip)
{
    sim::HostState state = sim::defaultHostState();
    state.menuGroups.push_back(nullptr);
    state.documents.back()->fullFileName = L"C:\\Ünïcødé\\\U0001F3D7 site.dwg";
    state.faults.push_back(
        module_testing::failingCall("HostToolbar.put_Visible", 3, static_cast<HRESULT>(0x80040205)));

    const nlohmann::json dumped = sim::stateToJson(state);
    EXPECT_EQ(dumped["menuBar"][0], (nlohmann::json{{"menuGroup", "ZORB"}, {"menu", 0}}));
    const sim::HostState loaded = sim::stateFromJson(nlohmann::json::parse(dumped.dump()));
    EXPECT_TRUE(loaded == state);
    EXPECT_EQ(loaded.menuGroups.back(), nullptr);
    EXPECT_EQ(loaded.documents.back()->fullFileName, state.documents.back()->fullFileName);
    EXPECT_EQ(loaded.faults.back().status, static_cast<HRESULT>(0x80040205));
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

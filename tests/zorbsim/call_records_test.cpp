// What the runner and the reports show of each call beyond its outcome: the core library's contract
// reports, changes of the support path global, and host references left held. No exported operation
// of the module trips a contract check from a scenario, keeps the global's address or its text, or
// leaks a reference, so stand-in operations make the calls; tests/zorbsim/support-paths.json and
// documents.json run the module's own.
#include "report.h"
#include "runner.h"

#include "operation_binding.h"

#include "MxtGlobalStorage"
#include "ZORBAppUtilities.h"
#include "sim/host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using zorbsim::Operation;

MxtString thirdFolder(const MxtArray<MxtString>& folders)
{
    return folders[2];
}

// The new string is made before the old one is deleted, so it never reuses the old address.
void replaceSupportPaths(const MxtString& text)
{
    MxtString* replacement = new MxtString(text);
    delete MxtGlobalStorage::g_pZorbSupportPaths;
    MxtGlobalStorage::g_pZorbSupportPaths = replacement;
}

void appendToSupportPaths(const MxtString& tail)
{
    *MxtGlobalStorage::g_pZorbSupportPaths += tail;
}

void dropSupportPaths()
{
    delete MxtGlobalStorage::g_pZorbSupportPaths;
    MxtGlobalStorage::g_pZorbSupportPaths = nullptr;
}

// Takes `count` references on the host application and never gives them back.
bool holdApplication(long count)
{
    for (long taken = 0; taken < count; ++taken) {
        IDispatch* application = nullptr;
        ZORBAppUtilities::getCADAppDispatch(&application);
    }
    return true;
}

const Operation kThirdFolder = zorbsim::bindOperation("StandIn", "thirdFolder", &thirdFolder, "folders");
const Operation kReplace =
    zorbsim::bindOperation("StandIn", "replaceSupportPaths", &replaceSupportPaths, "text");
const Operation kAppend =
    zorbsim::bindOperation("StandIn", "appendToSupportPaths", &appendToSupportPaths, "tail");
const Operation kDrop = zorbsim::bindOperation("StandIn", "dropSupportPaths", &dropSupportPaths);
const Operation kHold = zorbsim::bindOperation("StandIn", "holdApplication", &holdApplication, "count");
const Operation kHoldByDesign = zorbsim::bindOperation("StandIn", "holdApplication", &holdApplication, "count")
                                    .keepingApplicationReference();

class CallRecords : public testing::Test {
protected:
    void SetUp() override { dropSupportPaths(); }

    void call(const Operation& operation, const json& arguments)
    {
        const zorbsim::InputPlace place("test");
        zorbsim::Step step;
        step.number = static_cast<int>(m_scenario.steps.size()) + 1;
        step.action = zorbsim::CallStep{&operation, operation.bind(arguments, place), {}};
        m_scenario.steps.push_back(std::move(step));
    }

    const zorbsim::RunResult& run()
    {
        m_run = zorbsim::runScenario(sim::defaultHostState(), m_scenario.steps, zorbsim::HostCalls::kept);
        return m_run;
    }

    std::string textReport() const
    {
        std::ostringstream out;
        zorbsim::printTextReport(out, m_scenario, m_run, false);
        return out.str();
    }

    json jsonSteps() const
    {
        std::ostringstream out;
        zorbsim::printJsonReport(out, m_scenario, m_run, false, {});
        return json::parse(out.str()).at("steps");
    }

private:
    zorbsim::Scenario m_scenario{"test", "", "built-in default host", {}, {}, {}};
    zorbsim::RunResult m_run;
};

// What a step shows of the global: nothing, null, or its text in quotes.
std::string shownSupportPaths(const zorbsim::StepResult& step)
{
    if (!step.supportPaths)
        return "nothing";
    const std::optional<std::string>& text = step.supportPaths->text;
    return text ? "\"" + *text + "\"" : "null";
}

TEST_F(CallRecords, EachCallShowsTheContractReportsItRaisedAndNoOthers)
{
    MxtAssert::mxtAssert("raised before the run", "elsewhere", 1);
    call(kThirdFolder, {{"folders", {"A", "B", "C"}}});
    call(kThirdFolder, {{"folders", {"A"}}});
    call(kThirdFolder, {{"folders", {"A", "B", "C"}}});
    run();

    const std::string text = textReport();
    EXPECT_THAT(text,
                HasSubstr("folders: [\"A\"])\n  -> \"\"\n"
                          "  assertion: \"isValid( index )\" at Sources/Base/QRNRoots/Exp/MxtArray:524\n\n"
                          "step 3"));
    EXPECT_EQ(text.find("assertion:"), text.rfind("assertion:")) << text;

    const json steps = jsonSteps();
    const json report = {
        {"condition", "isValid( index )"}, {"path", "Sources/Base/QRNRoots/Exp/MxtArray"}, {"line", 524}};
    EXPECT_EQ(steps[1].at("assertions"), json::array({report}));
    EXPECT_FALSE(steps[0].contains("assertions"));
    EXPECT_FALSE(steps[2].contains("assertions"));
}

TEST_F(CallRecords, SupportPathsShowWhenTheCallChangedThePointerOrItsText)
{
    call(kReplace, {{"text", "C:\\MX"}});
    call(kReplace, {{"text", "C:\\MX"}});  // the same text at a new address
    call(kAppend, {{"tail", ";D:\\Symbols"}});
    call(kAppend, {{"tail", ""}});
    call(kDrop, json());
    call(kDrop, json());

    std::vector<std::string> shown;
    for (const zorbsim::StepResult& step : run().steps)
        shown.push_back(shownSupportPaths(step));
    EXPECT_THAT(shown, ElementsAre("\"C:\\MX\"", "\"C:\\MX\"", "\"C:\\MX;D:\\Symbols\"", "nothing", "null",
                                   "nothing"));

    // The module's own calls never leave the global null; only here does a report show null.
    EXPECT_THAT(textReport(),
                HasSubstr("  -> done\n  MxtGlobalStorage::g_pZorbSupportPaths = null\n\nstep 6"));
    const json steps = jsonSteps();
    EXPECT_EQ(steps[4].at("zorbSupportPaths"), json(nullptr));
    EXPECT_FALSE(steps[5].contains("zorbSupportPaths"));
}

// References are counted per call, so one kept earlier does not show again at the next step, and
// only what an operation declares it keeps is taken as known.
TEST_F(CallRecords, ReferencesACallLeftHeldAreKnownWhenDeclaredAndFailTheStepOtherwise)
{
    call(kHoldByDesign, {{"count", 1}});
    call(kThirdFolder, {{"folders", {"A", "B", "C"}}});
    call(kHoldByDesign, {{"count", 2}});
    call(kHold, {{"count", 1}});

    std::vector<std::pair<long, long>> keptAndLeaked;
    std::vector<bool> passed;
    for (const zorbsim::StepResult& step : run().steps) {
        keptAndLeaked.emplace_back(step.referencesKept, step.referencesLeaked);
        passed.push_back(step.passed());
    }
    EXPECT_THAT(keptAndLeaked, ElementsAre(std::pair(1L, 0L), std::pair(0L, 0L), std::pair(1L, 1L), std::pair(0L, 1L)));
    EXPECT_THAT(passed, ElementsAre(true, true, false, false));

    const std::string text = textReport();
    EXPECT_THAT(text, HasSubstr("  -> true\n  kept: 1 host reference(s), as holdApplication keeps its application "
                                "reference by design\n\nstep 2"));
    EXPECT_THAT(text, HasSubstr("by design\n  leak: the call left 1 host reference(s) held\n\nstep 4"));
    EXPECT_THAT(text, HasSubstr("\n2 passed, 2 failed\n"));
    const json steps = jsonSteps();
    EXPECT_EQ(steps[0].at("referencesKept"), 1);
    EXPECT_EQ(steps[3].at("referencesLeaked"), 1);
}

}  // namespace

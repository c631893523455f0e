// What the runner and the reports show of the core library's records during each call: its
// contract reports. No exported operation of the module trips a contract check from a scenario, so
// stand-in operations make the calls.
#include "report.h"
#include "runner.h"

#include "operation_binding.h"

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
using testing::IsEmpty;
using testing::Not;
using zorbsim::Operation;

MxtString thirdFolder(const MxtArray<MxtString>& folders)
{
    return folders[2];
}

const Operation kThirdFolder = zorbsim::bindOperation("StandIn", "thirdFolder", &thirdFolder, "folders");

class CallRecords : public testing::Test {
protected:
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
        m_run = zorbsim::runScenario(sim::defaultHostState(), m_scenario.steps);
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
        zorbsim::printJsonReport(out, m_scenario, m_run, false);
        return json::parse(out.str()).at("steps");
    }

private:
    zorbsim::Scenario m_scenario{"test", "", "built-in default host", {}, {}};
    zorbsim::RunResult m_run;
};

MATCHER(IsArrayReadReport, "")
{
    return arg.condition == "isValid( index )" && arg.path == "Sources/Base/QRNRoots/Exp/MxtArray" &&
           arg.line == 524;
}

TEST_F(CallRecords, EachCallShowsTheContractReportsItRaisedAndNoOthers)
{
    MxtAssert::mxtAssert("raised before the run", "elsewhere", 1);
    call(kThirdFolder, {{"folders", {"A", "B", "C"}}});
    call(kThirdFolder, {{"folders", {"A"}}});
    call(kThirdFolder, {{"folders", {"A", "B", "C"}}});

    const zorbsim::RunResult& result = run();
    EXPECT_THAT(result.steps[0].assertionReports, IsEmpty());
    EXPECT_THAT(result.steps[1].assertionReports, ElementsAre(IsArrayReadReport()));
    EXPECT_THAT(result.steps[2].assertionReports, IsEmpty());
}

TEST_F(CallRecords, ReportsShowContractReportsOnlyUnderTheCallThatRaisedThem)
{
    call(kThirdFolder, {{"folders", {"A"}}});
    call(kThirdFolder, {{"folders", {"A", "B", "C"}}});
    run();

    const std::string text = textReport();
    EXPECT_THAT(text,
                HasSubstr("folders: [\"A\"])\n  -> \"\"\n"
                          "  assertion: \"isValid( index )\" at Sources/Base/QRNRoots/Exp/MxtArray:524\n\n"
                          "step 2"));
    EXPECT_THAT(text.substr(text.find("step 2")), Not(HasSubstr("assertion")));

    const json steps = jsonSteps();
    const json report = {
        {"condition", "isValid( index )"}, {"path", "Sources/Base/QRNRoots/Exp/MxtArray"}, {"line", 524}};
    EXPECT_EQ(steps[0].at("assertions"), json::array({report}));
    EXPECT_FALSE(steps[1].contains("assertions"));
}

}  // namespace

#include "html_report.h"

#include "html_page.h"
#include "html_text.h"
#include "html_view.h"
#include "report_lines.h"

#include <stdexcept>
#include <type_traits>

namespace zorbsim::html {
namespace {

constexpr const char* kLegend =
    "<p class=\"legend\">What a step changed: <span class=\"added\">added</span>"
    "<span class=\"removed\">removed</span><span class=\"changed\">changed</span> &mdash; "
    "click a menu to open it; hover for tags and details.</p>\n";

void writeLines(std::ostream& out, const std::vector<std::string>& lines)
{
    for (const std::string& line : lines)
        out << "<pre>" << escape(line) << "</pre>\n";
}

void writeExpectations(std::ostream& out, const StepResult& result, bool showPassedValues)
{
    for (const ExpectationResult& expectation : result.expectations)
        out << "<pre class=\"" << (expectation.passed ? "pass" : "fail") << "\">"
            << escape(expectationLine(expectation, showPassedValues)) << "</pre>\n";
}

void writeHostCalls(std::ostream& out, const StepResult& result)
{
    const std::size_t count = result.hostCalls.size();
    if (count == 0) {
        out << "<p class=\"muted\">no host calls</p>\n";
        return;
    }
    out << "<details class=\"fold\"><summary>" << count << (count == 1 ? " host call" : " host calls")
        << "</summary><ol>";
    for (const HostCall& call : result.hostCalls)
        out << "<li><code>" << escape(hostCallLine(call)) << "</code></li>";
    out << "</ol></details>\n";
}

void writeStepAction(std::ostream& out, const StepResult& result)
{
    std::visit(
        [&](const auto& action) {
            using Action = std::decay_t<decltype(action)>;
            if constexpr (std::is_same_v<Action, CallStep>) {
                out << "<pre><strong>" << escape(callLine(action)) << "</strong></pre>\n";
                writeLines(out, outcomeLines(*action.operation, result));
                writeLines(out, coreLibraryLines(result));
                writeExpectations(out, result, false);
                writeHostCalls(out, result);
            }
            else if constexpr (std::is_same_v<Action, FaultsStep>) {
                writeLines(out, faultsLines(action));
            }
            else {
                out << "<p>host state:</p>\n";
                writeExpectations(out, result, true);
            }
        },
        result.step->action);
}

// The host after the step, folded, with what the step changed marked.
void writeStepHost(std::ostream& out, const std::string& name, const sim::HostState& before,
                   const sim::HostState& after)
{
    std::string changed;
    for (const std::string& part : changedParts(before, after))
        changed += (changed.empty() ? "" : ", ") + part;
    if (changed.empty()) {
        out << "<p class=\"muted\">the view shows no change</p>\n";
        return;
    }
    out << "<details class=\"fold host-change\"><summary>the host after this step: changed " << changed
        << "</summary>\n";
    writeHostView(out, name, after, &before);
    out << "</details>\n";
}

void writeStep(std::ostream& out, const StepResult& result, const sim::HostState& before)
{
    const Step& step = *result.step;
    const bool passed = result.passed();
    const std::string name = "step-" + std::to_string(step.number);
    out << "<section class=\"step" << (passed ? "" : " failed") << "\" id=\"" << name << "\">\n<h3>step "
        << step.number << (step.title.empty() ? "" : ": " + escape(step.title)) << " <span class=\""
        << (passed ? "pass\">pass" : "fail\">FAIL") << "</span></h3>\n";
    writeStepAction(out, result);
    if (result.stateAfter.get() == &before)
        out << "<p class=\"muted\">the host did not change</p>\n";
    else
        writeStepHost(out, name, before, *result.stateAfter);
    out << "</section>\n";
}

}  // namespace

void writeRunReport(std::ostream& out, const Scenario& scenario, const RunResult& run)
{
    if (!run.initialState)
        throw std::logic_error("an HTML report needs a run that kept its host states");
    writePageStart(out, "zorbsim report: " + scenario.name);
    out << "<h1>zorbsim report: " << escape(scenario.name) << "</h1>\n";
    if (!scenario.description.empty())
        out << "<p>" << escape(scenario.description) << "</p>\n";
    out << "<p>Host: " << escape(scenario.hostDescription) << "</p>\n<p><strong>" << run.passedSteps()
        << " passed, " << run.failedSteps() << " failed</strong></p>\n"
        << kLegend << "<h2>The host before the first step</h2>\n";
    writeHostView(out, "before", *run.initialState);
    out << "<h2>Steps</h2>\n";
    const sim::HostState* before = run.initialState.get();
    for (const StepResult& result : run.steps) {
        writeStep(out, result, *before);
        before = result.stateAfter.get();
    }
    out << "<h2>The host after the last step, marked against the host before the first</h2>\n";
    writeHostView(out, "after", *before, run.initialState.get());
    writePageEnd(out);
}

}  // namespace zorbsim::html

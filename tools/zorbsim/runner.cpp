#include "runner.h"

#include "core_library_watch.h"
#include "expectations.h"

#include "sim/host.h"
#include "sim/state_json.h"
#include "automation/utf8.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <string>
#include <type_traits>

namespace zorbsim {
namespace {

// The description of the error information a failed host call on an object has just left, put back
// at once so that the module finds it as it would have. Information seen before is a stale one that
// the call did not replace, and is no description of it; it is held, so that its address cannot come
// again for another.
class FailureDescriptions {
public:
    std::string take(const sim::JournalEntry& entry)
    {
        if (SUCCEEDED(entry.status) || entry.object == "sdk")
            return {};
        IErrorInfo* raw = nullptr;
        if (GetErrorInfo(0, &raw) != S_OK)
            return {};
        IErrorInfoPtr info(raw, false);
        SetErrorInfo(0, info);
        if (info == m_lastSeen)
            return {};
        m_lastSeen = info;
        BSTR description = nullptr;
        if (FAILED(info->GetDescription(&description)) || description == nullptr)
            return {};
        const _bstr_t owned(description, false);
        return automation_text::toUtf8(std::wstring_view(static_cast<const wchar_t*>(owned), owned.length()));
    }

private:
    IErrorInfoPtr m_lastSeen;
};

void runCall(sim::Host& host, const CallStep& call, HostCalls hostCalls, StepResult& result)
{
    host.journal().clear();
    const long referencesBefore = host.referencesHeld();
    const CoreLibraryWatch coreLibrary;
    std::vector<std::string> descriptions;
    FailureDescriptions failures;
    if (hostCalls != HostCalls::dropped)
        host.journal().setObserver(
            [&](const sim::JournalEntry& entry) { descriptions.push_back(failures.take(entry)); });
    CallOutcome& outcome = result.outcome.emplace();
    try {
        call.bound.call(outcome);
    }
    catch (const _com_error& error) {
        result.failure = describeFailure(error);
    }
    catch (const std::exception& error) {
        result.otherException = error.what();
    }
    catch (...) {
        result.otherException = "an exception of unknown type";
    }
    if (hostCalls != HostCalls::dropped) {
        host.journal().setObserver(nullptr);
        const std::vector<sim::JournalEntry>& entries = host.journal().entries();
        for (std::size_t i = 0; i < entries.size(); ++i)
            result.hostCalls.push_back({entries[i], std::move(descriptions[i])});
    }
    const long referencesLeft = host.referencesHeld() - referencesBefore;
    result.referencesKept = call.operation->keepsApplicationReference() ? std::min(referencesLeft, 1L) : 0;
    result.referencesLeaked = referencesLeft - result.referencesKept;
    result.assertionReports = coreLibrary.assertionReports();
    result.supportPaths = coreLibrary.supportPathsChange();
    result.expectations = checkCall(call.expect, result);
}

void applyFaults(sim::Host& host, const FaultsStep& faults)
{
    if (faults.clear)
        host.clearFaults();
    for (const sim::Fault& fault : faults.arm)
        host.armFault(fault);
}

// A step that changed nothing shares the state before it, so a long run's states grow with its
// changes only.
std::shared_ptr<const sim::HostState> snapshot(const sim::HostState& state,
                                               std::shared_ptr<const sim::HostState> previous)
{
    if (previous && *previous == state)
        return previous;
    return std::make_shared<const sim::HostState>(sim::clone(state));
}

}  // namespace

RunResult runScenario(sim::HostState state, const std::vector<Step>& steps, HostCalls hostCalls,
                      HostStates hostStates)
{
    sim::Host host(std::move(state));
    host.journal().setRecordingReleases(hostCalls == HostCalls::keptWithReleases);
    RunResult run;
    std::shared_ptr<const sim::HostState> lastState;
    if (hostStates == HostStates::kept)
        run.initialState = lastState = snapshot(host.state(), nullptr);
    for (const Step& step : steps) {
        StepResult result;
        result.step = &step;
        std::visit(
            [&](const auto& action) {
                using Action = std::decay_t<decltype(action)>;
                if constexpr (std::is_same_v<Action, CallStep>)
                    runCall(host, action, hostCalls, result);
                else if constexpr (std::is_same_v<Action, FaultsStep>)
                    applyFaults(host, action);
                else
                    result.expectations = checkHost(action, sim::stateToJson(host.state()));
            },
            step.action);
        if (hostStates == HostStates::kept)
            result.stateAfter = lastState = snapshot(host.state(), lastState);
        run.steps.push_back(std::move(result));
    }
    run.finalState = sim::stateToJson(host.state());
    long kept = 0;
    for (const StepResult& step : run.steps)
        kept += step.referencesKept;
    // A real host frees its application at shut-down whatever references remain; the run does the
    // same with those kept by design, so that the simulated host's objects end with it.
    host.releaseApplicationReferences(kept);
    return run;
}

}  // namespace zorbsim

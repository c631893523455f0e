#include "support/fault_sweep.h"

#include "simtest/leftovers.h"

#include "sim/state_json.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>
#include <vector>

namespace module_testing {
namespace {

// The steps to the application object, in journal form. They have fault kinds of their own.
constexpr const char* kGetFrameworkObject = "sdk.zbedGetZorbWinApp";
constexpr const char* kGetDispatch = "CWinApp.GetIDispatch";

bool isApplicationStep(const std::string& method)
{
    return method == kGetFrameworkObject || method == kGetDispatch;
}

// Calls that give their caller no result: a failure of theirs is nothing the caller could see.
bool givesNoResult(const std::string& method)
{
    return method == "sdk.zbHeapFree";
}

// Calls on the host's automation objects report failure by a status, which the caller raises;
// the SDK functions, the host services and the framework report it by their result.
bool isAutomationCall(const std::string& method)
{
    return method.rfind("Host", 0) == 0;
}

// The calls in the form the expectation gives each: with argument types where it names them.
std::vector<std::string> callsAsExpected(const std::vector<sim::JournalEntry>& entries,
                                         const std::vector<std::string>& expected)
{
    std::vector<std::string> calls;
    for (size_t i = 0; i < entries.size(); ++i) {
        const bool withTypes = i < expected.size() && expected[i].find('(') != std::string::npos;
        calls.push_back(withTypes ? sim::typedMethodOf(entries[i]) : entries[i].method);
    }
    return calls;
}

// The host states of the undisturbed run: before its first call, and after each call.
using StateHistory = std::vector<sim::HostState>;

// One way of failing the operation.
struct FaultSite {
    std::string description;
    // Set for faults the simulated host arms; string allocation and variant copy faults are armed
    // on the runtime, as the nth call of theirs from now on.
    bool onHost = true;
    sim::Fault fault;
    enum class RuntimeCall { stringAllocation, variantCopy } runtimeCall = RuntimeCall::stringAllocation;
    unsigned long failedRuntimeCall = 0;
    // The code a propagated failure must carry.
    HRESULT expectedCode = S_OK;
    // Whether an operation without a handler must raise when the fault reaches it (a failed
    // status or memory), or may also return normally (an SDK result code, an unused object).
    bool mustRaise = false;
    // Where in the undisturbed run the fault strikes: the host then stands as it stood before that
    // call. Unknown for string allocations, which may strike anywhere.
    std::optional<size_t> strikesBeforeCall;
};

struct RunOutcome {
    bool raised = false;
    HRESULT code = S_OK;
    bool raisedOther = false;
    std::string otherWhat;
};

RunOutcome runGuarded(const SweptOperation& operation)
{
    RunOutcome outcome;
    try {
        operation.run();
    }
    catch (const _com_error& failure) {
        outcome.raised = true;
        outcome.code = failure.Error();
    }
    catch (const std::exception& other) {
        outcome.raisedOther = true;
        outcome.otherWhat = other.what();
    }
    catch (...) {
        outcome.raisedOther = true;
        outcome.otherWhat = "an exception of unknown type";
    }
    return outcome;
}

std::string hex(HRESULT code)
{
    std::ostringstream out;
    out << "0x" << std::hex << std::uppercase << static_cast<unsigned long>(static_cast<unsigned int>(code));
    return out.str();
}

#if AUTOMATION_HAS_TEST_HOOKS
void armRuntimeFault(const FaultSite& site)
{
    if (site.runtimeCall == FaultSite::RuntimeCall::stringAllocation)
        automation_testing::failStringAllocation(site.failedRuntimeCall);
    else
        automation_testing::failVariantCopy(site.failedRuntimeCall, kInjectedStatus);
}

// Whether a runtime failure armed for the `nth` call is still waiting: making up to `nth` such
// calls meets it if the run did not. Disarms it either way.
bool runtimeFailureStillArmed(const FaultSite& site)
{
    bool armed = false;
    for (unsigned long i = 0; i < site.failedRuntimeCall && !armed; ++i) {
        if (site.runtimeCall == FaultSite::RuntimeCall::stringAllocation) {
            BSTR probe = SysAllocString(L"probe");
            armed = probe == nullptr;
            SysFreeString(probe);
        }
        else {
            VARIANT source;
            VARIANT probe;
            VariantInit(&source);
            VariantInit(&probe);
            armed = FAILED(VariantCopy(&probe, &source));
        }
    }
    automation_testing::failStringAllocation(0);
    automation_testing::failVariantCopy(0, S_OK);
    return armed;
}
#endif

bool faultReached(const sim::Host& host)
{
    const std::vector<sim::Fault>& armed = host.state().faults;
    if (armed.empty())
        return false;
    const sim::Fault& fault = armed.front();
    return fault.matchingCallsSeen >= std::max(fault.nth, 1);
}

sim::HostState strictly(sim::HostState state)
{
    state.behaviour.strictArguments = true;
    return state;
}

// More string allocations or variant copies than any one operation makes: a sweep that gets here
// would not end.
constexpr unsigned long kMostRuntimeCalls = 10000;

class Sweep {
public:
    explicit Sweep(const SweptOperation& operation) : m_operation(operation) {}

    SweepReport run()
    {
        SweepReport report;
        const std::vector<sim::JournalEntry> baseline = runUndisturbed();
        report.hostCalls = baseline.size();
        for (const FaultSite& site : hostFaultSites(baseline)) {
            ++report.faultSites;
            report.faultsReached += runWithFault(site) ? 1 : 0;
        }
#if AUTOMATION_HAS_TEST_HOOKS
        for (const auto call :
             {FaultSite::RuntimeCall::stringAllocation, FaultSite::RuntimeCall::variantCopy})
            sweepRuntimeCalls(call, report);
#endif
        return report;
    }

private:
#if AUTOMATION_HAS_TEST_HOOKS
    // Each string allocation or variant copy in turn, until a run no longer reaches the armed one.
    void sweepRuntimeCalls(FaultSite::RuntimeCall call, SweepReport& report)
    {
        const bool allocation = call == FaultSite::RuntimeCall::stringAllocation;
        for (unsigned long nth = 1;; ++nth) {
            if (nth > kMostRuntimeCalls) {
                ADD_FAILURE() << "the operation still makes runtime calls after " << kMostRuntimeCalls;
                return;
            }
            FaultSite site;
            site.description =
                (allocation ? "string allocation " : "variant copy ") + std::to_string(nth) + " fails";
            site.onHost = false;
            site.runtimeCall = call;
            site.failedRuntimeCall = nth;
            site.expectedCode = allocation ? E_OUTOFMEMORY : kInjectedStatus;
            // An operation whose helpers catch may have met the failure inside one of them.
            site.mustRaise = m_operation.caughtInside.empty();
            ++report.faultSites;
            if (!runWithFault(site))
                return;
            ++report.faultsReached;
        }
    }
#endif

    std::vector<sim::JournalEntry> runUndisturbed()
    {
        SCOPED_TRACE("undisturbed");
        sim::Host host(strictly(m_operation.initialState()));
        const simtest::Leftovers leftovers(host);
        host.journal().clear();
        m_history.clear();
        m_history.push_back(sim::clone(host.state()));
        host.journal().setObserver(
            [&](const sim::JournalEntry&) { m_history.push_back(sim::clone(host.state())); });
        const RunOutcome outcome = runGuarded(m_operation);
        host.journal().setObserver(nullptr);
        letGoOfTheKeptReference(host);
        expectNoExceptionEscaped(outcome);
        if (!outcome.raised && !outcome.raisedOther)
            m_operation.expectSuccess(host);
        if (m_operation.hostCalls) {
            EXPECT_EQ(callsAsExpected(host.journal().entries(), *m_operation.hostCalls),
                      *m_operation.hostCalls);
        }
        leftovers.expectNone(host);
        return host.journal().entries();
    }

    std::vector<FaultSite> hostFaultSites(const std::vector<sim::JournalEntry>& baseline) const
    {
        std::vector<FaultSite> sites;
        std::map<std::string, int> occurrences;
        std::optional<size_t> firstFrameworkCall;
        std::optional<size_t> firstDispatchCall;
        for (size_t call = 0; call < baseline.size(); ++call) {
            const sim::JournalEntry& entry = baseline[call];
            const int nth = ++occurrences[entry.method];
            const std::string where = entry.method + " (call " + std::to_string(nth) + ")";
            if (entry.method == kGetFrameworkObject && !firstFrameworkCall)
                firstFrameworkCall = call;
            if (entry.method == kGetDispatch && !firstDispatchCall)
                firstDispatchCall = call;
            if (givesNoResult(entry.method))
                continue;

            FaultSite failed;
            failed.description = where + " fails";
            failed.fault = failingCall(entry.method, nth);
            failed.strikesBeforeCall = call;
            if (isApplicationStep(entry.method)) {
                // The application is then missing, which the operations meet with E_POINTER.
                failed.expectedCode = E_POINTER;
            }
            else {
                failed.expectedCode = kInjectedStatus;
                failed.mustRaise = isAutomationCall(entry.method) && !isCaughtInside(entry.method);
            }
            sites.push_back(failed);

            if (entry.gaveObject && !isApplicationStep(entry.method)) {
                FaultSite withheld;
                withheld.description = where + " gives no object";
                withheld.fault = withheldObject(entry.method, nth);
                withheld.expectedCode = E_POINTER;
                withheld.strikesBeforeCall = call;
                sites.push_back(withheld);
            }
        }
        if (firstFrameworkCall) {
            // The query for the application interface follows the dispatch without a host call of
            // its own: refusing it leaves the host as the dispatch call did.
            const size_t afterDispatch = firstDispatchCall ? *firstDispatchCall + 1 : *firstFrameworkCall;
            for (const auto& [kind, description, strikes] :
                 {std::tuple{sim::FaultKind::noFrameworkObject, "the host has no framework object",
                             *firstFrameworkCall},
                  std::tuple{sim::FaultKind::noDispatch, "the framework object gives no dispatch",
                             firstDispatchCall.value_or(*firstFrameworkCall)},
                  std::tuple{sim::FaultKind::refuseApplicationInterface,
                             "the application interface is refused", afterDispatch}}) {
                FaultSite site;
                site.description = description;
                site.fault = faultOfKind(kind);
                site.expectedCode = E_POINTER;
                site.strikesBeforeCall = strikes;
                sites.push_back(site);
            }
        }
        return sites;
    }

    // Whether the fault reached the operation.
    bool runWithFault(const FaultSite& site)
    {
        SCOPED_TRACE(site.description);
        sim::Host host(strictly(m_operation.initialState()));
        const simtest::Leftovers leftovers(host);
        host.journal().clear();
        if (site.onHost)
            host.armFault(site.fault);
#if AUTOMATION_HAS_TEST_HOOKS
        else
            armRuntimeFault(site);
#endif
        const RunOutcome outcome = runGuarded(m_operation);
#if AUTOMATION_HAS_TEST_HOOKS
        const bool reached = site.onHost ? faultReached(host) : !runtimeFailureStillArmed(site);
#else
        const bool reached = faultReached(host);
#endif
        host.clearFaults();
        letGoOfTheKeptReference(host);
        checkOutcome(site, reached, outcome, host);
        if (!isSkipped(site))
            checkHostState(site, reached, host.state());
        leftovers.expectNone(host);
        return reached;
    }

    void checkOutcome(const FaultSite& site, bool reached, const RunOutcome& outcome,
                      const sim::Host& host) const
    {
        if (outcome.raisedOther) {
            ADD_FAILURE() << "an exception other than the automation failure escaped: " << outcome.otherWhat;
            return;
        }
        if (!reached) {
            expectNoExceptionEscaped(outcome);
            if (!outcome.raised)
                m_operation.expectSuccess(host);
            return;
        }
        if (isSkipped(site)) {
            // Passing over an item may lead the operation on to another, which the host may refuse:
            // that refusal may reach the caller, but no failure of the operation's own making.
            if (outcome.raised && m_operation.handling == FailureHandling::propagated)
                expectRaisedByTheHost(outcome, host);
            else
                expectNoExceptionEscaped(outcome);
            return;
        }
        if (m_operation.handling == FailureHandling::caught) {
            expectNoExceptionEscaped(outcome);
            if (!outcome.raised)
                expectFailure(host);
            return;
        }
        if (m_operation.handling == FailureHandling::swallowed) {
            expectNoExceptionEscaped(outcome);
            if (m_operation.expectFailure)
                m_operation.expectFailure(host);
            return;
        }
        if (outcome.raised) {
            EXPECT_EQ(hex(outcome.code), hex(site.expectedCode))
                << "the failure reached the caller with another code";
            return;
        }
        EXPECT_FALSE(site.mustRaise) << "the failure did not reach the caller";
        if (m_operation.expectFailure)
            m_operation.expectFailure(host);
    }

    // The application reference an operation keeps by design is no leftover: it is held exactly
    // when the run reached the application, and is let go here.
    void letGoOfTheKeptReference(sim::Host& host) const
    {
        if (!m_operation.keepsApplicationReference || host.referencesHeld() != 1)
            return;
        host.releaseApplicationReferences(1);
    }

    bool isSkipped(const FaultSite& site) const
    {
        if (!site.onHost)
            return false;
        const bool withheld = site.fault.kind == sim::FaultKind::nullObject;
        return isListed(withheld ? m_operation.skippedWhenWithheld : m_operation.skippedWhenFailing,
                        site.fault.method);
    }

    bool isCaughtInside(const std::string& method) const
    {
        return isListed(m_operation.caughtInside, method);
    }

    static bool isListed(const std::vector<std::string>& methods, const std::string& method)
    {
        return std::find(methods.begin(), methods.end(), method) != methods.end();
    }

    // The host after a failed run: as the undisturbed run left it just before the failing call (any
    // such moment, for a string allocation), with what the operation puts back.
    void checkHostState(const FaultSite& site, bool reached, const sim::HostState& after) const
    {
        if (!reached) {
            expectSameHost(m_history.back(), after, "the undisturbed run's host");
            return;
        }
        if (m_operation.afterFailure == AfterFailure::goesOn) {
            expectChangesWithinTheUndisturbedOnes(after);
            return;
        }
        std::vector<size_t> moments;
        if (site.strikesBeforeCall)
            moments.push_back(std::min(*site.strikesBeforeCall, m_history.size() - 1));
        else
            for (size_t moment = 0; moment < m_history.size(); ++moment)
                moments.push_back(moment);
        for (size_t moment : moments)
            if (allowedAt(moment) == after)
                return;
        expectSameHost(allowedAt(moments.front()), after,
                       site.strikesBeforeCall ? "the host as it stood before the failing call"
                                              : "the host at any moment of the undisturbed run");
    }

    // An operation that goes on after a failure may leave the host anywhere between its start and
    // the undisturbed run's end, but may touch nothing the undisturbed run left alone: each place
    // the failed run changed lies in a collection or object the undisturbed run changed.
    void expectChangesWithinTheUndisturbedOnes(const sim::HostState& after) const
    {
        const nlohmann::json initial = sim::stateToJson(m_history.front());
        const std::vector<std::string> allowed = changedPlaces(initial, sim::stateToJson(m_history.back()));
        for (const std::string& place : changedPlaces(initial, sim::stateToJson(after))) {
            const bool within =
                std::any_of(allowed.begin(), allowed.end(), [&](const std::string& undisturbed) {
                    return place.rfind(undisturbed, 0) == 0 || undisturbed.rfind(place, 0) == 0;
                });
            EXPECT_TRUE(within) << "the failed run changed " << place
                                << ", which the undisturbed run left alone";
        }
    }

    // The containers of the places where `to` differs from `from`: JSON pointers without their last
    // step and with every list index as "*", so that entries added, removed or shifted in one list
    // count as changes of that list.
    static std::vector<std::string> changedPlaces(const nlohmann::json& from, const nlohmann::json& to)
    {
        std::vector<std::string> places;
        for (const nlohmann::json& change : nlohmann::json::diff(from, to)) {
            const std::string path = change.at("path").get<std::string>();
            std::string place = "/";
            std::istringstream steps(path.substr(1, path.rfind('/')));
            for (std::string step; std::getline(steps, step, '/');) {
                const bool index = !step.empty() && step.find_first_not_of("0123456789") == std::string::npos;
                place += (index ? std::string("*") : step) + "/";
            }
            places.push_back(place);
        }
        return places;
    }

    sim::HostState allowedAt(size_t moment) const
    {
        sim::HostState allowed = sim::clone(m_history[moment]);
        if (m_operation.restoredAfterFailure)
            m_operation.restoredAfterFailure(allowed, m_history.front());
        return allowed;
    }

    static void expectSameHost(const sim::HostState& allowed, const sim::HostState& after, const char* what)
    {
        if (allowed == after)
            return;
        ADD_FAILURE() << "the host is not " << what
                      << "; the differences, as a JSON patch to the allowed state: "
                      << nlohmann::json::diff(sim::stateToJson(allowed), sim::stateToJson(after)).dump();
    }

    void expectFailure(const sim::Host& host) const
    {
        if (m_operation.expectFailure)
            m_operation.expectFailure(host);
        else
            ADD_FAILURE() << "the operation returned normally after a failure";
    }

    static void expectRaisedByTheHost(const RunOutcome& outcome, const sim::Host& host)
    {
        const auto& calls = host.journal().entries();
        EXPECT_TRUE(std::any_of(calls.begin(), calls.end(),
                                [&](const sim::JournalEntry& call) { return call.status == outcome.code; }))
            << "_com_error " << hex(outcome.code) << " escaped the operation, and no host call failed with it";
    }

    static void expectNoExceptionEscaped(const RunOutcome& outcome)
    {
        EXPECT_FALSE(outcome.raised) << "_com_error " << hex(outcome.code) << " escaped the operation";
        EXPECT_FALSE(outcome.raisedOther) << outcome.otherWhat;
    }

    const SweptOperation& m_operation;
    StateHistory m_history;
};

}  // namespace

std::string sweptOperationName(const SweptOperation& operation)
{
    std::string name;
    for (char c : operation.name)
        name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    name.erase(std::unique(name.begin(), name.end(), [](char a, char b) { return a == '_' && b == '_'; }),
               name.end());
    return name;
}

SweepReport sweepFaults(const SweptOperation& operation)
{
    return Sweep(operation).run();
}

}  // namespace module_testing

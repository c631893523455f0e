#include "support/fault_sweep.h"

#include "support/leftovers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <vector>

namespace module_testing {
namespace {

// Host methods that give an object, in journal form. Withholding the object is a fault of its
// own for these; the framework object, the dispatch and the application interface have their own
// fault kinds.
const std::set<std::string>& methodsGivingObjects()
{
    static const std::set<std::string> methods = {
        "HostApplication.get_Preferences", "HostApplication.get_MenuGroups", "HostApplication.get_MenuBar",
        "HostApplication.get_ActiveDocument", "HostApplication.get_Documents", "HostPreferences.get_Files",
        "HostDocuments.Item", "HostDocuments.Open", "HostDocument.get_Plot", "HostDocument.get_ActiveLayout",
        "HostMenuGroups.Item", "HostMenuGroups.LoadMenuFile", "HostMenuGroup.get_Menus",
        "HostMenuGroup.get_Toolbars", "HostPopupMenus.Item", "HostPopupMenus.AddMenu", "HostPopupMenu.Item",
        "HostPopupMenu.AddMenuItem", "HostPopupMenu.AddSubMenu", "HostPopupMenu.AddSeparator",
        "HostPopupMenuItem.get_SubMenu", "HostMenuBar.Item", "HostToolbars.Item", "HostToolbar.Item",
        "HostToolbar.AddButton",
    };
    return methods;
}

// The steps to the application object, in journal form.
constexpr const char* kGetFrameworkObject = "sdk.zbedGetZorbWinApp";
constexpr const char* kGetDispatch = "CWinApp.GetIDispatch";
constexpr const char* kQueryApplication = "HostApplication.QueryInterface";

bool isApplicationStep(const std::string& method)
{
    return method == kGetFrameworkObject || method == kGetDispatch || method == kQueryApplication;
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

// One way of failing the operation.
struct FaultSite {
    std::string description;
    // Set for faults the simulated host arms; string allocation faults are armed on the runtime.
    bool onHost = true;
    sim::Fault fault;
    unsigned long failedAllocation = 0;
    // The code a propagated failure must carry.
    HRESULT expectedCode = S_OK;
    // Whether an operation without a handler must raise when the fault reaches it (a failed
    // status or memory), or may also return normally (an SDK result code, an unused object).
    bool mustRaise = false;
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
// Whether a string allocation failure armed for the `nth` allocation is still waiting: allocating
// up to `nth` strings meets it if the run did not. Disarms it either way.
bool allocationFailureStillArmed(unsigned long nth)
{
    bool armed = false;
    for (unsigned long i = 0; i < nth && !armed; ++i) {
        BSTR probe = SysAllocString(L"probe");
        armed = probe == nullptr;
        SysFreeString(probe);
    }
    automation_testing::failStringAllocation(0);
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

// More string allocations than any one operation makes: a sweep that gets here would not end.
constexpr unsigned long kMostStringAllocations = 10000;

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
        // Each allocation in turn, until a run no longer reaches the armed one.
        for (unsigned long nth = 1;; ++nth) {
            if (nth > kMostStringAllocations) {
                ADD_FAILURE() << m_operation.name << " still allocates strings after " << kMostStringAllocations;
                break;
            }
            FaultSite site;
            site.description = "string allocation " + std::to_string(nth) + " fails";
            site.onHost = false;
            site.failedAllocation = nth;
            site.expectedCode = E_OUTOFMEMORY;
            site.mustRaise = true;
            ++report.faultSites;
            if (!runWithFault(site))
                break;
            ++report.faultsReached;
        }
#endif
        return report;
    }

private:
    std::vector<sim::JournalEntry> runUndisturbed()
    {
        SCOPED_TRACE(m_operation.name + ", undisturbed");
        sim::Host host(m_operation.initialState());
        const Leftovers leftovers;
        host.journal().clear();
        const RunOutcome outcome = runGuarded(m_operation);
        expectNoExceptionEscaped(outcome);
        if (!outcome.raised && !outcome.raisedOther)
            m_operation.expectSuccess(host);
        if (m_operation.hostCalls) {
            EXPECT_EQ(host.journal().methods(), *m_operation.hostCalls);
        }
        leftovers.expectNone(host);
        return host.journal().entries();
    }

    std::vector<FaultSite> hostFaultSites(const std::vector<sim::JournalEntry>& baseline) const
    {
        std::vector<FaultSite> sites;
        std::map<std::string, int> occurrences;
        bool reachesApplication = false;
        for (const sim::JournalEntry& entry : baseline) {
            const int nth = ++occurrences[entry.method];
            const std::string where = entry.method + " (call " + std::to_string(nth) + ")";
            reachesApplication = reachesApplication || entry.method == kGetFrameworkObject;
            if (givesNoResult(entry.method))
                continue;

            FaultSite failed;
            failed.description = where + " fails";
            failed.fault = failingCall(entry.method, nth);
            if (isApplicationStep(entry.method)) {
                // The application is then missing, which the operations meet with E_POINTER.
                failed.expectedCode = E_POINTER;
            }
            else {
                failed.expectedCode = kInjectedStatus;
                failed.mustRaise = isAutomationCall(entry.method);
            }
            sites.push_back(failed);

            if (methodsGivingObjects().count(entry.method) != 0) {
                FaultSite withheld;
                withheld.description = where + " gives no object";
                withheld.fault = withheldObject(entry.method, nth);
                withheld.expectedCode = E_POINTER;
                sites.push_back(withheld);
            }
        }
        if (reachesApplication) {
            for (const auto& [kind, description] :
                 {std::pair{sim::FaultKind::noFrameworkObject, "the host has no framework object"},
                  std::pair{sim::FaultKind::noDispatch, "the framework object gives no dispatch"},
                  std::pair{sim::FaultKind::refuseApplicationInterface, "the application interface is refused"}}) {
                FaultSite site;
                site.description = description;
                site.fault = faultOfKind(kind);
                site.expectedCode = E_POINTER;
                sites.push_back(site);
            }
        }
        return sites;
    }

    // Whether the fault reached the operation.
    bool runWithFault(const FaultSite& site)
    {
        SCOPED_TRACE(m_operation.name + ", " + site.description);
        sim::Host host(m_operation.initialState());
        const Leftovers leftovers;
        host.journal().clear();
        if (site.onHost)
            host.armFault(site.fault);
#if AUTOMATION_HAS_TEST_HOOKS
        else
            automation_testing::failStringAllocation(site.failedAllocation);
#endif
        const RunOutcome outcome = runGuarded(m_operation);
#if AUTOMATION_HAS_TEST_HOOKS
        const bool reached =
            site.onHost ? faultReached(host) : !allocationFailureStillArmed(site.failedAllocation);
#else
        const bool reached = faultReached(host);
#endif
        host.clearFaults();
        checkOutcome(site, reached, outcome, host);
        leftovers.expectNone(host);
        return reached;
    }

    void checkOutcome(const FaultSite& site, bool reached, const RunOutcome& outcome, const sim::Host& host) const
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
        if (m_operation.handling == FailureHandling::caught) {
            expectNoExceptionEscaped(outcome);
            if (!outcome.raised)
                expectFailure(host);
            return;
        }
        if (outcome.raised) {
            EXPECT_EQ(hex(outcome.code), hex(site.expectedCode)) << "the failure reached the caller with another code";
            return;
        }
        EXPECT_FALSE(site.mustRaise) << "the failure did not reach the caller";
        expectFailure(host);
    }

    void expectFailure(const sim::Host& host) const
    {
        if (m_operation.expectFailure)
            m_operation.expectFailure(host);
        else
            ADD_FAILURE() << "the operation returned normally after a failure";
    }

    void expectNoExceptionEscaped(const RunOutcome& outcome) const
    {
        EXPECT_FALSE(outcome.raised) << "_com_error " << hex(outcome.code) << " escaped the operation";
        EXPECT_FALSE(outcome.raisedOther) << outcome.otherWhat;
    }

    const SweptOperation& m_operation;
};

}  // namespace

SweepReport sweepFaults(const SweptOperation& operation)
{
    return Sweep(operation).run();
}

}  // namespace module_testing

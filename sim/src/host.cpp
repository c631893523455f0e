#include "sim/host.h"

#include "installation.h"
#include "sdk_buffers.h"

#include <stdexcept>

namespace sim {
namespace {

Host* g_current = nullptr;
detail::Installation* g_installation = nullptr;

// A fault the host could not honour is refused when it is armed, not ignored later.
void checkFault(const Fault& fault)
{
    if (fault.nth < 0)
        throw std::invalid_argument("a fault counts calls from 1 (0 for every call), not " +
                                    std::to_string(fault.nth));
    if (fault.kind == FaultKind::failCall && SUCCEEDED(fault.status))
        throw std::invalid_argument("a failCall fault needs a failing status");
    if ((fault.kind == FaultKind::failCall || fault.kind == FaultKind::nullObject) && fault.method.empty())
        throw std::invalid_argument("a failCall or nullObject fault names the method it is about");
    if (fault.kind == FaultKind::failStringAllocation) {
        if (!canFailStringAllocation())
            throw std::logic_error("string allocation faults need the portable automation runtime");
        if (fault.nth == 0)
            throw std::invalid_argument(
                "a string allocation fault names which allocation fails (nth from 1)");
    }
}

// String allocation is counted by the automation runtime itself; the last such fault armed is
// the one in force.
void armStringAllocationFaults(const std::vector<Fault>& faults)
{
#if AUTOMATION_HAS_TEST_HOOKS
    for (const Fault& fault : faults)
        if (fault.kind == FaultKind::failStringAllocation)
            automation_testing::failStringAllocation(static_cast<unsigned long>(fault.nth));
#else
    (void)faults;
#endif
}

void disarmStringAllocationFaults()
{
#if AUTOMATION_HAS_TEST_HOOKS
    automation_testing::failStringAllocation(0);
#endif
}

}  // namespace

struct Host::Impl {
    explicit Impl(HostState state) : installation(std::move(state)) {}
    detail::Installation installation;
};

Host::Host(HostState state)
{
    if (g_current != nullptr)
        throw std::logic_error("a simulated host is already installed; destroy it before installing another");
    for (const Fault& fault : state.faults)
        checkFault(fault);
    m_impl = std::make_unique<Impl>(std::move(state));
    g_current = this;
    g_installation = &m_impl->installation;
    armStringAllocationFaults(m_impl->installation.core().state.faults);
}

Host::Host() : Host(defaultHostState()) {}

Host::~Host()
{
    disarmStringAllocationFaults();
    g_current = nullptr;
    g_installation = nullptr;
}

Host* Host::current() { return g_current; }

HostState& Host::state() { return m_impl->installation.core().state; }
const HostState& Host::state() const { return m_impl->installation.core().state; }

void Host::syncEnvironment() { m_impl->installation.syncEnvironment(); }

Journal& Host::journal() { return m_impl->installation.core().journal; }

void Host::armFault(Fault fault)
{
    checkFault(fault);
    fault.matchingCallsSeen = 0;
    state().faults.push_back(fault);
    armStringAllocationFaults({fault});
}

void Host::clearFaults()
{
    state().faults.clear();
    disarmStringAllocationFaults();
}

long Host::referencesHeld() const
{
    const detail::HostCore& core = m_impl->installation.core();
    return core.references - core.hostReferences;
}

long Host::buffersHeld() const { return detail::hostBuffersHeld(); }

namespace detail {

Installation* installed() { return g_installation; }

}  // namespace detail
}  // namespace sim

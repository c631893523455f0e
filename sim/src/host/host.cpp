#include "sim/host.h"

#include "faults/check.h"
#include "host/installation.h"
#include "calls/host_references.h"
#include "host/sdk_buffers.h"

#include <stdexcept>

namespace sim {
namespace {

Host* g_current = nullptr;
detail::Installation* g_installation = nullptr;

// A fault the host could not honour is refused when it is armed, not ignored later.
void checkFault(const Fault& fault)
{
    if (const auto wrong = detail::whyFaultCannotAct(fault))
        throw std::invalid_argument(*wrong);
}

// The automation runtime counts string allocations and variant copies itself; of each kind, the
// last fault armed is the one in force.
void armRuntimeFaults(const std::vector<Fault>& faults)
{
#if AUTOMATION_HAS_TEST_HOOKS
    for (const Fault& fault : faults) {
        if (fault.kind == FaultKind::failStringAllocation)
            automation_testing::failStringAllocation(static_cast<unsigned long>(fault.nth));
        else if (fault.kind == FaultKind::failVariantCopy)
            automation_testing::failVariantCopy(static_cast<unsigned long>(fault.nth), fault.status);
    }
#else
    (void)faults;
#endif
}

void disarmRuntimeFaults()
{
#if AUTOMATION_HAS_TEST_HOOKS
    automation_testing::failStringAllocation(0);
    automation_testing::failVariantCopy(0, S_OK);
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
    armRuntimeFaults(m_impl->installation.core().state.faults);
}

Host::Host() : Host(defaultHostState()) {}

Host::~Host()
{
    disarmRuntimeFaults();
    g_current = nullptr;
    g_installation = nullptr;
}

Host* Host::current()
{
    return g_current;
}

HostState& Host::state()
{
    // Whoever holds the state may change it in any way, which the host's indexes cannot see.
    m_impl->installation.core().menuOwners.forget();
    m_impl->installation.core().names.forget();
    m_impl->installation.core().texts.forget();
    return m_impl->installation.core().state;
}
const HostState& Host::state() const
{
    return m_impl->installation.core().state;
}

void Host::syncEnvironment()
{
    m_impl->installation.syncEnvironment();
}

Journal& Host::journal()
{
    return m_impl->installation.core().journal;
}

const Journal& Host::journal() const
{
    return m_impl->installation.core().journal;
}

void Host::armFault(Fault fault)
{
    checkFault(fault);
    fault.matchingCallsSeen = 0;
    state().faults.push_back(fault);
    armRuntimeFaults({fault});
}

void Host::clearFaults()
{
    state().faults.clear();
    disarmRuntimeFaults();
}

long long Host::entriesExamined() const
{
    return m_impl->installation.core().seats.examined();
}

long Host::referencesHeld() const
{
    const detail::HostCore& core = m_impl->installation.core();
    return core.references - core.hostReferences;
}

std::vector<HeldObject> Host::heldObjects() const
{
    std::vector<HeldObject> held;
    for (const detail::HostReferenceCount* count = m_impl->installation.core().liveObjects; count != nullptr;
         count = count->next()) {
        if (std::optional<HeldObject> object = count->heldByCallers())
            held.push_back(std::move(*object));
    }
    return held;
}

void Host::releaseApplicationReferences(long count)
{
    m_impl->installation.framework().releaseCallerReferences(count);
}

void Host::startTimingHostCalls()
{
    detail::HostCore& core = m_impl->installation.core();
    core.timingCalls = true;
    core.callTime = {};
}

std::chrono::nanoseconds Host::hostCallTime() const
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(m_impl->installation.core().callTime);
}

long Host::buffersHeld() const
{
    return detail::hostBuffersHeld();
}

namespace detail {

Installation* installed()
{
    return g_installation;
}

}  // namespace detail
}  // namespace sim

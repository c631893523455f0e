#include "calls/host_references.h"

namespace sim::detail {

HostReferenceCount::HostReferenceCount(std::shared_ptr<HostCore> core)
    : m_core(std::move(core)), m_givenBy(m_core->callUnderWay), m_next(m_core->liveObjects)
{
    ++m_core->references;
    if (m_next != nullptr)
        m_next->m_previous = this;
    m_core->liveObjects = this;
}

HostReferenceCount::~HostReferenceCount()
{
    if (m_previous != nullptr)
        m_previous->m_next = m_next;
    else
        m_core->liveObjects = m_next;
    if (m_next != nullptr)
        m_next->m_previous = m_previous;
}

void HostReferenceCount::counted()
{
    ++m_core->references;
    if (m_core->callUnderWay != nullptr)
        m_givenBy = m_core->callUnderWay;
}

// A release is recorded only while the host is still installed.
void HostReferenceCount::uncounted()
{
    if (m_core->journal.recordsReleases() && m_core->installed && m_core->journal.enabled()) {
        JournalEntry entry;
        entry.object = journalName();
        entry.method = std::string(interfaceName()) + ".Release";
        m_core->journal.record(std::move(entry));
    }
    --m_core->references;
}

void HostReferenceCount::keepForHost()
{
    ++m_keptByHost;
    ++m_core->hostReferences;
}

void HostReferenceCount::letGoForHost()
{
    --m_keptByHost;
    --m_core->hostReferences;
}

std::optional<HeldObject> HostReferenceCount::heldByCallers() const
{
    const long held = static_cast<long>(references()) - m_keptByHost;
    if (held <= 0)
        return std::nullopt;
    return HeldObject{journalName(), held, m_givenBy != nullptr ? m_givenBy : ""};
}

}  // namespace sim::detail

#include "calls/host_references.h"

namespace sim::detail {

void journalRelease(HostCore& core, const CallSubject& object, const char* interfaceName)
{
    if (!core.installed || !core.journal.enabled() || !core.journal.recordsReleases())
        return;
    JournalEntry entry;
    entry.object = object.journalName();
    entry.method = std::string(interfaceName) + ".Release";
    core.journal.record(std::move(entry));
}

HostReferenceCount::HostReferenceCount(HostCore& core, const CallSubject& object)
    : m_core(core), m_object(object), m_givenBy(core.callUnderWay), m_next(core.liveObjects)
{
    ++m_core.references;
    if (m_next != nullptr)
        m_next->m_previous = this;
    m_core.liveObjects = this;
}

HostReferenceCount::~HostReferenceCount()
{
    if (m_previous != nullptr)
        m_previous->m_next = m_next;
    else
        m_core.liveObjects = m_next;
    if (m_next != nullptr)
        m_next->m_previous = m_previous;
}

void HostReferenceCount::keepForHost()
{
    ++m_keptByHost;
    ++m_core.hostReferences;
}

void HostReferenceCount::letGoForHost()
{
    --m_keptByHost;
    --m_core.hostReferences;
}

std::optional<HeldObject> HostReferenceCount::heldByCallers() const
{
    const long held = static_cast<long>(m_count) - m_keptByHost;
    if (held <= 0)
        return std::nullopt;
    return HeldObject{m_object.journalName(), held, m_givenBy != nullptr ? m_givenBy : ""};
}

}  // namespace sim::detail

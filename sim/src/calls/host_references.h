// The references on the objects a host gives out: counted on each object and on the host, so that
// the host can tell how many its callers still hold, with each release journaled when asked.
#pragma once

#include "host/host_core.h"
#include "calls/call.h"
#include "sim/host.h"

#include <optional>

namespace sim::detail {

// Records the release of `object` ("Interface.Release"), when the journal is asked to record
// releases and the host is still installed.
void journalRelease(HostCore& core, const CallSubject& object, const char* interfaceName);

// One object's count of references, which starts at the one its maker gives the caller. Every count
// of a host is linked into its core's list while the object lives, with the host call that last
// gave out a reference on it, so that a report can say who holds what.
class HostReferenceCount {
public:
    HostReferenceCount(HostCore& core, const CallSubject& object);
    ~HostReferenceCount();
    // A copy would count references no caller holds.
    HostReferenceCount(const HostReferenceCount&) = delete;
    HostReferenceCount& operator=(const HostReferenceCount&) = delete;

    ULONG add()
    {
        ++m_core.references;
        if (m_core.callUnderWay != nullptr)
            m_givenBy = m_core.callUnderWay;
        return ++m_count;
    }

    // The references left once one on `object` was let go; the object deletes itself at zero.
    // `interfaceName` is asked only while releases are journaled: every copy of a reference passes
    // through here, and the name is a virtual call.
    template <class InterfaceName> ULONG release(const CallSubject& object, InterfaceName interfaceName)
    {
        if (m_core.journal.recordsReleases())
            journalRelease(m_core, object, interfaceName());
        --m_core.references;
        return --m_count;
    }

    // The one reference the host itself keeps on the object (the framework object's on the
    // application), which no caller holds.
    void keepForHost();
    void letGoForHost();

    // What the callers hold on the object, or none when they hold no reference.
    std::optional<HeldObject> heldByCallers() const;
    const HostReferenceCount* next() const { return m_next; }

private:
    HostCore& m_core;
    const CallSubject& m_object;
    ULONG m_count = 1;
    long m_keptByHost = 0;
    const char* m_givenBy;  // the call under way when the object was made, or the last to add a reference
    HostReferenceCount* m_previous = nullptr;
    HostReferenceCount* m_next = nullptr;
};

}  // namespace sim::detail

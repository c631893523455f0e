// The references on the objects a host gives out: counted on each object and on the host, so that
// the host can tell how many its callers still hold, with each release journaled when asked.
#pragma once

#include "host_core.h"
#include "objects/call.h"

namespace sim::detail {

// Records the release of `object` ("Interface.Release"), when the journal is asked to record
// releases and the host is still installed.
void journalRelease(HostCore& core, const CallSubject& object, const char* interfaceName);

// One object's count of references, which starts at the one its maker gives the caller.
class HostReferenceCount {
public:
    explicit HostReferenceCount(HostCore& core) : m_core(core) { ++m_core.references; }
    // A copy would count references no caller holds.
    HostReferenceCount(const HostReferenceCount&) = delete;
    HostReferenceCount& operator=(const HostReferenceCount&) = delete;

    ULONG add()
    {
        ++m_core.references;
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

private:
    HostCore& m_core;
    ULONG m_count = 1;
};

}  // namespace sim::detail

// The references on the objects a host gives out: counted on each object and on the host, so that
// the host can tell how many its callers still hold, with each release journaled when asked.
#pragma once

#include "host/host_core.h"
#include "calls/call.h"
#include "sim/host.h"

#include "automation/com_object.h"

#include <memory>
#include <optional>

namespace sim::detail {

// The host's account of one object it gave out, which starts with the reference its maker gives
// the caller. Every account of a host is linked into its core's list while the object lives, with
// the host call that last gave out a reference on it, so that a report can say who holds what. It
// keeps the core alive until it has left the list.
class HostReferenceCount : public CallSubject {
public:
    // A copy would count references no caller holds.
    HostReferenceCount(const HostReferenceCount&) = delete;
    HostReferenceCount& operator=(const HostReferenceCount&) = delete;

    // The one reference the host itself keeps on the object (the framework object's on the
    // application), which no caller holds.
    void keepForHost();
    void letGoForHost();

    // What the callers hold on the object, or none when they hold no reference.
    std::optional<HeldObject> heldByCallers() const;
    const HostReferenceCount* next() const { return m_next; }

protected:
    explicit HostReferenceCount(std::shared_ptr<HostCore> core);
    ~HostReferenceCount();

    HostCore& core() const { return *m_core; }
    const std::shared_ptr<HostCore>& sharedCore() const { return m_core; }

    // The object's interface, which names its releases in the journal ("HostMenuGroups.Release").
    virtual const char* interfaceName() const = 0;

    // Steps of the object's count: one more reference, and one let go (journaled, when releases
    // are; the interface's name is asked only then, since every copy of a reference passes here).
    void counted();
    void uncounted();

private:
    // The references on the object now, the host's own among them.
    virtual ULONG references() const = 0;

    std::shared_ptr<HostCore> m_core;
    long m_keptByHost = 0;
    const char* m_givenBy;  // the call under way when the object was made, or the last to add a reference
    HostReferenceCount* m_previous = nullptr;
    HostReferenceCount* m_next = nullptr;
};

// A COM object a host gives out, whose references the host counts: `Object` derives from it as from
// automation::ComObject and names its interfaces and the one for journal entries.
template <class Object, class... Interfaces>
class CountedByHost : public automation::ComObject<Object, Interfaces...>, public HostReferenceCount {
protected:
    explicit CountedByHost(std::shared_ptr<HostCore> core) : HostReferenceCount(std::move(core)) {}
    ~CountedByHost() = default;

private:
    friend automation::ComObject<Object, Interfaces...>;
    void referenceAdded(ULONG) { counted(); }
    void referenceReleased(ULONG) { uncounted(); }
    ULONG references() const override { return this->referenceCount(); }
};

}  // namespace sim::detail

// The simulated Zorb host. Constructing one installs it: from then on the host SDK functions
// (zbedGetZorbWinApp, zbedGetVar, zbedFindFile ...) and the objects they lead to are served from
// its state, until it is destroyed. One host is installed at a time.
#pragma once

#include "sim/export.h"
#include "sim/faults.h"
#include "sim/journal.h"
#include "sim/model.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace sim {

// A host object that callers hold references on.
struct HeldObject {
    std::string object;   // as the journal names it: "HostMenuGroup 'MX'"
    long references = 0;  // held by callers
    std::string givenBy;  // the host call that last gave out a reference on it: "CWinApp.GetIDispatch"
};

class SIM_API Host {
public:
    explicit Host(HostState state);
    Host();  // the built-in default host
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    static Host* current();

    // The live state. Tests may arrange it directly; changes to the per-user registry values or the
    // MX support folder take effect after syncEnvironment().
    HostState& state();
    const HostState& state() const;
    void syncEnvironment();

    Journal& journal();
    const Journal& journal() const;

    // Arms a fault from now on (state().faults holds the armed ones); clearFaults disarms all.
    void armFault(Fault fault);
    void clearFaults();

    // References that callers hold on host objects now (zero when every object was released).
    long referencesHeld() const;
    // The objects they are held on, newest first; their references add up to referencesHeld().
    std::vector<HeldObject> heldObjects() const;

    // Lets go of `count` references that callers took on the host application and kept (zoomWindow
    // keeps one by design), as the host itself does when it shuts down. No host call is made, so
    // no fault applies. Throws std::logic_error for more references than the callers hold.
    void releaseApplicationReferences(long count);

    // For benchmarks: from now on the time spent inside host calls adds up, from zero, in
    // hostCallTime(). Off until asked, so that no other use pays for the clock.
    void startTimingHostCalls();
    std::chrono::nanoseconds hostCallTime() const;

    // The entries of the host's collections that its calls looked at to find the nodes of the
    // objects called again (each call checks that its object's node is still in the host), since
    // the host was installed. A node is found again where the host last saw it, so this grows by
    // one per collection and call unless entries were added or removed before the node.
    long long entriesExamined() const;

    // Text buffers the host allocated for callers (zbedFindFile) and that were not yet given back
    // with zbHeapFree, by any host of the process.
    long buffersHeld() const;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

// The host as the MX product finds it on a fresh installation (also used by `zorbsim demo`).
SIM_API HostState defaultHostState();

}  // namespace sim

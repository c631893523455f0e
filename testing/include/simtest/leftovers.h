// What code under test must not leave behind on the simulated host: references held on host
// objects, host buffers not given back, automation strings (where the runtime counts them) and
// contract reports of the core library.
#pragma once

#include "sim/host.h"

namespace simtest {

class Leftovers {
public:
    // Takes the counts of host buffers held and live automation strings as the baseline and clears
    // the contract reports.
    explicit Leftovers(const sim::Host& host);

    // Adds a GoogleTest failure for each kind of leftover found since construction, placed at the
    // running test; held references name each object, its count and the host call that gave it.
    void expectNone(const sim::Host& host) const;

private:
    long m_buffersHeldBefore = 0;
    unsigned long m_liveStringsBefore = 0;
};

// Automation strings alive in the process; 0 where the runtime does not count them (the
// platform's own runtime on Windows).
unsigned long liveAutomationStrings();

}  // namespace simtest

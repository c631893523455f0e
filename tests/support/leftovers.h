// What an operation must not leave behind: references held on host objects, host buffers not
// given back, automation strings (where the runtime counts them) and contract reports of the core
// library.
#pragma once

#include "sim/host.h"

namespace module_testing {

class Leftovers {
public:
    // Takes the counts of host buffers held and live automation strings as the baseline and clears
    // the contract reports.
    explicit Leftovers(const sim::Host& host);

    // Adds a test failure for each kind of leftover found since construction.
    void expectNone(const sim::Host& host) const;

private:
    long m_buffersHeldBefore = 0;
    unsigned long m_liveStringsBefore = 0;
};

// Releases the one reference on the host application that zoomWindow keeps by design, so that a
// test can check it and then leave nothing behind.
void releaseKeptApplicationReference();

// Automation strings alive in the process; 0 where the runtime does not count them.
unsigned long liveAutomationStrings();

}  // namespace module_testing

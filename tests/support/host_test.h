// The fixture of the tests on the simulated host: a host installed for each test, and the check,
// after each test, that nothing was left behind.
#pragma once

#include "support/leftovers.h"

#include "sim/host.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace module_testing {

class SimulatedHostTest : public ::testing::Test {
protected:
    // Installs the default host, forgiving or strict about argument types.
    explicit SimulatedHostTest(bool strictArguments = false);
    ~SimulatedHostTest() override;

    sim::Host& host() { return *m_host; }
    sim::HostState& state() { return m_host->state(); }

    // Arms one fault from now on.
    void arm(sim::Fault fault) { m_host->armFault(std::move(fault)); }

    // The host methods called since the journal was last cleared, in order.
    std::vector<std::string> hostCalls() const { return m_host->journal().methods(); }
    // The same with the variant types of their arguments: "HostMenuGroups.Item(VT_I4)".
    std::vector<std::string> typedHostCalls() const { return m_host->journal().typedMethods(); }

    void TearDown() override;

private:
    std::unique_ptr<sim::Host> m_host;
    Leftovers m_leftovers;  // after the host: what the host itself holds from the start is no leftover
};

// The module's tests run on a strict host, so that every variant type the module passes is
// checked by every test, not only by those that read the journal.
class ModuleTest : public SimulatedHostTest {
protected:
    ModuleTest() : SimulatedHostTest(true) {}
};

}  // namespace module_testing

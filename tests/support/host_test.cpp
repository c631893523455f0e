#include "support/host_test.h"

namespace module_testing {

namespace {

sim::HostState defaultHost(bool strictArguments)
{
    sim::HostState state = sim::defaultHostState();
    state.behaviour.strictArguments = strictArguments;
    return state;
}

}  // namespace

SimulatedHostTest::SimulatedHostTest(bool strictArguments)
    : m_host(std::make_unique<sim::Host>(defaultHost(strictArguments))), m_leftovers(*m_host)
{
}

SimulatedHostTest::~SimulatedHostTest() = default;

void SimulatedHostTest::TearDown()
{
    m_leftovers.expectNone(*m_host);
}

}  // namespace module_testing

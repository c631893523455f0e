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

SimulatedHostTest::SimulatedHostTest(bool strictArguments) : HostFixture(defaultHost(strictArguments)) {}

}  // namespace module_testing

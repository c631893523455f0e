#include "support/host_test.h"

namespace module_testing {

SimulatedHostTest::SimulatedHostTest() : m_host(std::make_unique<sim::Host>()) {}

SimulatedHostTest::~SimulatedHostTest() = default;

void SimulatedHostTest::TearDown()
{
    m_leftovers.expectNone(*m_host);
}

}  // namespace module_testing

// The fixture of our own tests on the simulated host: the test helper's, on the default host,
// forgiving or strict about argument types.
#pragma once

#include "simtest/host_fixture.h"

namespace module_testing {

class SimulatedHostTest : public simtest::HostFixture {
protected:
    explicit SimulatedHostTest(bool strictArguments = false);
};

// The module's tests run on a strict host, so that every variant type the module passes is
// checked by every test, not only by those that read the journal.
class ModuleTest : public SimulatedHostTest {
protected:
    ModuleTest() : SimulatedHostTest(true) {}
};

}  // namespace module_testing

// The SimulatorControl object a client of the in-process server holds: it runs the served host
// it started, and fails its calls (E_UNEXPECTED) once another replaced it.
#pragma once

#include "sim/simulator_control.h"

namespace sim::detail {

// Starts a new served host (the built-in default host) and gives its control, with a reference for
// the caller; fails as startServedHost does.
HRESULT newSimulatorControl(SimulatorControl** control);

// Controls that clients still hold (the server may not be unloaded while there are any).
long liveControls();

}  // namespace sim::detail

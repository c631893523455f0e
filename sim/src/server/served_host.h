// The host the in-process automation server runs for its clients. A process has at most one
// simulated host installed, so a client that creates a new one shuts the one before down; the
// objects of that one then fail their calls.
#pragma once

#include "sim/host.h"

#include "automation.h"

#include <string>

namespace sim::detail {

// Starts a new served host from `state` (replacing the one served before) and gives the number
// it is known by. Fails, with error information for `iid`, when a host that the server did not
// start is installed in the process, or the state is refused.
HRESULT startServedHost(HostState state, const IID& iid, unsigned& generation);

// The served host of that number; null once another replaced it.
Host* servedHost(unsigned generation);

// Whether a client still holds an object of the served host (the server may not be unloaded).
bool servedHostInUse();

}  // namespace sim::detail

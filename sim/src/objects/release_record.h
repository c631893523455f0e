// The journal's record of a host object let go by its caller.
#pragma once

#include "host_core.h"
#include "objects/call.h"

namespace sim::detail {

// Records the release of `object` ("Interface.Release"), when the journal is asked to record
// releases and the host is still installed.
void journalRelease(HostCore& core, const CallSubject& object, const char* interfaceName);

}  // namespace sim::detail

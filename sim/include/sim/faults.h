// Faults a test or scenario arms on the simulated host. They are part of the host state: a
// dumped state carries its armed faults and how far each has counted.
#pragma once

#include "sim/export.h"

#include "automation.h"

#include <string>

namespace sim {

enum class FaultKind {
    failCall,                    // the matching call returns `status` (and sets error information)
    nullObject,                  // the matching call succeeds but gives a null object
    noFrameworkObject,           // zbedGetZorbWinApp gives null
    noDispatch,                  // GetIDispatch gives null
    refuseApplicationInterface,  // QueryInterface for HostApplication gives E_NOINTERFACE
    failStringAllocation,        // the nth automation string allocation fails (portable build only)
};

struct Fault {
    FaultKind kind = FaultKind::failCall;
    std::string method;   // failCall, nullObject: "HostMenuGroups.Item", "sdk.zbedFindFile"
    std::string object;   // empty: any object; else the object's journal name must contain it
    int nth = 0;          // 0: every matching call; n: only the n-th matching call after arming
    HRESULT status = E_FAIL;
    int matchingCallsSeen = 0;  // kept by the host as calls arrive

    SIM_API bool operator==(const Fault& other) const;
};

// Whether string allocation faults can be armed in this build (not against the platform's runtime).
SIM_API bool canFailStringAllocation();

}  // namespace sim

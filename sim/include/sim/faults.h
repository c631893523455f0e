// Faults a test or scenario arms on the simulated host. They are part of the host state: a
// dumped state carries its armed faults and how far each has counted. Besides failures and
// withheld objects, a fault can make a call succeed with a raw answer no ordinary host state
// gives (a yes/no of another bit pattern, a null text, a success status other than S_OK), so that
// code relying on exact tests of what the host answers is really tested.
#pragma once

#include "sim/export.h"

#include "automation.h"

#include <string>

namespace sim {

enum class FaultKind {
    failCall,                    // the matching call returns `status` (and sets error information)
    nullObject,                  // the matching call succeeds but gives a null object
    answer,                      // the matching call succeeds with `status`, giving `answer`
    noFrameworkObject,           // zbedGetZorbWinApp gives null
    noDispatch,                  // GetIDispatch gives null
    refuseApplicationInterface,  // QueryInterface for HostApplication gives E_NOINTERFACE
    failStringAllocation,        // the nth automation string allocation fails (portable build only)
    failVariantCopy,             // the nth VariantCopy fails with `status` (portable build only)
};

// What an `answer` fault makes its call give in place of the host's own value.
struct Answer {
    enum class Kind {
        hostValue,  // the host's own value: only the status differs
        number,     // a raw number: a yes/no of any bit pattern, an item type outside 0-2, a count
        null,       // a null text, or zbedFindFile succeeding with no found path
    };
    Kind kind = Kind::hostValue;
    long long number = 0;  // for `number`; it must fit the type the method gives

    SIM_API bool operator==(const Answer& other) const;
    bool operator!=(const Answer& other) const { return !(*this == other); }
};

struct Fault {
    FaultKind kind = FaultKind::failCall;
    std::string method;  // failCall, nullObject, answer: "HostMenuGroups.Item", "sdk.zbedFindFile"
    std::string object;  // empty: any object; else the object's journal name must contain it
    int nth = 0;         // 0: every matching call; n: only the n-th matching call after arming
    // failCall, failVariantCopy: the failing status; answer: the success status (S_OK, S_FALSE ...).
    HRESULT status = E_FAIL;
    Answer answer;              // answer faults only
    int matchingCallsSeen = 0;  // kept by the host as calls arrive

    SIM_API bool operator==(const Fault& other) const;
    bool operator!=(const Fault& other) const { return !(*this == other); }
};

// Whether the automation runtime's own faults (failStringAllocation, failVariantCopy) can be
// armed in this build: they need the portable runtime, not the platform's.
SIM_API bool canFailRuntimeCalls();

}  // namespace sim

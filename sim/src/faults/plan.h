// How armed faults decide the fate of one call.
#pragma once

#include "sim/faults.h"

#include <string>
#include <vector>

namespace sim::detail {

struct FaultVerdict {
    HRESULT failure = S_OK;  // a failed status the call must return
    bool giveNull = false;   // the call succeeds but gives no object
    HRESULT success = S_OK;  // the status a successful call returns
    Answer answer;           // what it gives in place of the host's own value
};

// Counts the call against every fault that matches it and says what the faults make of it.
// `objectName` is asked only when a fault names an object.
template <class ObjectName>
FaultVerdict consultFaults(std::vector<Fault>& faults, const char* method, ObjectName objectName);

bool faultMatchesMethod(const Fault& fault, const char* method);
void applyFault(const Fault& fault, FaultVerdict& verdict);

template <class ObjectName>
FaultVerdict consultFaults(std::vector<Fault>& faults, const char* method, ObjectName objectName)
{
    FaultVerdict verdict;
    std::string name;
    bool named = false;
    for (Fault& fault : faults) {
        if (!faultMatchesMethod(fault, method))
            continue;
        if (!fault.object.empty()) {
            if (!named) {
                name = objectName();
                named = true;
            }
            if (name.find(fault.object) == std::string::npos)
                continue;
        }
        ++fault.matchingCallsSeen;
        if (fault.nth == 0 || fault.nth == fault.matchingCallsSeen)
            applyFault(fault, verdict);
    }
    return verdict;
}

}  // namespace sim::detail

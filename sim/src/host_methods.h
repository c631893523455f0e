// Every call the simulated host serves, by its journal name, with what it gives its caller. A
// fault is checked against this when it is armed, so that one which could never act on the
// method it names is refused instead of silently doing nothing.
#pragma once

#include <string>

namespace sim::detail {

enum class Gives {
    nothing,      // a status only
    object,       // an object, which a nullObject fault can withhold
    text,         // an automation string (or the SDK's wide string), which may be answered null
    longNumber,   // a 32-bit number
    yesNo,        // a 16-bit automation Boolean
    shortNumber,  // the SDK's 16-bit result value
    foundPath,    // zbedFindFile's host buffer, which may be answered null
};

struct HostMethod {
    const char* name;
    Gives gives;
    bool reportsStatus;  // automation calls return a status; the SDK functions report by their result
};

// Null for a method the host does not serve.
const HostMethod* findHostMethod(const std::string& name);

}  // namespace sim::detail

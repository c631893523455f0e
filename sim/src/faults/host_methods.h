// Every call the simulated host serves, by its journal name, with what it gives its caller. A
// fault is checked against this when it is armed, so that one which could never act on the
// method it names is refused instead of silently doing nothing. The members of the host's type
// library come from it (host/members.h); the few calls it does not describe are named here.
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

// The calls the host's type library does not describe: the SDK's functions and its framework
// object's, the application's QueryInterface, and an enumeration's, which the journal shows on
// its collection's name.
namespace undescribed {

inline constexpr HostMethod zbedGetZorbWinApp{"sdk.zbedGetZorbWinApp", Gives::object, false};
inline constexpr HostMethod zbedGetVar{"sdk.zbedGetVar", Gives::shortNumber, false};
inline constexpr HostMethod zbedSetVar{"sdk.zbedSetVar", Gives::nothing, false};
inline constexpr HostMethod zbedFindFile{"sdk.zbedFindFile", Gives::foundPath, false};
inline constexpr HostMethod zbHeapFree{"sdk.zbHeapFree", Gives::nothing, false};
inline constexpr HostMethod zbdbHostApplicationServices{"sdk.zbdbHostApplicationServices", Gives::object,
                                                        false};
inline constexpr HostMethod getUserRegistryProductRootKey{
    "ZbDbHostApplicationServices.getUserRegistryProductRootKey", Gives::text, false};
inline constexpr HostMethod getIDispatch{"CWinApp.GetIDispatch", Gives::object, false};
// Refused or not: there is nothing else to answer.
inline constexpr HostMethod queryApplication{"HostApplication.QueryInterface", Gives::nothing, false};
inline constexpr HostMethod enumerationNext{"IEnumVARIANT.Next", Gives::nothing, true};
inline constexpr HostMethod enumerationSkip{"IEnumVARIANT.Skip", Gives::nothing, true};
inline constexpr HostMethod enumerationReset{"IEnumVARIANT.Reset", Gives::nothing, true};
inline constexpr HostMethod enumerationClone{"IEnumVARIANT.Clone", Gives::object, true};

inline constexpr const HostMethod* all[] = {
    &zbedGetZorbWinApp,
    &zbedGetVar,
    &zbedSetVar,
    &zbedFindFile,
    &zbHeapFree,
    &zbdbHostApplicationServices,
    &getUserRegistryProductRootKey,
    &getIDispatch,
    &queryApplication,
    &enumerationNext,
    &enumerationSkip,
    &enumerationReset,
    &enumerationClone,
};

}  // namespace undescribed

// Null for a method the host does not serve.
const HostMethod* findHostMethod(const std::string& name);

}  // namespace sim::detail

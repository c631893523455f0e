// Host calls the module's operations make, in journal form, for the tests' expectations.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

namespace module_testing {

// The way to the application object (the query for its interface is not a host call), and on to
// the file-location preferences.
inline const std::vector<std::string> kReachApplication = {"sdk.zbedGetZorbWinApp", "CWinApp.GetIDispatch"};

inline std::vector<std::string> reachingPreferencesFiles(std::initializer_list<std::string> then = {})
{
    std::vector<std::string> calls = kReachApplication;
    calls.insert(calls.end(), {"HostApplication.get_Preferences", "HostPreferences.get_Files"});
    calls.insert(calls.end(), then);
    return calls;
}

// The host's per-user registry root, asked of its services (reading the registry is no host call).
inline std::vector<std::string> readingRegistry(std::initializer_list<std::string> then = {})
{
    std::vector<std::string> calls = {"sdk.zbdbHostApplicationServices",
                                      "ZbDbHostApplicationServices.getUserRegistryProductRootKey"};
    calls.insert(calls.end(), then);
    return calls;
}

}  // namespace module_testing

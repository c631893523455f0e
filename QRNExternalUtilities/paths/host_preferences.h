// The path operations' access to the host's file-location preferences.
#pragma once

#include "bridge/failure_policies.h"
#include "bridge/host_access.h"

#include <utility>

namespace external_utilities {

// Runs `use` on the host's file-location preferences under the automation failure handler;
// nothing runs when the host gives no preferences object. `use` sets the operation's result as
// its last step, so a failure or a missing object leaves the failure value.
template <class Use> void useHostPreferencesFiles(Use&& use)
{
    catchAutomationFailure([&] {
        const HostPreferencesFilesPtr files = getHostPreferencesFiles();
        if (files)
            std::forward<Use>(use)(*files);
    });
}

}  // namespace external_utilities

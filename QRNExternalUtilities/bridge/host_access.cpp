#include "bridge/host_access.h"

#include "framework/cmd_target.h"
#include "host/sdk.h"

namespace external_utilities {

HostApplicationPtr getHostApplication()
{
    CWinApp* framework = zbedGetZorbWinApp();
    if (framework == nullptr)
        return HostApplicationPtr();
    const IDispatchPtr dispatch(framework->GetIDispatch(TRUE), false);
    if (!dispatch)
        return HostApplicationPtr();
    HostApplication* application = nullptr;
    dispatch->QueryInterface(__uuidof(HostApplication), reinterpret_cast<void**>(&application));
    return HostApplicationPtr(application, false);
}

HostPreferencesFilesPtr getHostPreferencesFiles()
{
    HostPreferencesPtr preferences;
    {
        const HostApplicationPtr application = getHostApplication();
        if (!application)
            _com_issue_error(E_POINTER);
        preferences = application->GetPreferences();
    }
    if (!preferences)
        _com_issue_error(E_POINTER);
    return preferences->GetFiles();
}

}  // namespace external_utilities

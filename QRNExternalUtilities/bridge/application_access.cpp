// The host's automation root for MX code that drives automation itself.
#include "ZORBAppUtilities.h"

#include "bridge/failure_policies.h"
#include "bridge/host_access.h"
#include "framework/cmd_target.h"
#include "host/sdk.h"

using namespace external_utilities;

long ZORBAppUtilities::getCADAppDispatch(IDispatch** dispatch)
{
    if (dispatch == nullptr)
        return E_POINTER;
    long status = E_FAIL;
    catchAutomationFailure([&] {
        // A missing framework object is not reported: the caller tests the pointer.
        CWinApp* framework = zbedGetZorbWinApp();
        *dispatch = framework == nullptr ? nullptr : framework->GetIDispatch(TRUE);
        status = S_OK;
    });
    return status;
}

void* ZORBAppUtilities::getCadApplication()
{
    return getHostApplication().Detach();
}

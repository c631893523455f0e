// The simulated host's application object, reached as the module reaches it: through the framework
// object's dispatch.
#pragma once

#include "framework.h"
#include "host/object_model.h"
#include "host/sdk.h"

namespace sim_bench {

inline HostApplicationPtr application()
{
    IDispatch* dispatch = zbedGetZorbWinApp()->GetIDispatch(TRUE);
    HostApplicationPtr application(dispatch);
    dispatch->Release();
    return application;
}

}  // namespace sim_bench

// The fault sweep of host access.
#include "answering_operation.h"

#include "ZORBAppUtilities.h"

#include "host/object_model.h"

using namespace module_testing;

namespace {

IDispatch* const kNotWritten = reinterpret_cast<IDispatch*>(0x1);

std::vector<SweptOperation> hostAccessOperations()
{
    return {
        // The text names what came instead of a dispatch: a host that has none must give null and
        // report no failure.
        answeringOperation(
            "getCADAppDispatch", FailureHandling::caught,
            [](MxtString& outcome) {
                IDispatch* dispatch = kNotWritten;
                const long status = ZORBAppUtilities::getCADAppDispatch(&dispatch);
                const bool got = dispatch != nullptr && dispatch != kNotWritten;
                if (got)
                    dispatch->Release();
                else
                    outcome = status != S_OK ? L"failed" : dispatch == nullptr ? L"null" : L"not written";
                return status == S_OK && got;
            },
            reachingApplication(), kUntouched, nullptr, L"null"),
        answeringOperation(
            "getCadApplication", FailureHandling::caught,
            [](MxtString&) {
                const HostApplicationPtr application(
                    static_cast<HostApplication*>(ZORBAppUtilities::getCadApplication()), false);
                return static_cast<bool>(application);
            },
            reachingApplication(), kUntouched),
    };
}

INSTANTIATE_TEST_SUITE_P(HostAccess, FaultSweep, ::testing::ValuesIn(hostAccessOperations()),
                         [](const auto& info) { return sweptOperationName(info.param); });

}  // namespace

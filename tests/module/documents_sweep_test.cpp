// The fault sweep of documents, plotting and zoom.
#include "ZORBAppUtilities.h"

#include "support/fault_sweep.h"
#include "support/mxt_text.h"

#include "host/sdk.h"

#include <memory>

using namespace module_testing;

namespace {

using FH = FailureHandling;

const wchar_t* const kOnDisk = L"C:\\Projects\\Warehouse 12\\Drawings\\GA-002.dwg";

sim::HostState drawingHost()
{
    sim::HostState state = sim::defaultHostState();
    state.systemVariables[L"DWGCHECK"] = 2;
    return state;
}

// An operation that answers whether it succeeded: true undisturbed, false after a failure.
SweptOperation answering(std::string name, std::function<bool()> call,
                         std::function<void(const sim::Host&)> expectHost)
{
    const auto answer = std::make_shared<bool>(false);
    SweptOperation operation;
    operation.name = std::move(name);
    operation.initialState = drawingHost;
    operation.run = [answer, call] { *answer = call(); };
    operation.expectSuccess = [answer, expectHost](const sim::Host& host) {
        EXPECT_TRUE(*answer);
        expectHost(host);
    };
    operation.expectFailure = [answer](const sim::Host&) { EXPECT_FALSE(*answer); };
    return operation;
}

std::vector<SweptOperation> documentOperations()
{
    std::vector<SweptOperation> operations;

    operations.push_back(answering(
        "closeActiveDocument", [] { return ZORBAppUtilities::closeActiveDocument(true); },
        [](const sim::Host& host) { EXPECT_TRUE(host.state().documents.empty()); }));

    SweptOperation open = answering(
        "openAndActivateDocument", [] { return ZORBAppUtilities::openAndActivateDocument(MxtString(kOnDisk), true); },
        [](const sim::Host& host) {
            EXPECT_EQ(host.state().activeDocument->fullFileName, kOnDisk);
            EXPECT_EQ(host.state().systemVariables.at(L"DWGCHECK"), 2);
        });
    // The SDK's results are not looked at, nor is the document the open gives back.
    open.skippedWhenFailing = {"sdk.zbedGetVar", "sdk.zbedSetVar"};
    open.skippedWhenWithheld = {"HostDocuments.Open"};
    // "DWGCHECK" is put back after a failure; what was opened stays open.
    open.restoredAfterFailure = [](sim::HostState& allowed, const sim::HostState& initial) {
        allowed.systemVariables = initial.systemVariables;
    };
    operations.push_back(open);

    const auto message = std::make_shared<MxtString>();
    SweptOperation plot = answering(
        "plotLayout",
        [message] {
            *message = L"untouched";
            return ZORBAppUtilities::plotLayout(MxtString(L"DWG To PDF.pc3"), MxtString(L"Layout1"),
                                                ZbDbPlotSettings::kWindow, 0, 10, 0, 5, *message);
        },
        [message](const sim::Host& host) {
            EXPECT_EQ(host.state().plotJobs.size(), 1u);
            EXPECT_EQ(text(*message), L"untouched");
        });
    // Without an active layout the plot goes ahead with the layout's own settings.
    plot.skippedWhenWithheld = {"HostDocument.get_ActiveLayout"};
    plot.expectFailure = [message](const sim::Host&) {
        // A failure hands back its message; the early returns without one leave it untouched.
        EXPECT_FALSE(text(*message).empty());
    };
    operations.push_back(plot);

    SweptOperation zoom;
    zoom.name = "zoomWindow";
    zoom.handling = FH::propagated;
    zoom.keepsApplicationReference = true;
    zoom.run = [] {
        ZbAxPoint2d lowerLeft(1, 2);
        ZbAxPoint2d upperRight(30, 40);
        ZORBAppUtilities::zoomWindow(_variant_t(lowerLeft.asVariantPtr()), _variant_t(upperRight.asVariantPtr()));
    };
    zoom.expectSuccess = [](const sim::Host& host) { EXPECT_EQ(host.state().zoomRequests.size(), 1u); };
    zoom.expectFailure = [](const sim::Host& host) { EXPECT_TRUE(host.state().zoomRequests.empty()); };
    operations.push_back(zoom);

    return operations;
}

INSTANTIATE_TEST_SUITE_P(Documents, FaultSweep, ::testing::ValuesIn(documentOperations()),
                         [](const auto& info) { return sweptOperationName(info.param); });

}  // namespace

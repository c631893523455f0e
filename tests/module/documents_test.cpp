// Opening, activating and closing drawings, plotting a layout and zooming.
#include "ZORBAppUtilities.h"

#include "support/faults.h"
#include "support/host_test.h"
#include "support/mxt_text.h"

#include "host/object_model.h"
#include "host/sdk.h"

#include <gmock/gmock.h>

using namespace module_testing;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

namespace {

const std::wstring kProject = L"C:\\Projects\\Warehouse 12\\Drawings\\";
const std::wstring kOpen = kProject + L"GA-001.dwg";     // open and active in the default host
const std::wstring kOnDisk = kProject + L"GA-002.dwg";   // on disk, not open

class Documents : public ModuleTest {
protected:
    std::vector<std::wstring> openNames()
    {
        std::vector<std::wstring> names;
        for (const auto& document : state().documents)
            names.push_back(document->fullFileName);
        return names;
    }

    short drawingCheck() { return state().systemVariables.at(L"DWGCHECK"); }

    // The (at most) `count` host calls that follow the last call of `method`.
    std::vector<std::string> after(const std::string& method, size_t count)
    {
        const std::vector<std::string> calls = hostCalls();
        const auto at = std::find(calls.rbegin(), calls.rend(), method).base();
        return std::vector<std::string>(at, at + std::min<std::ptrdiff_t>(count, calls.end() - at));
    }

    // The values "DWGCHECK" was set to, in order.
    std::vector<std::string> drawingCheckWrites()
    {
        std::vector<std::string> writes;
        for (const sim::JournalEntry& entry : host().journal().entries())
            if (entry.method == "sdk.zbedSetVar")
                writes.push_back(entry.arguments[1].value);
        return writes;
    }
};

}  // namespace

TEST_F(Documents, ClosingPassesAShortSaveFlagAndTheDrawingsOwnName)
{
    EXPECT_TRUE(ZORBAppUtilities::closeActiveDocument(true));
    EXPECT_TRUE(state().documents.empty());
    const sim::JournalEntry& close = host().journal().entries().back();
    EXPECT_EQ(sim::typedMethodOf(close), "HostDocument.Close(VT_I2, VT_BSTR)");
    EXPECT_EQ(close.arguments[0].value, "-1");
    EXPECT_EQ(close.arguments[1].value, "C:\\Projects\\Warehouse 12\\Drawings\\GA-001.dwg");

    // Without saving: 0, and the drawing's name all the same.
    auto other = std::make_shared<sim::Document>();
    other->fullFileName = kOnDisk;
    state().documents.push_back(other);
    state().activeDocument = other;
    EXPECT_TRUE(ZORBAppUtilities::closeActiveDocument(false));
    EXPECT_EQ(host().journal().entries().back().arguments[0].value, "0");
    EXPECT_EQ(host().journal().entries().back().arguments[1].value, "C:\\Projects\\Warehouse 12\\Drawings\\GA-002.dwg");

    // Nothing is open now: false, and no document is asked anything.
    host().journal().clear();
    EXPECT_FALSE(ZORBAppUtilities::closeActiveDocument(false));
    EXPECT_EQ(hostCalls().back(), "HostApplication.get_ActiveDocument");
}

TEST_F(Documents, AnOpenDrawingIsFoundIgnoringCaseAndNotOpenedAgain)
{
    state().systemVariables[L"DWGCHECK"] = 2;
    std::wstring upper = kOpen;
    for (auto& c : upper)
        c = static_cast<wchar_t>(std::towupper(c));
    // A second drawing whose name differs only in case, active now: the first in the host's order
    // is the one found and activated.
    std::wstring lower = kOpen;
    for (auto& c : lower)
        c = static_cast<wchar_t>(std::towlower(c));
    auto twin = std::make_shared<sim::Document>();
    twin->fullFileName = lower;
    state().documents.push_back(twin);
    state().activeDocument = twin;
    EXPECT_TRUE(ZORBAppUtilities::openAndActivateDocument(MxtString(upper.c_str()), true));
    EXPECT_THAT(openNames(), ElementsAre(kOpen, lower));
    EXPECT_EQ(state().activeDocument, state().documents[0]);
    EXPECT_TRUE(drawingCheckWrites().empty());
    EXPECT_EQ(hostCalls().back(), "HostDocument.Activate");
    EXPECT_EQ(typedHostCalls()[4], "HostDocuments.Item(VT_INT)");

    // Not asked to activate, neither a drawing found open nor one it opens is activated.
    host().journal().clear();
    EXPECT_TRUE(ZORBAppUtilities::openAndActivateDocument(MxtString(upper.c_str()), false));
    EXPECT_TRUE(ZORBAppUtilities::openAndActivateDocument(MxtString(kOnDisk.c_str()), false));
    EXPECT_THAT(hostCalls(), Not(Contains("HostDocument.Activate")));
}

// The host would stop an unattended open to check this drawing unless DWGCHECK is 0 at the moment
// of the open: a hold that comes after the Open, or not at all, fails to open it.
TEST_F(Documents, OpeningHoldsDrawingCheckAtZeroAndPutsItBackAfterSuccessOrFailure)
{
    state().systemVariables[L"DWGCHECK"] = 2;
    state().drawingDemands[kOnDisk].stopsForCheck = true;
    EXPECT_TRUE(ZORBAppUtilities::openAndActivateDocument(MxtString(kOnDisk.c_str()), true));
    ASSERT_THAT(openNames(), ElementsAre(kOpen, kOnDisk));
    EXPECT_EQ(state().documents[1]->drawingCheckWhenOpened, std::optional<short>(0));
    EXPECT_FALSE(state().documents[1]->readOnly);
    EXPECT_EQ(state().activeDocument, state().documents[1]);
    EXPECT_THAT(drawingCheckWrites(), ElementsAre("0", "2"));
    EXPECT_EQ(drawingCheck(), 2);
    const std::vector<std::string> calls = typedHostCalls();
    EXPECT_NE(std::find(calls.begin(), calls.end(), "HostDocuments.Open(VT_BSTR, VT_I2, VT_ERROR)"), calls.end());

    host().journal().clear();
    EXPECT_FALSE(ZORBAppUtilities::openAndActivateDocument(MxtString(L"C:\\nowhere.dwg"), true));
    EXPECT_THAT(drawingCheckWrites(), ElementsAre("0", "2"));
    EXPECT_EQ(drawingCheck(), 2);

    // -1 is the mark of a variable not changed: a "DWGCHECK" that was -1 itself is not put back.
    state().systemVariables[L"DWGCHECK"] = -1;
    host().journal().clear();
    EXPECT_FALSE(ZORBAppUtilities::openAndActivateDocument(MxtString(L"C:\\nowhere.dwg"), true));
    EXPECT_THAT(drawingCheckWrites(), ElementsAre("0"));
}

TEST_F(Documents, AnotherSeparatorGoesThroughTheHostsOpenAndAnUnfoundSecondSearchStillGivesTrue)
{
    const std::wstring slashed = L"C:/Projects/Warehouse 12/Drawings/GA-001.dwg";
    host().journal().clear();
    // The host knows the drawing is open and gives it back; the module's second search does not
    // find the name it was given, and does not activate.
    EXPECT_TRUE(ZORBAppUtilities::openAndActivateDocument(MxtString(slashed.c_str()), true));
    const std::vector<std::string> calls = hostCalls();
    EXPECT_NE(std::find(calls.begin(), calls.end(), "HostDocuments.Open"), calls.end());
    EXPECT_EQ(std::find(calls.begin(), calls.end(), "HostDocument.Activate"), calls.end());
}

// The order in which the host sees objects let go: opening releases the drawing Open gave at once,
// and the collection, then the application, before "DWGCHECK" is put back; plotting releases the
// application once it has the drawing, and at the end the layout, the plot object, the drawing.
TEST_F(Documents, ObjectsAreLetGoInTheirOrder)
{
    host().journal().setRecordingReleases(true);

    state().systemVariables[L"DWGCHECK"] = 2;
    host().journal().clear();
    EXPECT_TRUE(ZORBAppUtilities::openAndActivateDocument(MxtString(kOnDisk.c_str()), true));
    EXPECT_THAT(after("HostDocuments.Open", 2), ElementsAre("HostDocument.Release", "HostDocuments.get_Count"));
    EXPECT_THAT(after("HostDocument.Activate", 5),
                ElementsAre("HostDocument.Release", "HostDocuments.Release", "HostApplication.Release",
                            "sdk.zbedSetVar"));

    host().journal().clear();
    MxtString message;
    EXPECT_TRUE(ZORBAppUtilities::plotLayout(MxtString(L""), MxtString(L"Layout1"), ZbDbPlotSettings::kWindow, 0, 1,
                                             0, 1, message));
    EXPECT_THAT(after("HostApplication.get_ActiveDocument", 2),
                ElementsAre("HostApplication.Release", "HostDocument.get_Plot"));
    EXPECT_THAT(after("HostPlot.PlotToDevice", 4),
                ElementsAre("HostLayout.Release", "HostPlot.Release", "HostDocument.Release"));
}

TEST_F(Documents, APlotWindowGoesToTheActiveLayoutInTheParameterOrderGiven)
{
    state().activeDocument->plot.numberOfCopies = 3;
    MxtString message(L"untouched");
    EXPECT_TRUE(ZORBAppUtilities::plotLayout(MxtString(L"DWG To PDF.pc3"), MxtString(L"Layout2"),
                                             ZbDbPlotSettings::kWindow, 0, 10, 0, 5, message));
    EXPECT_EQ(text(message), L"untouched");
    EXPECT_TRUE(state().activeDocument->plot.quietErrorMode);
    EXPECT_EQ(state().activeDocument->plot.batchEntries, 1);
    ASSERT_EQ(state().plotJobs.size(), 1u);
    const sim::PlotJob& job = state().plotJobs[0];
    EXPECT_EQ(job.device, std::wstring(L"DWG To PDF.pc3"));
    EXPECT_THAT(job.layouts, ElementsAre(L"Layout2"));
    EXPECT_EQ(job.numberOfCopies, 1);
    EXPECT_EQ(job.plotType, 4);
    ASSERT_TRUE(job.window);
    EXPECT_EQ((std::vector<double>{job.window->lowerLeftX, job.window->lowerLeftY, job.window->upperRightX,
                                   job.window->upperRightY}),
              (std::vector<double>{0, 0, 10, 5}));
    // The window before the type, and the plot's settings in the order the host has always had them.
    EXPECT_THAT(after("HostLayout.SetWindowToPlot", 6),
                ElementsAre("HostLayout.put_PlotType", "HostPlot.put_NumberOfCopies", "HostPlot.put_QuietErrorMode",
                            "HostPlot.StartBatchMode", "HostPlot.SetLayoutsToPlot", "HostPlot.PlotToDevice"));
    EXPECT_EQ(typedHostCalls().back(), "HostPlot.PlotToDevice(VT_BSTR)");
}

TEST_F(Documents, AnEmptyDeviceIsTheMissingArgumentAndOnlyMinusOneIsSuccess)
{
    MxtString message(L"untouched");
    EXPECT_TRUE(ZORBAppUtilities::plotLayout(MxtString(L""), MxtString(L"Layout1"), ZbDbPlotSettings::PlotType(1), 0,
                                             0, 0, 0, message));
    EXPECT_EQ(host().journal().entries().back().arguments[0].value, "DISP_E_PARAMNOTFOUND");
    EXPECT_FALSE(state().plotJobs.back().window);
    EXPECT_EQ(state().plotJobs.back().plotType, 1);

    armFault(answering("HostPlot.PlotToDevice", rawNumber(1)));
    EXPECT_FALSE(ZORBAppUtilities::plotLayout(MxtString(L""), MxtString(L"Layout1"), ZbDbPlotSettings::PlotType(1),
                                              0, 0, 0, 0, message));
    EXPECT_EQ(text(message), L"untouched");
}

// No drawing or no plot object ends the plot quietly: false, and the caller's message as it was.
TEST_F(Documents, AWithheldDrawingOrPlotGivesFalseWithoutAMessage)
{
    for (const char* withheld : {"HostApplication.get_ActiveDocument", "HostDocument.get_Plot"}) {
        SCOPED_TRACE(withheld);
        clearFaults();
        armFault(withheldObject(withheld));
        MxtString message(L"untouched");
        EXPECT_FALSE(ZORBAppUtilities::plotLayout(MxtString(L""), MxtString(L"Layout1"), ZbDbPlotSettings::kWindow,
                                                  0, 1, 0, 1, message));
        EXPECT_EQ(text(message), L"untouched");
        EXPECT_TRUE(state().plotJobs.empty());
    }
}

TEST_F(Documents, WithoutAnActiveLayoutThePlotGoesAheadWithoutAWindow)
{
    state().activeDocument->activeLayout = nullptr;
    MxtString message(L"untouched");
    EXPECT_TRUE(ZORBAppUtilities::plotLayout(MxtString(L""), MxtString(L"Layout1"), ZbDbPlotSettings::kWindow, 0, 1,
                                             0, 1, message));
    const std::vector<std::string> calls = hostCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "HostLayout.SetWindowToPlot"), 0);
}

TEST_F(Documents, ZoomingPassesThePointsAndKeepsOneReferenceOnTheApplication)
{
    ZbAxPoint2d lowerLeft(1, 2);
    ZbAxPoint2d upperRight(30, 40);
    const _variant_t first(lowerLeft.asVariantPtr());
    const _variant_t second(upperRight.asVariantPtr());
    EXPECT_TRUE(ZORBAppUtilities::zoomWindow(first, second));
    ASSERT_EQ(state().zoomRequests.size(), 1u);
    EXPECT_EQ(state().zoomRequests[0].upperRightY, 40);
    EXPECT_EQ(host().referencesHeld(), 1);
    releaseKeptApplicationReference();

    // Without a dispatch there is nothing to zoom and nothing kept, yet the answer is true.
    armFault(faultOfKind(sim::FaultKind::noDispatch));
    EXPECT_TRUE(ZORBAppUtilities::zoomWindow(first, second));
    EXPECT_EQ(host().referencesHeld(), 0);
}

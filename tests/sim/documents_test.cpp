// Drawings: opening, activating, closing, plotting and zooming.
#include "sim_test.h"

#include <limits>

using namespace sim_testing;

namespace {

const wchar_t kOpen[] = L"C:\\Projects\\Warehouse 12\\Drawings\\GA-001.dwg";
const wchar_t kOnDisk[] = L"C:\\Projects\\Warehouse 12\\Drawings\\Shop\\B-101.dwg";

_variant_t missing() { return _variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR); }

class Documents : public SimTest {
protected:
    static HostDocumentsPtr documents() { return application()->GetDocuments(); }
    static HostDocumentPtr open(const wchar_t* path)
    {
        return documents()->Open(path, _variant_t(short(0)), missing());
    }
};

}  // namespace

TEST_F(Documents, OpeningMakesTheDrawingActiveAndAnOpenDrawingIsNotOpenedAgain)
{
    HostDocumentPtr opened = open(L"c:/projects/warehouse 12/drawings/shop/b-101.dwg");
    EXPECT_EQ(opened->GetFullFileName(), _bstr_t(kOnDisk));  // the host's own form of the name
    EXPECT_EQ(application()->GetActiveDocument()->GetFullFileName(), _bstr_t(kOnDisk));
    ASSERT_EQ(state().documents.size(), 2u);
    EXPECT_EQ(state().documents[1]->activeLayout->name, L"Layout1");
    EXPECT_EQ(state().documents[1]->layouts, std::vector<std::shared_ptr<sim::Layout>>{state().documents[1]->activeLayout});

    open(kOpen);
    EXPECT_EQ(state().documents.size(), 2u);
    EXPECT_EQ(state().activeDocument, state().documents[0]);
    EXPECT_EQ(documents()->Item(_variant_t(L"b-101.DWG"))->GetFullFileName(), _bstr_t(kOnDisk));
    EXPECT_EQ(documents()->Item(indexOf(VT_INT, 1))->GetFullFileName(), _bstr_t(kOnDisk));
}

TEST_F(Documents, OpeningIsRefusedForADrawingNotOnDiskOrArgumentsOfTheWrongKind)
{
    _com_error notFound = failureOf([] { open(L"C:\\nowhere.dwg"); });
    EXPECT_EQ(notFound.Error(), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(descriptionOf(notFound), L"drawing 'C:\\nowhere.dwg' was not found");
    EXPECT_EQ(failureOf([] { documents()->Open(kOnDisk, _variant_t(L"no"), missing()); }).Error(),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(failureOf([] { documents()->Open(kOnDisk, _variant_t(short(0)), _variant_t(3L)); }).Error(),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(state().documents.size(), 1u);
}

// What a drawing on disk asks before it opens: no stop for its check while DWGCHECK is 0, and its
// own password. A refused open opens nothing; an opened drawing keeps how it was opened.
TEST_F(Documents, OpeningMeetsWhatTheDrawingAsks)
{
    const short kNoVariable = -32768;  // the host has no DWGCHECK
    struct Case {
        const char* name;
        bool stopsForCheck;
        const wchar_t* drawingPassword;  // null: it needs none
        short drawingCheck;
        _variant_t readOnly;
        _variant_t password;
        HRESULT status;
    };
    const Case cases[] = {
        {"asks nothing, read-only", false, nullptr, 1, _variant_t(short(-1)), missing(), S_OK},
        {"checked, DWGCHECK 0", true, nullptr, 0, _variant_t(short(0)), missing(), S_OK},
        {"checked, DWGCHECK 2", true, nullptr, 2, _variant_t(short(0)), missing(), sim::kOpenStoppedForCheck},
        {"checked, no DWGCHECK", true, nullptr, kNoVariable, missing(), missing(), sim::kOpenStoppedForCheck},
        {"its password", false, L"Steel", 1, missing(), _variant_t(L"Steel"), S_OK},
        {"its password in other case", false, L"Steel", 1, missing(), _variant_t(L"steel"), sim::kWrongPassword},
        {"no password", false, L"Steel", 1, missing(), missing(), sim::kWrongPassword},
        {"checked first", true, L"Steel", 3, missing(), _variant_t(L"x"), sim::kOpenStoppedForCheck},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        state() = sim::defaultHostState();
        sim::DrawingDemands& demands = state().drawingDemands[kOnDisk];
        demands.stopsForCheck = c.stopsForCheck;
        if (c.drawingPassword)
            demands.password = c.drawingPassword;
        if (c.drawingCheck != kNoVariable)
            state().systemVariables[L"DWGCHECK"] = c.drawingCheck;
        else
            state().systemVariables.erase(L"DWGCHECK");
        HostDocument* opened = nullptr;
        EXPECT_EQ(documents()->raw_Open(_bstr_t(kOnDisk), c.readOnly, c.password, &opened), c.status);
        if (FAILED(c.status)) {
            EXPECT_EQ(opened, nullptr);
            EXPECT_EQ(state().documents.size(), 1u);
            continue;
        }
        ASSERT_NE(opened, nullptr);
        opened->Release();
        ASSERT_EQ(state().documents.size(), 2u);
        const sim::Document& document = *state().documents[1];
        EXPECT_EQ(document.readOnly, V_VT(&c.readOnly) == VT_I2 && V_I2(&c.readOnly) != 0);
        EXPECT_EQ(document.drawingCheckWhenOpened, c.drawingCheck == kNoVariable ? 1 : c.drawingCheck);
    }
    EXPECT_EQ(descriptionOf(failureOf([] { open(kOnDisk); })),
              std::wstring(L"the host stopped to check drawing '") + kOnDisk + L"', as DWGCHECK is not 0");
}

TEST_F(Documents, ClosingActivatesTheLastDrawingLeftAndSavesUnderTheNameGiven)
{
    HostDocumentPtr first = documents()->Item(indexOf(VT_INT, 0));
    open(kOnDisk);
    open(L"C:\\Users\\mx\\Documents\\Drawing1.dwg");
    first->Activate();

    first->Close(_variant_t(short(-1)),
                 _variant_t(L"C:\\Projects\\Warehouse 12\\Drawings\\GA-001 rev B.dwg"));
    EXPECT_EQ(state().activeDocument->fullFileName, L"C:\\Users\\mx\\Documents\\Drawing1.dwg");
    EXPECT_EQ(state().drawingsOnDisk.back(), L"C:\\Projects\\Warehouse 12\\Drawings\\GA-001 rev B.dwg");
    EXPECT_EQ(descriptionOf(failureOf([&] { first->GetFullFileName(); })),
              std::wstring(L"drawing '") + kOpen + L"' is closed");

    const size_t onDisk = state().drawingsOnDisk.size();
    application()->GetActiveDocument()->Close(_variant_t(VARIANT_FALSE, VT_BOOL), missing());
    application()->GetActiveDocument()->Close(missing(), missing());
    EXPECT_EQ(state().drawingsOnDisk.size(), onDisk);
    EXPECT_EQ(application()->GetActiveDocument().GetInterfacePtr(), nullptr);
}

TEST_F(Documents, APlotRecordsAJobWithTheActiveLayoutsSettings)
{
    HostDocumentPtr document = application()->GetActiveDocument();
    HostLayoutPtr layout = document->GetActiveLayout();
    layout->SetWindowToPlot(pointOf(0, 0), pointOf(10, 5));
    layout->PutPlotType(zbPlotWindow);
    HostPlotPtr plot = document->GetPlot();
    plot->PutNumberOfCopies(1);
    plot->StartBatchMode(1);
    plot->SetLayoutsToPlot(stringList({L"Layout2"}));
    EXPECT_EQ(plot->PlotToDevice(_variant_t(L"DWF6 ePlot.pc3")), VARIANT_TRUE);

    ASSERT_EQ(state().plotJobs.size(), 1u);
    const sim::PlotJob& job = state().plotJobs[0];
    EXPECT_EQ(job.document, kOpen);
    EXPECT_EQ(job.device, std::optional<std::wstring>(L"DWF6 ePlot.pc3"));
    EXPECT_EQ(job.layouts, std::vector<std::wstring>{L"Layout2"});
    EXPECT_EQ(job.plotType, 4);
    ASSERT_TRUE(job.window.has_value());
    EXPECT_EQ(job.window->upperRightX, 10);
    EXPECT_EQ(job.window->upperRightY, 5);

    state().plotterAnswers = false;
    EXPECT_EQ(plot->PlotToDevice(missing()), VARIANT_FALSE);
    EXPECT_EQ(state().plotJobs.size(), 1u);
}

TEST_F(Documents, PlotSettingsOutsideTheHostsRangesAreRefused)
{
    HostDocumentPtr document = application()->GetActiveDocument();
    HostLayoutPtr layout = document->GetActiveLayout();
    EXPECT_EQ(failureOf([&] { layout->PutPlotType(static_cast<ZbPlotType>(6)); }).Error(), E_INVALIDARG);
    EXPECT_EQ(failureOf([&] { layout->SetWindowToPlot(_variant_t(0.0), pointOf(1, 1)); }).Error(),
              DISP_E_TYPEMISMATCH);
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(failureOf([&] { layout->SetWindowToPlot(pointOf(notANumber, 0), pointOf(1, 1)); }).Error(),
              E_INVALIDARG);
    EXPECT_EQ(failureOf([&] { document->GetPlot()->PutNumberOfCopies(0); }).Error(), E_INVALIDARG);
    EXPECT_EQ(failureOf([&] { document->GetPlot()->SetLayoutsToPlot(_variant_t(L"Layout1")); }).Error(),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(failureOf([&] { document->GetPlot()->PlotToDevice(_variant_t(L"")); }).Error(), E_INVALIDARG);
    EXPECT_EQ(state().documents[0]->activeLayout->plotType, 5);
    EXPECT_FALSE(state().documents[0]->activeLayout->window.has_value());
}

TEST_F(Documents, ZoomWindowRecordsTheCornersOfTheHostsPointForm)
{
    application()->ZoomWindow(pointOf(-1.5, 2), pointOf(30, 40.25));
    ASSERT_EQ(state().zoomRequests.size(), 1u);
    EXPECT_EQ(state().zoomRequests[0].lowerLeftX, -1.5);
    EXPECT_EQ(state().zoomRequests[0].upperRightY, 40.25);
    EXPECT_EQ(failureOf([] { application()->ZoomWindow(_variant_t(1.0), pointOf(1, 1)); }).Error(),
              DISP_E_TYPEMISMATCH);

    _variant_t point3d;
    V_VT(&point3d) = VT_ARRAY | VT_R8;
    V_ARRAY(&point3d) = SafeArrayCreateVector(VT_R8, 0, 3);
    EXPECT_EQ(failureOf([&] { application()->ZoomWindow(point3d, pointOf(1, 1)); }).Error(), E_INVALIDARG);
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(failureOf([&] { application()->ZoomWindow(pointOf(0, 0), pointOf(1, infinity)); }).Error(),
              E_INVALIDARG);

    state().activeDocument = nullptr;
    EXPECT_EQ(failureOf([] { application()->ZoomWindow(pointOf(0, 0), pointOf(1, 1)); }).Error(), E_FAIL);
    EXPECT_EQ(state().zoomRequests.size(), 1u);
}

TEST_F(Documents, ANullObjectFaultOnOpenOpensNothing)
{
    host().armFault(withheldObject("HostDocuments.Open"));
    EXPECT_EQ(open(kOnDisk).GetInterfacePtr(), nullptr);
    EXPECT_EQ(state().documents.size(), 1u);
    EXPECT_EQ(state().activeDocument->fullFileName, kOpen);
}

// The four locations' reads and writes are the path operations' fault sweep's; a null string is
// the one form it does not pass.
TEST_F(Documents, ANullStringWrittenToALocationIsTheEmptyPath)
{
    application()->GetPreferences()->GetFiles()->PutDrawingPath(_bstr_t());
    EXPECT_EQ(state().preferences.drawingPath, L"");
}

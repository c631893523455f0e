// Plotting a layout of the active drawing, and zooming its view to a window.
#include "ZORBAppUtilities.h"

#include "bridge/failure_policies.h"
#include "bridge/host_access.h"
#include "bridge/yes_no.h"

#include "host/sdk.h"

using namespace external_utilities;

namespace {

// The layouts to plot: a one-dimensional VT_BSTR array from index 0 holding `layoutName`. The
// statuses of creating and filling it are not looked at: the host refuses a list it cannot read.
_variant_t layoutList(const MxtString& layoutName)
{
    const _bstr_t name(layoutName.getStringW());
    SAFEARRAY* layouts = SafeArrayCreateVector(VT_BSTR, 0, 1);
    LONG first = 0;
    SafeArrayPutElement(layouts, &first, static_cast<wchar_t*>(name));
    _variant_t list;
    V_VT(&list) = VT_ARRAY | VT_BSTR;
    V_ARRAY(&list) = layouts;
    return list;
}

// The window from (x1, y1) to (x2, y2), each corner a copy of the point's own variant (a failed
// copy raises its status).
void setPlotWindow(HostLayout& layout, double x1, double y1, double x2, double y2)
{
    ZbAxPoint2d lowerLeft(x1, y1);
    ZbAxPoint2d upperRight(x2, y2);
    const _variant_t lowerLeftCopy(lowerLeft.asVariantPtr());
    const _variant_t upperRightCopy(upperRight.asVariantPtr());
    layout.SetWindowToPlot(lowerLeftCopy, upperRightCopy);
}

}  // namespace

bool ZORBAppUtilities::plotLayout(const MxtString& plotConfigName, const MxtString& layoutName,
                                  ZbDbPlotSettings::PlotType plotType, double x1, double x2, double y1,
                                  double y2, MxtString& errorMessage)
{
    bool plotted = false;
    catchAutomationFailure(
        [&] {
            const HostDocumentPtr document = readFromApplication<HostDocumentPtr>(
                [](HostApplication& application) { return application.GetActiveDocument(); });
            if (!document)
                return;
            // Declared in the reverse of the order they are let go at the end, as the host has
            // always seen it: the layout, the list of layouts, the plot object, the document.
            HostPlotPtr plot;
            const _variant_t layouts = layoutList(layoutName);
            plot = document->GetPlot();
            if (!plot)
                return;
            // The settings go to the active layout, not to the one named: that name is used only in
            // the list of layouts to plot.
            const HostLayoutPtr layout = document->GetActiveLayout();
            if (layout) {
                if (plotType == ZbDbPlotSettings::kWindow)
                    setPlotWindow(*layout, x1, y1, x2, y2);
                layout->PutPlotType(static_cast<ZbPlotType>(plotType));
            }
            plot->PutNumberOfCopies(1);
            plot->PutQuietErrorMode(VARIANT_TRUE);
            plot->StartBatchMode(1);
            plot->SetLayoutsToPlot(layouts);
            const _variant_t device =
                plotConfigName.isEmpty() ? vtMissing : _variant_t(plotConfigName.getStringW());
            plotted = isExactlyTrue(plot->PlotToDevice(device));
        },
        errorMessage);
    return plotted;
}

bool ZORBAppUtilities::zoomWindow(const _variant_t& lowerLeft, const _variant_t& upperRight)
{
    // The application's reference is kept, not released: MX code has always run with the host this
    // way, and it must stay so.
    HostApplication* application = static_cast<HostApplication*>(getCadApplication());
    if (application != nullptr)
        application->ZoomWindow(lowerLeft, upperRight);
    return true;
}

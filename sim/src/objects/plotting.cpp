// A drawing's active layout and its plotting.
#include "calls/arguments_in.h"
#include "objects/host_object.h"
#include "objects/objects.h"

#include <algorithm>

namespace sim::detail {
namespace {

// The host's plot areas: 0 display, 1 extents, 2 limits, 3 view, 4 window, 5 layout.
constexpr long kLastPlotType = 5;

class LayoutObject final : public HostObject<HostLayout> {
public:
    LayoutObject(const CorePtr& core, std::shared_ptr<Document> document, std::shared_ptr<Layout> layout)
        : HostObject(core), m_document(std::move(document)), m_layout(std::move(layout))
    {
    }

    std::string journalName() const override
    {
        return "HostLayout " + nameOf(*m_document) + "/'" + text::toUtf8(m_layout->name) + "'";
    }
    std::wstring goneReason() const override { return detail::goneReason(core(), *m_document); }

    HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) override
    {
        return give(members::HostLayout::get_Name, name, [&] { return m_layout->name; });
    }

    HRESULT STDMETHODCALLTYPE raw_SetWindowToPlot(VARIANT lowerLeft, VARIANT upperRight) override
    {
        Call call =
            begin(members::HostLayout::SetWindowToPlot, {Arg::variant(lowerLeft), Arg::variant(upperRight)});
        if (call.refused())
            return call.status();
        PlotWindow window;
        if (!readPoint(call, lowerLeft, L"lower-left corner", window.lowerLeftX, window.lowerLeftY) ||
            !readPoint(call, upperRight, L"upper-right corner", window.upperRightX, window.upperRightY))
            return call.status();
        m_layout->window = window;
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE get_PlotType(ZbPlotType* plotType) override
    {
        return give(members::HostLayout::get_PlotType, plotType,
                    [&] { return static_cast<ZbPlotType>(m_layout->plotType); });
    }

    HRESULT STDMETHODCALLTYPE put_PlotType(ZbPlotType plotType) override
    {
        Call call = begin(members::HostLayout::put_PlotType, {Arg::number(plotType)});
        if (call.refused())
            return call.status();
        if (plotType < 0 || plotType > kLastPlotType)
            return call.fail(E_INVALIDARG, L"plot type " + std::to_wstring(plotType) +
                                               L" is not one of 0 (display) to 5 (layout)");
        m_layout->plotType = plotType;
        return call.succeed();
    }

protected:
    const char* interfaceName() const override { return "HostLayout"; }

private:
    std::shared_ptr<Document> m_document;
    std::shared_ptr<Layout> m_layout;
};

class PlotObject final : public HostObject<HostPlot> {
public:
    PlotObject(const CorePtr& core, std::shared_ptr<Document> document)
        : HostObject(core), m_document(std::move(document))
    {
    }

    std::string journalName() const override { return "HostPlot " + nameOf(*m_document); }
    std::wstring goneReason() const override { return detail::goneReason(core(), *m_document); }

    HRESULT STDMETHODCALLTYPE put_NumberOfCopies(LONG copies) override
    {
        Call call = begin(members::HostPlot::put_NumberOfCopies, {Arg::number(copies)});
        if (call.refused())
            return call.status();
        if (copies < 1)
            return call.fail(E_INVALIDARG, L"at least 1 copy is plotted, not " + std::to_wstring(copies));
        settings().numberOfCopies = copies;
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE put_QuietErrorMode(VARIANT_BOOL quiet) override
    {
        Call call = begin(members::HostPlot::put_QuietErrorMode, {Arg::flag(quiet)});
        if (call.refused() || !readFlag(call, quiet, L"quiet-error mode", settings().quietErrorMode))
            return call.status();
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE raw_StartBatchMode(LONG entryCount) override
    {
        Call call = begin(members::HostPlot::StartBatchMode, {Arg::number(entryCount)});
        if (call.refused())
            return call.status();
        if (entryCount < 1)
            return call.fail(E_INVALIDARG,
                             L"a plot batch has at least 1 entry, not " + std::to_wstring(entryCount));
        settings().batchEntries = entryCount;
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE raw_SetLayoutsToPlot(VARIANT layouts) override
    {
        Call call = begin(members::HostPlot::SetLayoutsToPlot, {Arg::variant(layouts)});
        if (call.refused())
            return call.status();
        std::vector<std::wstring> names;
        if (!readTexts(call, layouts, L"list of layouts", names))
            return call.status();
        if (names.empty())
            return call.fail(E_INVALIDARG, L"the list of layouts to plot is empty");
        // No layout is without a name: a list holding an empty (or null) one cannot be plotted.
        if (std::any_of(names.begin(), names.end(), [](const std::wstring& name) { return name.empty(); }))
            return call.fail(E_INVALIDARG, L"a layout to plot has no name");
        settings().layoutsToPlot = std::move(names);
        return call.succeed();
    }

    // Plots the layouts set (or the active layout) with the settings of the active layout; a plot
    // that the plotter accepts is kept as a plot job.
    HRESULT STDMETHODCALLTYPE raw_PlotToDevice(VARIANT device, VARIANT_BOOL* plotted) override
    {
        Call call = begin(members::HostPlot::PlotToDevice, {Arg::variant(device)});
        if (!call.accepts(plotted))
            return call.status();
        PlotJob job;
        if (!isMissing(call, device)) {
            std::wstring name;
            if (!readText(call, device, L"plot device", name))
                return call.status();
            if (name.empty())
                return call.fail(E_INVALIDARG,
                                 L"the plot device has no name; leave the argument out to plot with "
                                 L"the layout's own configuration");
            job.device = name;
        }
        const auto& layout = m_document->activeLayout;
        job.layouts = settings().layoutsToPlot;
        if (job.layouts.empty() && layout)
            job.layouts.push_back(layout->name);
        if (job.layouts.empty())
            return call.fail(E_FAIL,
                             L"nothing to plot: no layouts were set and the drawing has no active layout");
        if (state().plotterAnswers) {
            job.document = m_document->fullFileName;
            job.numberOfCopies = settings().numberOfCopies;
            if (layout) {
                job.plotType = layout->plotType;
                job.window = layout->window;
            }
            state().plotJobs.push_back(std::move(job));
        }
        return call.giveValue(plotted, state().plotterAnswers ? VARIANT_TRUE : VARIANT_FALSE);
    }

protected:
    const char* interfaceName() const override { return "HostPlot"; }

private:
    PlotSettings& settings() const { return m_document->plot; }

    std::shared_ptr<Document> m_document;
};

}  // namespace

HostLayout* newLayout(const CorePtr& core, const std::shared_ptr<Document>& document,
                      const std::shared_ptr<Layout>& layout)
{
    return layout ? new LayoutObject(core, document, layout) : nullptr;
}

HostPlot* newPlot(const CorePtr& core, const std::shared_ptr<Document>& document)
{
    return document ? new PlotObject(core, document) : nullptr;
}

}  // namespace sim::detail

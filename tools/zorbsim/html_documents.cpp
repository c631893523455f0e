#include "html_host_parts.h"

#include "html_text.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace zorbsim::html {
namespace {

using DocumentVersions = NodeVersions<sim::Document>;

bool sameDocument(const std::shared_ptr<sim::Document>& a, const std::shared_ptr<sim::Document>& b)
{
    return a && b ? a->fullFileName == b->fullFileName : !a && !b;
}

std::vector<DocumentVersions> alignDocuments(const sim::HostState& before, const sim::HostState& after)
{
    return alignLists(before.documents, after.documents, sameDocument);
}

bool wasActive(const sim::HostState& state, const std::shared_ptr<sim::Document>* document)
{
    return document && *document && state.activeDocument == *document;
}

// Becoming or ceasing to be the active document changes a document, though not its content.
Change documentChange(const DocumentVersions& document, const sim::HostState& before,
                      const sim::HostState& after)
{
    if (document.change == Change::none &&
        wasActive(before, document.before) != wasActive(after, document.after))
        return Change::changed;
    return document.change;
}

std::string fileNameOf(const std::wstring& path)
{
    const std::size_t slash = path.find_last_of(L"\\/");
    return escape(slash == std::wstring::npos ? path : path.substr(slash + 1));
}

std::string number(double value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}

std::string pointsText(double x1, double y1, double x2, double y2)
{
    return "(" + number(x1) + ", " + number(y1) + ") to (" + number(x2) + ", " + number(y2) + ")";
}

std::string windowText(const std::optional<sim::PlotWindow>& window)
{
    return window
               ? pointsText(window->lowerLeftX, window->lowerLeftY, window->upperRightX, window->upperRightY)
               : std::string("none");
}

std::string plotTypeText(long plotType)
{
    static const std::array<const char*, 6> names{"display", "extents", "limits", "view", "window", "layout"};
    const bool known = plotType >= 0 && plotType < static_cast<long>(names.size());
    return std::to_string(plotType) + (known ? std::string(" ") + names[plotType] : std::string());
}

std::string namesText(const std::vector<std::wstring>& names)
{
    std::string text;
    for (const std::wstring& name : names)
        text += (text.empty() ? "" : ", ") + escape(name);
    return text.empty() ? "none" : text;
}

std::string activeLayoutText(const sim::Layout& layout)
{
    return "<strong>" + escape(layout.name) + "</strong> (active: plot type " + plotTypeText(layout.plotType) +
           ", window " + windowText(layout.window) + ")";
}

// The drawing's layouts in order, the active one with its plot settings; an active layout that is
// none of them comes first.
std::string layoutsText(const sim::Document& document)
{
    std::vector<std::string> texts;
    const auto& layouts = document.layouts;
    if (document.activeLayout && std::find(layouts.begin(), layouts.end(), document.activeLayout) == layouts.end())
        texts.push_back(activeLayoutText(*document.activeLayout));
    for (const auto& layout : layouts)
        texts.push_back(!layout ? "<span class=\"muted\">no object</span>"
                        : layout == document.activeLayout ? activeLayoutText(*layout)
                                                          : escape(layout->name));
    std::string text;
    for (const std::string& part : texts)
        text += (text.empty() ? "" : ", ") + part;
    return text.empty() ? "none" : text;
}

std::string plotSettingsText(const sim::PlotSettings& plot)
{
    return std::to_string(plot.numberOfCopies) + (plot.numberOfCopies == 1 ? " copy" : " copies") +
           (plot.quietErrorMode ? ", quiet errors" : "") +
           (plot.batchEntries ? ", batch of " + std::to_string(plot.batchEntries) : std::string()) +
           ", layouts to plot: " + namesText(plot.layoutsToPlot);
}

std::string activeBadge(bool active)
{
    return active ? " <span class=\"badge\">active</span>" : "";
}

template <class Entry> bool sameValue(const Entry& a, const Entry& b)
{
    return a == b;
}

}  // namespace

std::string documentTabsHtml(const sim::HostState& before, const sim::HostState& after)
{
    std::string html = "<div class=\"tabs\">";
    for (const DocumentVersions& document : alignDocuments(before, after)) {
        if (!document.shown())
            continue;
        const bool active = wasActive(after, document.after);
        html += std::string("<span class=\"tab") + (active ? " active" : "") +
                changeClass(documentChange(document, before, after)) + "\" title=\"" +
                escape(document.shown()->fullFileName) + "\">" + fileNameOf(document.shown()->fullFileName) +
                "</span>";
    }
    if (after.documents.empty())
        html += "<span class=\"tab muted\">no drawing open</span>";
    return html + "</div>";
}

std::string documentsHtml(const sim::HostState& before, const sim::HostState& after)
{
    const std::vector<DocumentVersions> documents = alignDocuments(before, after);
    std::string html;
    if (documents.empty())
        html += "<p class=\"muted\">no drawing open</p>";
    else
        html += "<table><tr><th>Drawing</th><th>Layouts</th><th>Plot settings</th></tr>";
    for (const DocumentVersions& document : documents) {
        const char* mark = changeClass(documentChange(document, before, after));
        if (!document.shown()) {
            html += std::string("<tr class=\"empty") + mark + "\"><td colspan=\"3\">no object</td></tr>";
            continue;
        }
        const sim::Document& shown = *document.shown();
        const bool active = wasActive(after, document.after);
        html += std::string("<tr class=\"document") + (active ? " active" : "") + mark + "\" data-name=\"" +
                escape(shown.fullFileName) + "\"><td>" + escape(shown.fullFileName) + activeBadge(active) +
                (shown.readOnly ? " <span class=\"badge\">read-only</span>" : "") + "</td><td>" +
                layoutsText(shown) + "</td><td>" + plotSettingsText(shown.plot) + "</td></tr>";
    }
    if (!documents.empty())
        html += "</table>";
    const bool outside = after.activeDocument && std::find(after.documents.begin(), after.documents.end(),
                                                           after.activeDocument) == after.documents.end();
    if (outside)
        html += "<p>The active document is not among the open ones: " +
                escape(after.activeDocument->fullFileName) + "</p>";
    else if (!after.activeDocument && !after.documents.empty())
        html += "<p class=\"muted\">no document is active</p>";
    return html;
}

std::string plotJobsHtml(const sim::HostState& before, const sim::HostState& after)
{
    if (before.plotJobs.empty() && after.plotJobs.empty())
        return "<p class=\"muted\">none</p>";
    std::string html = "<table><tr><th>Drawing</th><th>Device</th><th>Layouts</th><th>Copies</th>"
                       "<th>Plot type</th><th>Window</th></tr>";
    for (const auto& job : alignLists(before.plotJobs, after.plotJobs, sameValue<sim::PlotJob>)) {
        const sim::PlotJob& shown = job.shown();
        html += std::string("<tr class=\"plot-job") + changeClass(job.change) + "\"><td>" +
                escape(shown.document) + "</td><td>" +
                (shown.device ? escape(*shown.device) : "<span class=\"muted\">the layout's own</span>") +
                "</td><td>" + namesText(shown.layouts) + "</td><td>" + std::to_string(shown.numberOfCopies) +
                "</td><td>" + plotTypeText(shown.plotType) + "</td><td>" + windowText(shown.window) +
                "</td></tr>";
    }
    return html + "</table>";
}

std::string zoomRequestsHtml(const sim::HostState& before, const sim::HostState& after)
{
    if (before.zoomRequests.empty() && after.zoomRequests.empty())
        return "<p class=\"muted\">none</p>";
    std::string html = "<table><tr><th>Window zoomed to</th></tr>";
    for (const auto& zoom :
         alignLists(before.zoomRequests, after.zoomRequests, sameValue<sim::ZoomRequest>)) {
        const sim::ZoomRequest& shown = zoom.shown();
        html += std::string("<tr class=\"zoom") + changeClass(zoom.change) + "\"><td>" +
                pointsText(shown.lowerLeftX, shown.lowerLeftY, shown.upperRightX, shown.upperRightY) +
                "</td></tr>";
    }
    return html + "</table>";
}

}  // namespace zorbsim::html

#include "html_view.h"

#include "html_host_parts.h"
#include "html_page.h"
#include "html_text.h"

#include <algorithm>

namespace zorbsim::html {
namespace {

bool onMenuBar(const sim::HostState& state, const std::shared_ptr<sim::PopupMenu>& menu)
{
    return menu && std::find(state.menuBar.begin(), state.menuBar.end(), menu) != state.menuBar.end();
}

std::string groupHtml(const NodeVersions<sim::MenuGroup>& group, const sim::HostState& state)
{
    const char* mark = changeClass(group.change);
    if (!group.shown())
        return std::string("<div class=\"group empty") + mark + "\">no object</div>";
    const sim::MenuGroup& shown = *group.shown();
    const sim::MenuGroup& baseline = *group.baseline();
    std::string html = std::string("<div class=\"group") + mark + "\" data-name=\"" + escape(shown.name) +
                       "\"><h4>" + escape(shown.name) + "</h4><div class=\"menus\">";
    if (shown.menus.empty() && baseline.menus.empty())
        html += "<span class=\"muted\">no menus</span>";
    for (const auto& menu : alignLists(baseline.menus, shown.menus, sameMenu))
        html += menuHtml(menu, onMenuBar(state, menu.shown()) ? "on the menu bar" : "off the menu bar");
    html += "</div>";
    if (shown.toolbars.empty() && baseline.toolbars.empty())
        html += "<p class=\"muted\">no toolbars</p>";
    for (const auto& toolbar : alignLists(baseline.toolbars, shown.toolbars, sameToolbar))
        html += toolbarEntryHtml(toolbar);
    return html + "</div>";
}

std::string groupsHtml(const sim::HostState& before, const sim::HostState& after)
{
    std::string html = "<div class=\"groups\" data-name=\"groups\">";
    if (before.menuGroups.empty() && after.menuGroups.empty())
        html += "<p class=\"muted\">no menu group loaded</p>";
    for (const auto& group : alignLists(before.menuGroups, after.menuGroups, sameGroup))
        html += groupHtml(group, group.after ? after : before);
    return html + "</div>";
}

std::string variablesHtml(const sim::HostState& before, const sim::HostState& after)
{
    const auto variables = alignMaps(before.systemVariables, after.systemVariables);
    if (variables.empty())
        return "<p class=\"muted\">none</p>";
    std::string html = "<table><tr><th>Variable</th><th>Value</th></tr>";
    for (const auto& [name, value] : variables)
        html += std::string("<tr class=\"variable") + changeClass(value.change) + "\" data-name=\"" +
                escape(*name) + "\"><td>" + escape(*name) + "</td><td>" + std::to_string(value.shown()) +
                "</td></tr>";
    return html + "</table>";
}

std::string preferencesHtml(const sim::PreferencesFiles& before, const sim::PreferencesFiles& after)
{
    const auto row = [](const char* name, const std::wstring& was, const std::wstring& now) {
        return std::string("<tr class=\"preference") + changeClass(versions(&was, &now).change) + "\"><td>" +
               name + "</td><td>" + escape(now) + "</td></tr>";
    };
    return "<table><tr><th>Preference</th><th>Value</th></tr>" +
           row("support path", before.supportPath, after.supportPath) +
           row("printer style sheet path", before.printerStyleSheetPath, after.printerStyleSheetPath) +
           row("template drawing folder", before.templateDrawingFolder, after.templateDrawingFolder) +
           row("drawing path", before.drawingPath, after.drawingPath) + "</table>";
}

std::string titleText(const sim::HostState& state)
{
    return "Zorb" +
           (state.activeDocument ? " - " + escape(state.activeDocument->fullFileName) : std::string());
}

template <class Node>
bool sameNodes(const std::vector<std::shared_ptr<Node>>& a, const std::vector<std::shared_ptr<Node>>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const auto& left, const auto& right) { return sameContent(left, right); });
}

}  // namespace

const char* changeClass(Change change)
{
    switch (change) {
    case Change::added:
        return " added";
    case Change::removed:
        return " removed";
    case Change::changed:
        return " changed";
    case Change::none:
        break;
    }
    return "";
}

bool sameGroup(const std::shared_ptr<sim::MenuGroup>& a, const std::shared_ptr<sim::MenuGroup>& b)
{
    return a && b ? a->name == b->name : !a && !b;
}

void writeHostView(std::ostream& out, const std::string& name, const sim::HostState& state,
                   const sim::HostState* baseline)
{
    const sim::HostState& before = baseline ? *baseline : state;
    out << "<section class=\"host\" data-name=\"" << escape(name) << "\">\n"
        << "<div class=\"window\"><div class=\"titlebar\">" << titleText(state) << "</div>"
        << menuBarHtml(before, state) << windowToolbarsHtml(before, state, documentTabsHtml(before, state))
        << "</div>\n<h3>Menu groups</h3>\n"
        << groupsHtml(before, state) << "\n<h3>Documents</h3>\n"
        << documentsHtml(before, state) << "\n<h3>System variables</h3>\n"
        << variablesHtml(before, state) << "\n<h3>Preferences</h3>\n"
        << preferencesHtml(before.preferences, state.preferences) << "\n<h3>Plot jobs</h3>\n"
        << plotJobsHtml(before, state) << "\n<h3>Zoom requests</h3>\n"
        << zoomRequestsHtml(before, state) << "\n</section>\n";
}

std::vector<std::string> changedParts(const sim::HostState& before, const sim::HostState& after)
{
    std::vector<std::string> parts;
    if (!sameNodes(before.menuBar, after.menuBar))
        parts.emplace_back("menu bar");
    if (!sameNodes(before.menuGroups, after.menuGroups))
        parts.emplace_back("menu groups");
    if (!sameNodes(before.documents, after.documents) ||
        !sameContent(before.activeDocument, after.activeDocument))
        parts.emplace_back("documents");
    if (before.systemVariables != after.systemVariables)
        parts.emplace_back("system variables");
    if (before.preferences != after.preferences)
        parts.emplace_back("preferences");
    if (before.plotJobs != after.plotJobs)
        parts.emplace_back("plot jobs");
    if (before.zoomRequests != after.zoomRequests)
        parts.emplace_back("zoom requests");
    return parts;
}

void writeViewPage(std::ostream& out, const sim::HostState& state, const std::string& source)
{
    writePageStart(out, "zorbsim view: " + source);
    out << "<h1>zorbsim view</h1>\n<p>Host: " << escape(source) << "</p>\n"
        << "<p class=\"muted\">Click a menu to open it; hover over an item, a button or a toolbar for its "
           "tag "
           "and details.</p>\n";
    writeHostView(out, "host", state);
    writePageEnd(out);
}

}  // namespace zorbsim::html

#include "html_host_parts.h"

#include "html_text.h"

#include <array>

namespace zorbsim::html {
namespace {

using ButtonVersions = NodeVersions<sim::ToolbarButton>;

bool sameButton(const std::shared_ptr<sim::ToolbarButton>& a, const std::shared_ptr<sim::ToolbarButton>& b)
{
    if (!a || !b)
        return !a && !b;
    return !a->tag.empty() && !b->tag.empty() ? a->tag == b->tag : a->name == b->name;
}

std::vector<ButtonVersions> alignButtons(const NodeVersions<sim::Toolbar>& toolbar)
{
    return alignLists(toolbar.baseline()->buttons, toolbar.shown()->buttons, sameButton);
}

std::string flyoutText(const sim::ToolbarButton& button)
{
    return button.flyout ? escape(button.flyout->first) + " / " + escape(button.flyout->second)
                         : std::string();
}

// The host's dock-status numbering.
const char* placeName(long dockStatus)
{
    static const std::array<const char*, 5> names{"docked top", "docked bottom", "docked left",
                                                  "docked right", "floating"};
    return dockStatus >= 0 && dockStatus < static_cast<long>(names.size()) ? names[dockStatus]
                                                                           : "placed nowhere";
}

std::string placeText(const sim::Toolbar& toolbar)
{
    if (toolbar.dockStatus != sim::kDockFloating)
        return placeName(toolbar.dockStatus);
    return "floating at (" + std::to_string(toolbar.left) + ", " + std::to_string(toolbar.top) + ") in " +
           std::to_string(toolbar.floatingRows) + (toolbar.floatingRows == 1 ? " row" : " rows");
}

// A button as the toolbar shows it: its name, a flyout with the toolbar it opens, and the rest on
// hover.
std::string buttonHtml(const ButtonVersions& button)
{
    const char* mark = changeClass(button.change);
    if (!button.shown())
        return std::string("<span class=\"button empty") + mark + "\">no object</span>";
    const sim::ToolbarButton& shown = *button.shown();
    std::string hover = "tag: " + escape(shown.tag) + "&#10;bitmaps: " + escape(shown.smallBitmap) + ", " +
                        escape(shown.largeBitmap);
    if (!shown.helpString.empty())
        hover += "&#10;" + escape(shown.helpString);
    std::string html = std::string("<span class=\"button") + (shown.flyout ? " flyout" : "") + mark +
                       "\" data-name=\"" + escape(shown.name) + "\" title=\"" + hover + "\">" +
                       escape(shown.name);
    if (shown.flyout)
        html += "<span class=\"flyout-to\">&#9656; " + escape(shown.flyout->second) + "</span>";
    return html + "</span>";
}

std::string windowToolbarHtml(const NodeVersions<sim::Toolbar>& toolbar)
{
    const char* mark = changeClass(toolbar.change);
    const sim::Toolbar& shown = *toolbar.shown();
    const bool floating = shown.dockStatus == sim::kDockFloating;
    std::string html = std::string("<div class=\"toolbar") + (floating ? " floating" : "") +
                       (shown.visible ? "" : " hidden") + mark + "\" data-name=\"" + escape(shown.name) +
                       "\"";
    // A hidden floating toolbar stands in line with the others hidden, its place in its hover text:
    // at their places they would lie on top of each other.
    if (floating && shown.visible) {
        // Half the host's screen place, so that the usual places fit the drawing area.
        html += " style=\"left:" + std::to_string(shown.left / 2) +
                "px;top:" + std::to_string(shown.top / 2) +
                "px;--rows:" + std::to_string(std::max(1L, shown.floatingRows)) + "\"";
    }
    html += " title=\"" + escape(shown.tag) + ", " + placeText(shown) + "\"><span class=\"grip\">" +
            escape(shown.name) + (shown.visible ? "" : "<span class=\"badge\">hidden</span>") + "</span>";
    for (const ButtonVersions& button : alignButtons(toolbar))
        html += buttonHtml(button);
    return html + "</div>";
}

}  // namespace

bool sameToolbar(const std::shared_ptr<sim::Toolbar>& a, const std::shared_ptr<sim::Toolbar>& b)
{
    if (!a || !b)
        return !a && !b;
    return !a->tag.empty() && !b->tag.empty() ? a->tag == b->tag : a->name == b->name;
}

std::string windowToolbarsHtml(const sim::HostState& before, const sim::HostState& after,
                               const std::string& drawing)
{
    // By dock status: top, bottom, left, right, floating; and the hidden floating ones.
    std::array<std::string, 5> areas;
    std::string hiddenFloating;
    for (const auto& group : alignLists(before.menuGroups, after.menuGroups, sameGroup)) {
        if (!group.shown())
            continue;
        for (auto toolbar : alignLists(group.baseline()->toolbars, group.shown()->toolbars, sameToolbar)) {
            // Here a toolbar stands apart from its group, so it carries the mark of a group that came or
            // went.
            if (group.change == Change::added || group.change == Change::removed)
                toolbar.change = group.change;
            const long dockStatus = toolbar.shown() ? toolbar.shown()->dockStatus : -1;
            if (dockStatus == sim::kDockFloating && !toolbar.shown()->visible)
                hiddenFloating += windowToolbarHtml(toolbar);
            else if (dockStatus >= 0 && dockStatus < static_cast<long>(areas.size()))
                areas[dockStatus] += windowToolbarHtml(toolbar);
        }
    }
    return "<div class=\"dock dock-top\">" + areas[0] +
           "</div><div class=\"middle\"><div class=\"dock dock-left\">" + areas[2] +
           "</div><div class=\"drawing\">" + drawing + "<div class=\"canvas\">" + areas[4] +
           "<span class=\"canvas-note\">floating toolbars at half their place</span></div>" +
           (hiddenFloating.empty()
                ? std::string()
                : "<div class=\"dock parked\"><span class=\"muted\">hidden, floating:</span>" +
                      hiddenFloating + "</div>") +
           "</div><div class=\"dock dock-right\">" + areas[3] +
           "</div></div><div class=\"dock dock-bottom\">" + areas[1] + "</div>";
}

std::string toolbarEntryHtml(const NodeVersions<sim::Toolbar>& toolbar)
{
    const char* mark = changeClass(toolbar.change);
    if (!toolbar.shown())
        return std::string("<div class=\"toolbar-entry empty") + mark + "\">no object</div>";
    const sim::Toolbar& shown = *toolbar.shown();
    std::string html = std::string("<div class=\"toolbar-entry") + (shown.visible ? "" : " hidden") + mark +
                       "\" data-name=\"" + escape(shown.name) + "\"><p><strong>" + escape(shown.name) +
                       "</strong> <code>" + escape(shown.tag) + "</code> " + placeText(shown) +
                       (shown.visible ? "" : " <span class=\"badge\">hidden</span>") + "</p>";
    const std::vector<ButtonVersions> buttons = alignButtons(toolbar);
    if (buttons.empty())
        return html + "<p class=\"muted\">no buttons</p></div>";
    html += "<table><tr><th>Button</th><th>Tag</th><th>Small bitmap</th><th>Large bitmap</th><th>Flyout</th>"
            "<th>Macro</th></tr>";
    for (const ButtonVersions& button : buttons) {
        const char* buttonMark = changeClass(button.change);
        if (!button.shown()) {
            html +=
                std::string("<tr class=\"empty") + buttonMark + "\"><td colspan=\"6\">no object</td></tr>";
            continue;
        }
        const sim::ToolbarButton& shownButton = *button.shown();
        html += std::string("<tr class=\"button-row") + buttonMark + "\" data-name=\"" +
                escape(shownButton.name) + "\"><td>" + escape(shownButton.name) + "</td><td><code>" +
                escape(shownButton.tag) + "</code></td><td><code>" + escape(shownButton.smallBitmap) +
                "</code></td><td><code>" + escape(shownButton.largeBitmap) + "</code></td><td>" +
                flyoutText(shownButton) + "</td><td><code>" + escape(shownButton.macro) + "</code></td></tr>";
    }
    return html + "</table></div>";
}

}  // namespace zorbsim::html

// A host state as JSON, in the form stateFromJson reads back to an equal state.
#include "sim/state_json.h"

#include "sim/journal.h"

#include "json/names.h"
#include "model/menu_places.h"
#include "model/text.h"

namespace sim {
namespace {

using nlohmann::json;

json textOf(const std::wstring& value)
{
    return text::toUtf8(value);
}

json textsOf(const std::vector<std::wstring>& values)
{
    json array = json::array();
    for (const std::wstring& value : values)
        array.push_back(textOf(value));
    return array;
}

template <class Nodes, class Write> json nodesOf(const Nodes& nodes, Write write)
{
    json array = json::array();
    for (const auto& node : nodes)
        array.push_back(node ? write(*node) : json(nullptr));
    return array;
}

json menuOf(const PopupMenu& menu);

// Items are the bulk of a state: members that hold their default are left out.
json itemOf(const PopupMenuItem& item)
{
    json out = {{"type", detail::nameOfItemType(item.type)}};
    if (!item.label.empty())
        out["label"] = textOf(item.label);
    if (!item.macro.empty())
        out["macro"] = textOf(item.macro);
    if (!item.tag.empty())
        out["tag"] = textOf(item.tag);
    if (!item.enabled)
        out["enabled"] = false;
    if (item.subMenu)
        out["submenu"] = menuOf(*item.subMenu);
    else if (item.type == ItemType::submenu)
        out["submenu"] = nullptr;
    return out;
}

json menuOf(const PopupMenu& menu)
{
    return {{"name", textOf(menu.name)}, {"tag", textOf(menu.tag)}, {"items", nodesOf(menu.items, itemOf)}};
}

json buttonOf(const ToolbarButton& button)
{
    json out = {{"name", textOf(button.name)},
                {"tag", textOf(button.tag)},
                {"macro", textOf(button.macro)},
                {"helpString", textOf(button.helpString)},
                {"smallBitmap", textOf(button.smallBitmap)},
                {"largeBitmap", textOf(button.largeBitmap)}};
    if (button.flyout)
        out["flyout"] = {{"menuGroup", textOf(button.flyout->first)},
                         {"toolbar", textOf(button.flyout->second)}};
    return out;
}

json toolbarOf(const Toolbar& toolbar)
{
    return {{"name", textOf(toolbar.name)},
            {"tag", textOf(toolbar.tag)},
            {"visible", toolbar.visible},
            {"dockStatus", toolbar.dockStatus},
            {"left", toolbar.left},
            {"top", toolbar.top},
            {"floatingRows", toolbar.floatingRows},
            {"buttons", nodesOf(toolbar.buttons, buttonOf)}};
}

json groupOf(const MenuGroup& group)
{
    return {{"name", textOf(group.name)},
            {"menus", nodesOf(group.menus, menuOf)},
            {"toolbars", nodesOf(group.toolbars, toolbarOf)}};
}

json windowOf(const std::optional<PlotWindow>& window)
{
    if (!window)
        return nullptr;
    return {{"lowerLeft", {window->lowerLeftX, window->lowerLeftY}},
            {"upperRight", {window->upperRightX, window->upperRightY}}};
}

json layoutOf(const Layout& layout)
{
    return {{"name", textOf(layout.name)}, {"plotType", layout.plotType}, {"window", windowOf(layout.window)}};
}

// A position in the document's layouts, or the layout itself when it is none of them.
json activeLayoutOf(const Document& document)
{
    if (!document.activeLayout)
        return nullptr;
    for (size_t i = 0; i < document.layouts.size(); ++i)
        if (document.layouts[i] == document.activeLayout)
            return i;
    return layoutOf(*document.activeLayout);
}

json documentOf(const Document& document)
{
    json out = {{"fullFileName", textOf(document.fullFileName)},
                {"activeLayout", activeLayoutOf(document)},
                {"plot",
                 {{"numberOfCopies", document.plot.numberOfCopies},
                  {"quietErrorMode", document.plot.quietErrorMode},
                  {"batchEntries", document.plot.batchEntries},
                  {"layoutsToPlot", textsOf(document.plot.layoutsToPlot)}}}};
    // Left out while they hold their default, so that states written before they existed read the same.
    if (!document.layouts.empty())
        out["layouts"] = nodesOf(document.layouts, layoutOf);
    if (document.readOnly)
        out["readOnly"] = true;
    if (document.drawingCheckWhenOpened)
        out["drawingCheckWhenOpened"] = *document.drawingCheckWhenOpened;
    return out;
}

json drawingDemandsOf(const DrawingDemands& demands)
{
    return {{"stopsForCheck", demands.stopsForCheck},
            {"password", demands.password ? textOf(*demands.password) : json(nullptr)}};
}

json plotJobOf(const PlotJob& job)
{
    return {{"document", textOf(job.document)}, {"device", job.device ? textOf(*job.device) : json(nullptr)},
            {"layouts", textsOf(job.layouts)},  {"numberOfCopies", job.numberOfCopies},
            {"plotType", job.plotType},         {"window", windowOf(job.window)}};
}

json faultOf(const Fault& fault)
{
    json out = {{"kind", detail::nameOfFaultKind(fault.kind)},
                {"method", fault.method},
                {"object", fault.object},
                {"nth", fault.nth},
                {"status", statusName(fault.status)},
                {"matchingCallsSeen", fault.matchingCallsSeen}};
    switch (fault.answer.kind) {
    case Answer::Kind::hostValue:
        break;
    case Answer::Kind::number:
        out["answer"] = fault.answer.number;
        break;
    case Answer::Kind::null:
        out["answer"] = nullptr;
        break;
    }
    return out;
}

// The menu bar's menus: each by the group that holds it (by name, or by position when the name is
// not unique) and its position there; a menu of no group written whole.
json menuBarOf(const HostState& state)
{
    const auto places = detail::placesOfGroupMenus(state);
    const detail::GroupsByName groups(state);
    json menuBar = json::array();
    for (const auto& menu : state.menuBar) {
        const auto place = menu ? places.find(menu.get()) : places.end();
        if (!menu) {
            menuBar.push_back(nullptr);
        }
        else if (place == places.end()) {
            menuBar.push_back({{"menu", menuOf(*menu)}});
        }
        else {
            const auto& name = state.menuGroups[place->second.group]->name;
            menuBar.push_back({{"menuGroup", groups.count(name) == 1 ? textOf(name) : json(place->second.group)},
                               {"menu", place->second.menu}});
        }
    }
    return menuBar;
}

json activeDocumentOf(const HostState& state)
{
    if (!state.activeDocument)
        return nullptr;
    for (size_t i = 0; i < state.documents.size(); ++i)
        if (state.documents[i] == state.activeDocument)
            return i;
    return documentOf(*state.activeDocument);  // a drawing outside the collection
}

template <class Map, class Write> json mapOf(const Map& values, Write write)
{
    json object = json::object();
    for (const auto& [name, value] : values)
        object[text::toUtf8(name)] = write(value);
    return object;
}

}  // namespace

nlohmann::json stateToJson(const HostState& state)
{
    json plotJobs = json::array();
    for (const PlotJob& job : state.plotJobs)
        plotJobs.push_back(plotJobOf(job));
    json zooms = json::array();
    for (const ZoomRequest& zoom : state.zoomRequests)
        zooms.push_back(
            windowOf(PlotWindow{zoom.lowerLeftX, zoom.lowerLeftY, zoom.upperRightX, zoom.upperRightY}));
    json faults = json::array();
    for (const Fault& fault : state.faults)
        faults.push_back(faultOf(fault));
    const auto identity = [](const auto& value) { return json(value); };
    return {
        {"behaviour",
         {{"strictArguments", state.behaviour.strictArguments},
          {"menuIndexBeyondEnd", detail::nameOfBeyondEnd(state.behaviour.menuIndexBeyondEnd)},
          {"newMenuItemsEnabled", state.behaviour.newMenuItemsEnabled}}},
        {"menuGroups", nodesOf(state.menuGroups, groupOf)},
        {"menuBar", menuBarOf(state)},
        {"documents", nodesOf(state.documents, documentOf)},
        {"activeDocument", activeDocumentOf(state)},
        {"drawingsOnDisk", textsOf(state.drawingsOnDisk)},
        {"drawingDemands", mapOf(state.drawingDemands, drawingDemandsOf)},
        {"plotJobs", plotJobs},
        {"plotterAnswers", state.plotterAnswers},
        {"zoomRequests", zooms},
        {"preferences",
         {{"supportPath", textOf(state.preferences.supportPath)},
          {"printerStyleSheetPath", textOf(state.preferences.printerStyleSheetPath)},
          {"templateDrawingFolder", textOf(state.preferences.templateDrawingFolder)},
          {"drawingPath", textOf(state.preferences.drawingPath)}}},
        {"systemVariables", mapOf(state.systemVariables, identity)},
        {"registry",
         {{"rootKey", textOf(state.registryRootKey)},
          {"values", mapOf(state.registryValues, [](const auto& named) { return mapOf(named, textOf); })}}},
        {"searchPathFiles", mapOf(state.searchPathFiles, textOf)},
        {"menuFiles", mapOf(state.menuFiles,
                            [](const std::shared_ptr<MenuGroup>& group) {
                                return group ? groupOf(*group) : json(nullptr);
                            })},
        {"mxSupportFolder", textOf(state.mxSupportFolder)},
        {"faults", faults},
    };
}

}  // namespace sim

// Every field of the model once, with its name in JSON: the comparison, the state's reader and its
// writer all go through these lists, so that a field added here is compared, read and written.
// The order is the one unknown-member messages list the names in and the one members are read in.
#pragma once

#include "sim/model.h"

#include <climits>
#include <tuple>
#include <utility>

namespace sim::detail {

// A member written always.
template <class Struct, class Value> struct Field {
    const char* name;
    Value Struct::*member;
    // For whole numbers: the range the reader takes (LONG on the host's side is 32 bits).
    long long lowest = INT32_MIN;
    long long highest = INT32_MAX;
};

// A member left out of the JSON while it holds its default, as states written before it existed
// read the same and items, the bulk of a state, stay short.
template <class Struct, class Value> struct SparseField {
    const char* name;
    Value Struct::*member;
};

// Two coordinates written as one point [x, y].
template <class Struct> struct PointField {
    const char* name;
    double Struct::*x;
    double Struct::*y;
};

// Members of the struct gathered in JSON under one object of their own.
template <class Struct, class... Fields> struct FieldGroup {
    const char* name;
    std::tuple<Fields...> fields;
};

template <class Struct, class Value>
constexpr Field<Struct, Value> field(const char* name, Value Struct::*member)
{
    return {name, member};
}

template <class Struct>
constexpr Field<Struct, long> wholeNumber(const char* name, long Struct::*member, long long lowest,
                                          long long highest)
{
    return {name, member, lowest, highest};
}

template <class Struct, class Value>
constexpr SparseField<Struct, Value> sparse(const char* name, Value Struct::*member)
{
    return {name, member};
}

template <class Struct>
constexpr PointField<Struct> point(const char* name, double Struct::*x, double Struct::*y)
{
    return {name, x, y};
}

template <class Struct, class... Fields>
constexpr FieldGroup<Struct, Fields...> group(const char* name, Fields... fields)
{
    return {name, std::make_tuple(fields...)};
}

template <class Struct> struct Fields;

template <> struct Fields<PopupMenuItem> {
    using S = PopupMenuItem;
    static constexpr auto list = std::make_tuple(
        field("type", &S::type), sparse("label", &S::label), sparse("macro", &S::macro),
        sparse("tag", &S::tag), sparse("enabled", &S::enabled), field("submenu", &S::subMenu));
};

template <> struct Fields<PopupMenu> {
    using S = PopupMenu;
    static constexpr auto list =
        std::make_tuple(field("name", &S::name), field("tag", &S::tag), field("items", &S::items));
};

template <> struct Fields<ToolbarButton> {
    using S = ToolbarButton;
    static constexpr auto list =
        std::make_tuple(field("name", &S::name), field("tag", &S::tag), field("macro", &S::macro),
                        field("helpString", &S::helpString), field("smallBitmap", &S::smallBitmap),
                        field("largeBitmap", &S::largeBitmap), sparse("flyout", &S::flyout));
};

template <> struct Fields<Toolbar> {
    using S = Toolbar;
    static constexpr auto list =
        std::make_tuple(field("name", &S::name), field("tag", &S::tag), field("visible", &S::visible),
                        wholeNumber("dockStatus", &S::dockStatus, 0, kDockFloating), field("left", &S::left),
                        field("top", &S::top), wholeNumber("floatingRows", &S::floatingRows, 1, INT32_MAX),
                        field("buttons", &S::buttons));
};

template <> struct Fields<MenuGroup> {
    using S = MenuGroup;
    static constexpr auto list =
        std::make_tuple(field("name", &S::name), field("menus", &S::menus), field("toolbars", &S::toolbars));
};

template <> struct Fields<PlotWindow> {
    using S = PlotWindow;
    static constexpr auto list = std::make_tuple(point("lowerLeft", &S::lowerLeftX, &S::lowerLeftY),
                                                 point("upperRight", &S::upperRightX, &S::upperRightY));
};

template <> struct Fields<ZoomRequest> {
    using S = ZoomRequest;
    static constexpr auto list = std::make_tuple(point("lowerLeft", &S::lowerLeftX, &S::lowerLeftY),
                                                 point("upperRight", &S::upperRightX, &S::upperRightY));
};

template <> struct Fields<Layout> {
    using S = Layout;
    static constexpr auto list = std::make_tuple(field("name", &S::name), field("plotType", &S::plotType),
                                                 field("window", &S::window));
};

template <> struct Fields<PlotSettings> {
    using S = PlotSettings;
    static constexpr auto list = std::make_tuple(
        field("numberOfCopies", &S::numberOfCopies), field("quietErrorMode", &S::quietErrorMode),
        field("batchEntries", &S::batchEntries), field("layoutsToPlot", &S::layoutsToPlot));
};

// The active layout after the layouts, as it may name one of them by position.
template <> struct Fields<Document> {
    using S = Document;
    static constexpr auto list = std::make_tuple(
        field("fullFileName", &S::fullFileName), sparse("layouts", &S::layouts),
        field("activeLayout", &S::activeLayout), field("plot", &S::plot), sparse("readOnly", &S::readOnly),
        sparse("drawingCheckWhenOpened", &S::drawingCheckWhenOpened));
};

template <> struct Fields<DrawingDemands> {
    using S = DrawingDemands;
    static constexpr auto list =
        std::make_tuple(field("stopsForCheck", &S::stopsForCheck), field("password", &S::password));
};

template <> struct Fields<PlotJob> {
    using S = PlotJob;
    static constexpr auto list =
        std::make_tuple(field("document", &S::document), field("device", &S::device),
                        field("layouts", &S::layouts), field("numberOfCopies", &S::numberOfCopies),
                        field("plotType", &S::plotType), field("window", &S::window));
};

template <> struct Fields<PreferencesFiles> {
    using S = PreferencesFiles;
    static constexpr auto list = std::make_tuple(
        field("supportPath", &S::supportPath), field("printerStyleSheetPath", &S::printerStyleSheetPath),
        field("templateDrawingFolder", &S::templateDrawingFolder), field("drawingPath", &S::drawingPath));
};

template <> struct Fields<HostBehaviour> {
    using S = HostBehaviour;
    static constexpr auto list = std::make_tuple(field("strictArguments", &S::strictArguments),
                                                 field("menuIndexBeyondEnd", &S::menuIndexBeyondEnd),
                                                 field("newMenuItemsEnabled", &S::newMenuItemsEnabled));
};

// The menu bar after the groups and the active document after the documents, as they name them.
template <> struct Fields<HostState> {
    using S = HostState;
    static constexpr auto list = std::make_tuple(
        field("behaviour", &S::behaviour), field("menuGroups", &S::menuGroups), field("menuBar", &S::menuBar),
        field("documents", &S::documents), field("activeDocument", &S::activeDocument),
        field("drawingsOnDisk", &S::drawingsOnDisk), field("drawingDemands", &S::drawingDemands),
        field("plotJobs", &S::plotJobs), field("plotterAnswers", &S::plotterAnswers),
        field("zoomRequests", &S::zoomRequests), field("preferences", &S::preferences),
        field("systemVariables", &S::systemVariables),
        group<S>("registry", field("rootKey", &S::registryRootKey), field("values", &S::registryValues)),
        field("searchPathFiles", &S::searchPathFiles), field("menuFiles", &S::menuFiles),
        field("mxSupportFolder", &S::mxSupportFolder), field("faults", &S::faults));
};

// Calls `visit` with each field of the list in order.
template <class List, class Visit> void forEachField(const List& list, Visit&& visit)
{
    std::apply([&](const auto&... fields) { (visit(fields), ...); }, list);
}

// Whether `same` holds for every field of the list, stopping at the first that differs.
template <class List, class Same> bool allFields(const List& list, Same&& same)
{
    return std::apply([&](const auto&... fields) { return (same(fields) && ...); }, list);
}

}  // namespace sim::detail

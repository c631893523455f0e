// A host state from JSON. Every member may be left out and then keeps the model's default; an
// unknown member, a value of the wrong kind or a reference to nothing is an error naming its
// JSON path. The state is built aside and handed out whole, so bad input never half-loads.
#include "sim/state_json.h"

#include "sim/json_reader.h"
#include "sim/json_text.h"
#include "sim/journal.h"

#include "faults/check.h"
#include "json/names.h"
#include "model/menu_places.h"
#include "model/text.h"

#include <climits>
#include <cstdint>
#include <tuple>
#include <unordered_map>

namespace sim {
namespace {

// Host states are the simulator's input: their complaints are StateErrors.
class StateSource : public JsonSource {
public:
    std::exception_ptr rejection(const std::string& path, const std::string& problem) const override
    {
        return std::make_exception_ptr(StateError(path, problem));
    }
};

const StateSource kStateSource{};

constexpr long long kLongLowest = INT32_MIN;  // LONG on the host's side is 32 bits
constexpr long long kLongHighest = INT32_MAX;

// Reads a member into `target` when it is there.
template <class T, class Read>
void readMember(const JsonReader& object, const char* name, T& target, Read read)
{
    if (const auto member = object.member(name))
        target = read(*member);
}

void readText(const JsonReader& object, const char* name, std::wstring& target)
{
    readMember(object, name, target, [](const JsonReader& value) { return value.text(); });
}

void readBoolean(const JsonReader& object, const char* name, bool& target)
{
    readMember(object, name, target, [](const JsonReader& value) { return value.boolean(); });
}

void readLong(const JsonReader& object, const char* name, long& target, long long lowest = kLongLowest,
              long long highest = kLongHighest)
{
    readMember(object, name, target,
               [&](const JsonReader& value) { return static_cast<long>(value.integer(lowest, highest)); });
}

std::vector<std::wstring> readTexts(const JsonReader& array)
{
    std::vector<std::wstring> texts;
    for (const JsonReader& element : array.elements())
        texts.push_back(element.text());
    return texts;
}

// A collection of nodes; a null element is a place where the host gives no object.
template <class Node, class Read>
std::vector<std::shared_ptr<Node>> readNodes(const JsonReader& array, Read read)
{
    std::vector<std::shared_ptr<Node>> nodes;
    for (const JsonReader& element : array.elements())
        nodes.push_back(element.isNull() ? nullptr : std::make_shared<Node>(read(element)));
    return nodes;
}

template <class Nodes, class Read>
void readNodesMember(const JsonReader& object, const char* name, Nodes& target, Read read)
{
    readMember(object, name, target, [&](const JsonReader& array) {
        return Nodes(readNodes<typename Nodes::value_type::element_type>(array, read));
    });
}

PopupMenu readMenu(const JsonReader& in);

PopupMenuItem readItem(const JsonReader& in)
{
    in.expectObject({"type", "label", "macro", "tag", "enabled", "submenu"});
    PopupMenuItem item;
    readMember(in, "type", item.type, [](const JsonReader& value) {
        if (value.isText()) {
            if (const auto type = detail::itemTypeNamed(text::toUtf8(value.text())))
                return *type;
        }
        else if (!value.isObject() && !value.isNull()) {
            return static_cast<ItemType>(value.integer(0, 2));
        }
        value.expected("an item type: \"command\", \"separator\", \"submenu\" (or 0, 1, 2)");
    });
    readText(in, "label", item.label);
    readText(in, "macro", item.macro);
    readText(in, "tag", item.tag);
    readBoolean(in, "enabled", item.enabled);
    readMember(in, "submenu", item.subMenu, [](const JsonReader& value) {
        return value.isNull() ? nullptr : std::make_shared<PopupMenu>(readMenu(value));
    });
    return item;
}

PopupMenu readMenu(const JsonReader& in)
{
    in.expectObject({"name", "tag", "items"});
    PopupMenu menu;
    readText(in, "name", menu.name);
    readText(in, "tag", menu.tag);
    readNodesMember(in, "items", menu.items, readItem);
    return menu;
}

ToolbarButton readButton(const JsonReader& in)
{
    in.expectObject({"name", "tag", "macro", "helpString", "smallBitmap", "largeBitmap", "flyout"});
    ToolbarButton button;
    readText(in, "name", button.name);
    readText(in, "tag", button.tag);
    readText(in, "macro", button.macro);
    readText(in, "helpString", button.helpString);
    readText(in, "smallBitmap", button.smallBitmap);
    readText(in, "largeBitmap", button.largeBitmap);
    readMember(in, "flyout", button.flyout,
               [](const JsonReader& value) -> std::optional<std::pair<std::wstring, std::wstring>> {
                   if (value.isNull())
                       return std::nullopt;
                   value.expectObject({"menuGroup", "toolbar"});
                   std::pair<std::wstring, std::wstring> flyout;
                   readText(value, "menuGroup", flyout.first);
                   readText(value, "toolbar", flyout.second);
                   return flyout;
               });
    return button;
}

Toolbar readToolbar(const JsonReader& in)
{
    in.expectObject({"name", "tag", "visible", "dockStatus", "left", "top", "floatingRows", "buttons"});
    Toolbar toolbar;
    readText(in, "name", toolbar.name);
    readText(in, "tag", toolbar.tag);
    readBoolean(in, "visible", toolbar.visible);
    readLong(in, "dockStatus", toolbar.dockStatus, 0, kDockFloating);
    readLong(in, "left", toolbar.left);
    readLong(in, "top", toolbar.top);
    readLong(in, "floatingRows", toolbar.floatingRows, 1);
    readNodesMember(in, "buttons", toolbar.buttons, readButton);
    return toolbar;
}

MenuGroup readGroup(const JsonReader& in)
{
    in.expectObject({"name", "menus", "toolbars"});
    MenuGroup group;
    readText(in, "name", group.name);
    readNodesMember(in, "menus", group.menus, readMenu);
    readNodesMember(in, "toolbars", group.toolbars, readToolbar);
    return group;
}

std::pair<double, double> readPoint(const JsonReader& in)
{
    const auto coordinates = in.elements();
    if (coordinates.size() != 2)
        in.expected("a point [x, y]");
    return {coordinates[0].real(), coordinates[1].real()};
}

std::optional<PlotWindow> readWindow(const JsonReader& in)
{
    if (in.isNull())
        return std::nullopt;
    in.expectObject({"lowerLeft", "upperRight"});
    PlotWindow window;
    if (const auto point = in.member("lowerLeft"))
        std::tie(window.lowerLeftX, window.lowerLeftY) = readPoint(*point);
    if (const auto point = in.member("upperRight"))
        std::tie(window.upperRightX, window.upperRightY) = readPoint(*point);
    return window;
}

Layout readLayout(const JsonReader& in)
{
    in.expectObject({"name", "plotType", "window"});
    Layout layout;
    readText(in, "name", layout.name);
    readLong(in, "plotType", layout.plotType);
    readMember(in, "window", layout.window, readWindow);
    return layout;
}

Document readDocument(const JsonReader& in)
{
    in.expectObject({"fullFileName", "layouts", "activeLayout", "plot", "readOnly", "drawingCheckWhenOpened"});
    Document document;
    readText(in, "fullFileName", document.fullFileName);
    readNodesMember(in, "layouts", document.layouts, readLayout);
    readBoolean(in, "readOnly", document.readOnly);
    readMember(in, "drawingCheckWhenOpened", document.drawingCheckWhenOpened,
               [](const JsonReader& value) -> std::optional<short> {
                   if (value.isNull())
                       return std::nullopt;
                   return static_cast<short>(value.integer(SHRT_MIN, SHRT_MAX));
               });
    // A position in `layouts`, or a layout of its own.
    readMember(in, "activeLayout", document.activeLayout, [&](const JsonReader& value) -> std::shared_ptr<Layout> {
        if (value.isNull())
            return nullptr;
        if (value.isObject())
            return std::make_shared<Layout>(readLayout(value));
        const long long position = value.integer(0, kLongHighest);
        if (position >= static_cast<long long>(document.layouts.size()) || !document.layouts[position])
            value.fail("no layout at index " + std::to_string(position));
        return document.layouts[position];
    });
    if (const auto plot = in.member("plot")) {
        plot->expectObject({"numberOfCopies", "quietErrorMode", "batchEntries", "layoutsToPlot"});
        readLong(*plot, "numberOfCopies", document.plot.numberOfCopies);
        readBoolean(*plot, "quietErrorMode", document.plot.quietErrorMode);
        readLong(*plot, "batchEntries", document.plot.batchEntries);
        readMember(*plot, "layoutsToPlot", document.plot.layoutsToPlot, readTexts);
    }
    return document;
}

DrawingDemands readDrawingDemands(const JsonReader& in)
{
    in.expectObject({"stopsForCheck", "password"});
    DrawingDemands demands;
    readBoolean(in, "stopsForCheck", demands.stopsForCheck);
    readMember(in, "password", demands.password, [](const JsonReader& value) -> std::optional<std::wstring> {
        if (value.isNull())
            return std::nullopt;
        return value.text();
    });
    return demands;
}

PlotJob readPlotJob(const JsonReader& in)
{
    in.expectObject({"document", "device", "layouts", "numberOfCopies", "plotType", "window"});
    PlotJob job;
    readText(in, "document", job.document);
    readMember(in, "device", job.device, [](const JsonReader& value) -> std::optional<std::wstring> {
        if (value.isNull())
            return std::nullopt;
        return value.text();
    });
    readMember(in, "layouts", job.layouts, readTexts);
    readLong(in, "numberOfCopies", job.numberOfCopies);
    readLong(in, "plotType", job.plotType);
    readMember(in, "window", job.window, readWindow);
    return job;
}

ZoomRequest readZoom(const JsonReader& in)
{
    const auto window = readWindow(in);
    if (!window)
        in.expected("an object");
    return ZoomRequest{window->lowerLeftX, window->lowerLeftY, window->upperRightX, window->upperRightY};
}

HRESULT readStatus(const JsonReader& in)
{
    if (in.isText()) {
        if (const auto status = statusNamed(text::toUtf8(in.text())))
            return *status;
        in.expected("a status name such as \"E_FAIL\" or a code such as \"0x80004005\"");
    }
    if (in.isObject() || in.isNull())
        in.expected("a status name or code");
    return static_cast<HRESULT>(static_cast<std::uint32_t>(in.integer(INT32_MIN, UINT32_MAX)));
}

Answer readAnswer(const JsonReader& in)
{
    Answer answer;
    if (in.isNull()) {
        answer.kind = Answer::Kind::null;
    }
    else {
        answer.kind = Answer::Kind::number;
        answer.number = in.integer(INT32_MIN, UINT32_MAX);
    }
    return answer;
}

constexpr const char* kFaultKinds = "failCall, nullObject, answer, noFrameworkObject, noDispatch, "
                                    "refuseApplicationInterface, failStringAllocation, failVariantCopy";

Fault readFault(const JsonReader& in)
{
    in.expectObject({"kind", "method", "object", "nth", "status", "answer", "matchingCallsSeen"});
    Fault fault;
    // Every kind acts differently, so none is taken for granted.
    if (!in.member("kind"))
        in.fail("missing \"kind\" (" + std::string(kFaultKinds) + ")");
    readMember(in, "kind", fault.kind, [](const JsonReader& value) {
        if (const auto kind = detail::faultKindNamed(text::toUtf8(value.text())))
            return *kind;
        value.expected(std::string("a fault kind: ") + kFaultKinds);
    });
    // An answer succeeds: without a status of its own it succeeds with S_OK.
    if (fault.kind == FaultKind::answer)
        fault.status = S_OK;
    readMember(in, "method", fault.method,
               [](const JsonReader& value) { return text::toUtf8(value.text()); });
    readMember(in, "object", fault.object,
               [](const JsonReader& value) { return text::toUtf8(value.text()); });
    readMember(in, "nth", fault.nth,
               [](const JsonReader& value) { return static_cast<int>(value.integer(0, INT_MAX)); });
    readMember(in, "status", fault.status, readStatus);
    readMember(in, "answer", fault.answer, readAnswer);
    readMember(in, "matchingCallsSeen", fault.matchingCallsSeen,
               [](const JsonReader& value) { return static_cast<int>(value.integer(0, INT_MAX)); });
    if (const auto wrong = detail::whyFaultCannotAct(fault))
        in.fail(*wrong);
    return fault;
}

std::vector<Fault> readFaults(const JsonReader& in)
{
    std::vector<Fault> faults;
    for (const JsonReader& element : in.elements())
        faults.push_back(readFault(element));
    return faults;
}

// What the menu bar's entries refer to, found through maps made once, so that a bar of many
// groups' menus reads in linear time.
class MenuBarReferences {
public:
    explicit MenuBarReferences(const HostState& state) : m_state(state), m_groupsByName(state) {}

    // A menu on the menu bar: a menu of a loaded group (by position, or by tag or name), or a menu
    // of its own that belongs to no group.
    std::shared_ptr<PopupMenu> entry(const JsonReader& in)
    {
        if (in.isNull())
            return nullptr;
        in.expectObject({"menuGroup", "menu"});
        const auto menu = in.member("menu");
        if (!menu)
            in.fail("a menu-bar entry needs a \"menu\"");
        const auto groupMember = in.member("menuGroup");
        if (!groupMember) {
            if (!menu->isObject())
                menu->expected("a menu object (a menu-bar menu outside every group)");
            return std::make_shared<PopupMenu>(readMenu(*menu));
        }
        const auto group = referencedGroup(*groupMember);
        if (menu->isText())
            return menuTaggedOrNamed(*group, *menu);
        const long long position = menu->integer(0, kLongHighest);
        if (position >= static_cast<long long>(group->menus.size()) || !group->menus[position])
            menu->fail("menu group '" + text::toUtf8(group->name) + "' has no menu at index " +
                       std::to_string(position));
        return group->menus[position];
    }

private:
    // The loaded group an entry names: by name (letter case ignored) or by position.
    std::shared_ptr<MenuGroup> referencedGroup(const JsonReader& in) const
    {
        if (in.isText()) {
            const std::wstring name = in.text();
            if (const auto group = m_groupsByName.first(name))
                return group;
            in.fail("no loaded menu group '" + text::toUtf8(name) + "'");
        }
        const long long position = in.integer(0, kLongHighest);
        if (position >= static_cast<long long>(m_state.menuGroups.size()) || !m_state.menuGroups[position])
            in.fail("no loaded menu group at index " + std::to_string(position));
        return m_state.menuGroups[position];
    }

    // A tag is looked for among all the group's menus before a name is.
    std::shared_ptr<PopupMenu> menuTaggedOrNamed(const MenuGroup& group, const JsonReader& in)
    {
        const std::wstring wanted = in.text();
        const MenusByText& menus = menusOf(group);
        for (const auto* byText : {&menus.byTag, &menus.byName}) {
            const auto found = byText->find(wanted);
            if (found != byText->end())
                return found->second;
        }
        in.fail("menu group '" + text::toUtf8(group.name) + "' has no menu tagged or named '" +
                text::toUtf8(wanted) + "'");
    }

    struct MenusByText {
        std::unordered_map<std::wstring, std::shared_ptr<PopupMenu>> byTag;
        std::unordered_map<std::wstring, std::shared_ptr<PopupMenu>> byName;
    };

    // Made when an entry first names a menu of the group; the first menu of a tag or name wins.
    const MenusByText& menusOf(const MenuGroup& group)
    {
        const auto [known, isNew] = m_menusByGroup.try_emplace(&group);
        if (isNew) {
            for (const auto& menu : group.menus) {
                if (!menu)
                    continue;
                known->second.byTag.emplace(menu->tag, menu);
                known->second.byName.emplace(menu->name, menu);
            }
        }
        return known->second;
    }

    const HostState& m_state;
    detail::GroupsByName m_groupsByName;
    std::unordered_map<const MenuGroup*, MenusByText> m_menusByGroup;
};

std::shared_ptr<Document> readActiveDocument(const HostState& state, const JsonReader& in)
{
    if (in.isNull())
        return nullptr;
    if (in.isObject())
        return std::make_shared<Document>(readDocument(in));  // a drawing outside the collection
    const long long position = in.integer(0, kLongHighest);
    if (position >= static_cast<long long>(state.documents.size()) || !state.documents[position])
        in.fail("no open drawing at index " + std::to_string(position));
    return state.documents[position];
}

template <class Value, class Read> std::map<std::wstring, Value> readMap(const JsonReader& in, Read read)
{
    std::map<std::wstring, Value> values;
    for (const auto& [name, value] : in.members())
        values[name] = read(value);
    return values;
}

HostState readState(const JsonReader& in)
{
    in.expectObject({"behaviour", "menuGroups", "menuBar", "documents", "activeDocument", "drawingsOnDisk",
                     "drawingDemands", "plotJobs", "plotterAnswers", "zoomRequests", "preferences", "systemVariables",
                     "registry", "searchPathFiles", "menuFiles", "mxSupportFolder", "faults"});
    HostState state;
    if (const auto behaviour = in.member("behaviour")) {
        behaviour->expectObject({"strictArguments", "menuIndexBeyondEnd", "newMenuItemsEnabled"});
        readBoolean(*behaviour, "strictArguments", state.behaviour.strictArguments);
        readBoolean(*behaviour, "newMenuItemsEnabled", state.behaviour.newMenuItemsEnabled);
        readMember(*behaviour, "menuIndexBeyondEnd", state.behaviour.menuIndexBeyondEnd,
                   [](const JsonReader& value) {
                       if (const auto choice = detail::beyondEndNamed(text::toUtf8(value.text())))
                           return *choice;
                       value.expected("\"refuse\" or \"append\"");
                   });
    }
    readNodesMember(in, "menuGroups", state.menuGroups, readGroup);
    if (const auto bar = in.member("menuBar")) {
        MenuBarReferences references(state);
        for (const JsonReader& entry : bar->elements())
            state.menuBar.push_back(references.entry(entry));
    }
    readNodesMember(in, "documents", state.documents, readDocument);
    readMember(in, "activeDocument", state.activeDocument,
               [&](const JsonReader& value) { return readActiveDocument(state, value); });
    readMember(in, "drawingsOnDisk", state.drawingsOnDisk, readTexts);
    readMember(in, "drawingDemands", state.drawingDemands,
               [](const JsonReader& object) { return readMap<DrawingDemands>(object, readDrawingDemands); });
    readMember(in, "plotJobs", state.plotJobs, [](const JsonReader& array) {
        std::vector<PlotJob> jobs;
        for (const JsonReader& element : array.elements())
            jobs.push_back(readPlotJob(element));
        return jobs;
    });
    readBoolean(in, "plotterAnswers", state.plotterAnswers);
    readMember(in, "zoomRequests", state.zoomRequests, [](const JsonReader& array) {
        std::vector<ZoomRequest> zooms;
        for (const JsonReader& element : array.elements())
            zooms.push_back(readZoom(element));
        return zooms;
    });
    if (const auto preferences = in.member("preferences")) {
        preferences->expectObject(
            {"supportPath", "printerStyleSheetPath", "templateDrawingFolder", "drawingPath"});
        readText(*preferences, "supportPath", state.preferences.supportPath);
        readText(*preferences, "printerStyleSheetPath", state.preferences.printerStyleSheetPath);
        readText(*preferences, "templateDrawingFolder", state.preferences.templateDrawingFolder);
        readText(*preferences, "drawingPath", state.preferences.drawingPath);
    }
    readMember(in, "systemVariables", state.systemVariables, [](const JsonReader& object) {
        return readMap<short>(object, [](const JsonReader& value) {
            return static_cast<short>(value.integer(SHRT_MIN, SHRT_MAX));
        });
    });
    if (const auto registry = in.member("registry")) {
        registry->expectObject({"rootKey", "values"});
        readText(*registry, "rootKey", state.registryRootKey);
        readMember(*registry, "values", state.registryValues, [](const JsonReader& keys) {
            return readMap<std::map<std::wstring, std::wstring>>(keys, [](const JsonReader& values) {
                return readMap<std::wstring>(values, [](const JsonReader& value) { return value.text(); });
            });
        });
    }
    readMember(in, "searchPathFiles", state.searchPathFiles, [](const JsonReader& object) {
        return readMap<std::wstring>(object, [](const JsonReader& value) { return value.text(); });
    });
    readMember(in, "menuFiles", state.menuFiles, [](const JsonReader& object) {
        return readMap<std::shared_ptr<MenuGroup>>(object, [](const JsonReader& value) {
            return value.isNull() ? nullptr : std::make_shared<MenuGroup>(readGroup(value));
        });
    });
    readText(in, "mxSupportFolder", state.mxSupportFolder);
    readMember(in, "faults", state.faults, readFaults);
    return state;
}

}  // namespace

HostState stateFromJson(const nlohmann::json& document)
{
    return readState(JsonReader(document, kStateSource));
}

std::vector<Fault> faultsFromJson(const nlohmann::json& document)
{
    return readFaults(JsonReader(document, kStateSource));
}

HostState loadStateFile(const std::string& path)
{
    const nlohmann::json document = loadJsonFile(path);
    try {
        return stateFromJson(document);
    }
    catch (const StateError& error) {
        throw StateError(path + ": " + error.what());
    }
}

}  // namespace sim

// A host state from JSON. Every member may be left out and then keeps the model's default; an
// unknown member, a value of the wrong kind or a reference to nothing is an error naming its
// JSON path. The state is built aside and handed out whole, so bad input never half-loads.
#include "sim/state_json.h"

#include "sim/json_reader.h"
#include "sim/json_text.h"
#include "sim/journal.h"

#include "faults/check.h"
#include "json/names.h"
#include "model/fields.h"
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

constexpr long long kLongHighest = INT32_MAX;  // LONG on the host's side is 32 bits

// Reads a member into `target` when it is there.
template <class T, class Read>
void readMember(const JsonReader& object, const char* name, T& target, Read read)
{
    if (const auto member = object.member(name))
        target = read(*member);
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

template <class Struct> Struct objectFrom(const JsonReader& in);

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
            return std::make_shared<PopupMenu>(objectFrom<PopupMenu>(*menu));
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
        return std::make_shared<Document>(objectFrom<Document>(in));  // a drawing outside the collection
    const long long position = in.integer(0, kLongHighest);
    if (position >= static_cast<long long>(state.documents.size()) || !state.documents[position])
        in.fail("no open drawing at index " + std::to_string(position));
    return state.documents[position];
}

// Each kind of value from JSON; a struct of the model by its fields.
void readValue(const JsonReader& in, std::wstring& text) { text = in.text(); }
void readValue(const JsonReader& in, bool& value) { value = in.boolean(); }
void readValue(const JsonReader& in, short& value)
{
    value = static_cast<short>(in.integer(SHRT_MIN, SHRT_MAX));
}
void readValue(const JsonReader& in, Fault& fault) { fault = readFault(in); }

void readValue(const JsonReader& in, ItemType& type)
{
    if (in.isText()) {
        if (const auto named = detail::itemTypeNamed(text::toUtf8(in.text()))) {
            type = *named;
            return;
        }
    }
    else if (!in.isObject() && !in.isNull()) {
        type = static_cast<ItemType>(in.integer(0, 2));
        return;
    }
    in.expected("an item type: \"command\", \"separator\", \"submenu\" (or 0, 1, 2)");
}

void readValue(const JsonReader& in, BeyondEnd& choice)
{
    const auto named = detail::beyondEndNamed(text::toUtf8(in.text()));
    if (!named)
        in.expected("\"refuse\" or \"append\"");
    choice = *named;
}

// A flyout names the group and the toolbar it opens.
void readValue(const JsonReader& in, std::pair<std::wstring, std::wstring>& flyout)
{
    in.expectObject({"menuGroup", "toolbar"});
    if (const auto group = in.member("menuGroup"))
        readValue(*group, flyout.first);
    if (const auto toolbar = in.member("toolbar"))
        readValue(*toolbar, flyout.second);
}

template <class Struct> void readValue(const JsonReader& in, Struct& value)
{
    value = objectFrom<Struct>(in);
}

template <class Value> void readValue(const JsonReader& in, std::optional<Value>& value)
{
    if (in.isNull()) {
        value.reset();
        return;
    }
    Value read{};
    readValue(in, read);
    value = std::move(read);
}

// A null node is a place where the host gives no object.
template <class Node> void readValue(const JsonReader& in, std::shared_ptr<Node>& node)
{
    node = in.isNull() ? nullptr : std::make_shared<Node>(objectFrom<Node>(in));
}

template <class Value> void readValue(const JsonReader& in, std::vector<Value>& values)
{
    std::vector<Value> read;
    for (const JsonReader& element : in.elements())
        readValue(element, read.emplace_back());
    values = std::move(read);
}

template <class Value> void readValue(const JsonReader& in, GapBuffer<Value>& values)
{
    std::vector<Value> read;
    readValue(in, read);
    values = GapBuffer<Value>(std::move(read));
}

template <class Value> void readValue(const JsonReader& in, std::map<std::wstring, Value>& values)
{
    std::map<std::wstring, Value> read;
    for (const auto& [name, value] : in.members())
        readValue(value, read[name]);
    values = std::move(read);
}

template <class List> std::vector<const char*> namesOf(const List& list)
{
    return std::apply([](const auto&... fields) { return std::vector<const char*>{fields.name...}; }, list);
}

template <class Struct, class Value>
void readField(const JsonReader& in, Struct& value, const detail::Field<Struct, Value>& field)
{
    readValue(in, value.*field.member);
}

template <class Struct>
void readField(const JsonReader& in, Struct& value, const detail::Field<Struct, long>& field)
{
    value.*field.member = static_cast<long>(in.integer(field.lowest, field.highest));
}

template <class Struct, class Value>
void readField(const JsonReader& in, Struct& value, const detail::SparseField<Struct, Value>& field)
{
    readValue(in, value.*field.member);
}

template <class Struct>
void readField(const JsonReader& in, Struct& value, const detail::PointField<Struct>& field)
{
    const auto coordinates = in.elements();
    if (coordinates.size() != 2)
        in.expected("a point [x, y]");
    value.*field.x = coordinates[0].real();
    value.*field.y = coordinates[1].real();
}

template <class Struct, class List> void readFields(const JsonReader& in, Struct& value, const List& list);

template <class Struct, class... Fields>
void readField(const JsonReader& in, Struct& value, const detail::FieldGroup<Struct, Fields...>& group)
{
    readFields(in, value, group.fields);
}

// A position in the document's layouts (read before it), or a layout of its own.
void readField(const JsonReader& in, Document& document,
               const detail::Field<Document, std::shared_ptr<Layout>>&)
{
    if (in.isNull()) {
        document.activeLayout = nullptr;
        return;
    }
    if (in.isObject()) {
        document.activeLayout = std::make_shared<Layout>(objectFrom<Layout>(in));
        return;
    }
    const long long position = in.integer(0, kLongHighest);
    if (position >= static_cast<long long>(document.layouts.size()) || !document.layouts[position])
        in.fail("no layout at index " + std::to_string(position));
    document.activeLayout = document.layouts[position];
}

void readField(const JsonReader& in, HostState& state,
               const detail::Field<HostState, std::vector<std::shared_ptr<PopupMenu>>>&)
{
    MenuBarReferences references(state);
    std::vector<std::shared_ptr<PopupMenu>> menuBar;
    for (const JsonReader& entry : in.elements())
        menuBar.push_back(references.entry(entry));
    state.menuBar = std::move(menuBar);
}

void readField(const JsonReader& in, HostState& state,
               const detail::Field<HostState, std::shared_ptr<Document>>&)
{
    state.activeDocument = readActiveDocument(state, in);
}

// Defined after every kind of field, so that each finds its own reader.
template <class Struct, class List> void readFields(const JsonReader& in, Struct& value, const List& list)
{
    in.expectObject(namesOf(list));
    detail::forEachField(list, [&](const auto& field) {
        if (const auto member = in.member(field.name))
            readField(*member, value, field);
    });
}

template <class Struct> Struct objectFrom(const JsonReader& in)
{
    Struct value;
    readFields(in, value, detail::Fields<Struct>::list);
    return value;
}

}  // namespace

HostState stateFromJson(const nlohmann::json& document)
{
    return objectFrom<HostState>(JsonReader(document, kStateSource));
}

std::vector<Fault> faultsFromJson(const nlohmann::json& document)
{
    std::vector<Fault> faults;
    readValue(JsonReader(document, kStateSource), faults);
    return faults;
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

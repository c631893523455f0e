// A host state as JSON, in the form stateFromJson reads back to an equal state.
#include "sim/state_json.h"

#include "sim/journal.h"

#include "json/names.h"
#include "model/fields.h"
#include "model/menu_places.h"
#include "model/text.h"

namespace sim {
namespace {

using nlohmann::json;

json textOf(const std::wstring& value)
{
    return text::toUtf8(value);
}

template <class Struct> json objectOf(const Struct& value);

// Each kind of value as JSON; a struct of the model by its fields.
json valueOf(const std::wstring& value) { return textOf(value); }
json valueOf(bool value) { return value; }
json valueOf(long value) { return value; }
json valueOf(short value) { return value; }
json valueOf(ItemType type) { return detail::nameOfItemType(type); }
json valueOf(BeyondEnd choice) { return detail::nameOfBeyondEnd(choice); }
json valueOf(const Fault& fault);

// A flyout names the group and the toolbar it opens.
json valueOf(const std::pair<std::wstring, std::wstring>& flyout)
{
    return {{"menuGroup", textOf(flyout.first)}, {"toolbar", textOf(flyout.second)}};
}

template <class Struct> json valueOf(const Struct& value) { return objectOf(value); }

template <class Value> json valueOf(const std::optional<Value>& value)
{
    return value ? valueOf(*value) : json(nullptr);
}

// A null node is a place where the host gives no object.
template <class Node> json valueOf(const std::shared_ptr<Node>& node)
{
    return node ? valueOf(*node) : json(nullptr);
}

template <class Value> json valueOf(const std::vector<Value>& values)
{
    json array = json::array();
    for (const auto& value : values)
        array.push_back(valueOf(value));
    return array;
}

template <class Value> json valueOf(const GapBuffer<Value>& values)
{
    json array = json::array();
    for (const auto& value : values)
        array.push_back(valueOf(value));
    return array;
}

template <class Value> json valueOf(const std::map<std::wstring, Value>& values)
{
    json object = json::object();
    for (const auto& [name, value] : values)
        object[text::toUtf8(name)] = valueOf(value);
    return object;
}

json valueOf(const Fault& fault)
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

// A position in the document's layouts, or the layout itself when it is none of them.
json activeLayoutOf(const Document& document)
{
    if (!document.activeLayout)
        return nullptr;
    for (size_t i = 0; i < document.layouts.size(); ++i)
        if (document.layouts[i] == document.activeLayout)
            return i;
    return objectOf(*document.activeLayout);
}

json activeDocumentOf(const HostState& state)
{
    if (!state.activeDocument)
        return nullptr;
    for (size_t i = 0; i < state.documents.size(); ++i)
        if (state.documents[i] == state.activeDocument)
            return i;
    return objectOf(*state.activeDocument);  // a drawing outside the collection
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
            menuBar.push_back({{"menu", objectOf(*menu)}});
        }
        else {
            const auto& name = state.menuGroups[place->second.group]->name;
            menuBar.push_back(
                {{"menuGroup", groups.count(name) == 1 ? textOf(name) : json(place->second.group)},
                 {"menu", place->second.menu}});
        }
    }
    return menuBar;
}

template <class Struct, class Value>
void writeField(json& out, const Struct& value, const detail::Field<Struct, Value>& field)
{
    out[field.name] = valueOf(value.*field.member);
}

template <class Struct, class Value>
void writeField(json& out, const Struct& value, const detail::SparseField<Struct, Value>& field)
{
    static const Struct defaults{};
    if (!(value.*field.member == defaults.*field.member))
        out[field.name] = valueOf(value.*field.member);
}

template <class Struct>
void writeField(json& out, const Struct& value, const detail::PointField<Struct>& field)
{
    out[field.name] = {value.*field.x, value.*field.y};
}

template <class Struct, class... Fields>
void writeField(json& out, const Struct& value, const detail::FieldGroup<Struct, Fields...>& group)
{
    json& members = out[group.name] = json::object();
    detail::forEachField(group.fields, [&](const auto& field) { writeField(members, value, field); });
}

// A submenu item without its menu says so; other items leave the member out.
void writeField(json& out, const PopupMenuItem& item,
                const detail::Field<PopupMenuItem, std::shared_ptr<PopupMenu>>& field)
{
    if (item.subMenu || item.type == ItemType::submenu)
        out[field.name] = valueOf(item.subMenu);
}

void writeField(json& out, const Document& document,
                const detail::Field<Document, std::shared_ptr<Layout>>& field)
{
    out[field.name] = activeLayoutOf(document);
}

void writeField(json& out, const HostState& state,
                const detail::Field<HostState, std::shared_ptr<Document>>& field)
{
    out[field.name] = activeDocumentOf(state);
}

void writeField(json& out, const HostState& state,
                const detail::Field<HostState, std::vector<std::shared_ptr<PopupMenu>>>& field)
{
    out[field.name] = menuBarOf(state);
}

template <class Struct> json objectOf(const Struct& value)
{
    json out = json::object();
    detail::forEachField(detail::Fields<Struct>::list,
                         [&](const auto& field) { writeField(out, value, field); });
    return out;
}

}  // namespace

nlohmann::json stateToJson(const HostState& state)
{
    return objectOf(state);
}

}  // namespace sim

// Deep comparison of the model: nodes compare by content, whatever their identities.
#include "sim/model.h"

#include "model/fields.h"
#include "model/menu_places.h"

#include <algorithm>

namespace sim {
namespace {

template <class Node> bool sameNode(const std::shared_ptr<Node>& a, const std::shared_ptr<Node>& b)
{
    return a && b ? *a == *b : !a && !b;
}

template <class Nodes> bool sameNodes(const Nodes& a, const Nodes& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      sameNode<typename Nodes::value_type::element_type>);
}

template <class Node> long positionOf(const std::vector<std::shared_ptr<Node>>& nodes, const Node* node)
{
    for (size_t i = 0; i < nodes.size(); ++i)
        if (nodes[i].get() == node)
            return static_cast<long>(i);
    return -1;
}

// One of a collection's nodes compares by its position; a node outside it by its content.
template <class Node>
bool sameMember(const std::vector<std::shared_ptr<Node>>& aNodes, const std::shared_ptr<Node>& a,
                const std::vector<std::shared_ptr<Node>>& bNodes, const std::shared_ptr<Node>& b)
{
    if (!a || !b)
        return !a && !b;
    const long position = positionOf(aNodes, a.get());
    if (position != positionOf(bNodes, b.get()))
        return false;
    return position >= 0 || *a == *b;
}

// A menu of a group compares by its place; a menu outside every group by its content.
bool sameMenuBar(const HostState& a, const HostState& b)
{
    if (a.menuBar.size() != b.menuBar.size())
        return false;
    const auto aPlaces = detail::placesOfGroupMenus(a);
    const auto bPlaces = detail::placesOfGroupMenus(b);
    for (size_t i = 0; i < a.menuBar.size(); ++i) {
        const auto aPlace = a.menuBar[i] ? aPlaces.find(a.menuBar[i].get()) : aPlaces.end();
        const auto bPlace = b.menuBar[i] ? bPlaces.find(b.menuBar[i].get()) : bPlaces.end();
        if ((aPlace == aPlaces.end()) != (bPlace == bPlaces.end()))
            return false;
        if (aPlace == aPlaces.end()) {
            if (!sameNode(a.menuBar[i], b.menuBar[i]))
                return false;
        }
        else if (aPlace->second.group != bPlace->second.group || aPlace->second.menu != bPlace->second.menu) {
            return false;
        }
    }
    return true;
}

// A field compares by value; a node by its content, whatever its identity.
template <class Value> bool sameValue(const Value& a, const Value& b) { return a == b; }

template <class Node> bool sameValue(const std::shared_ptr<Node>& a, const std::shared_ptr<Node>& b)
{
    return sameNode(a, b);
}

template <class Node>
bool sameValue(const std::vector<std::shared_ptr<Node>>& a, const std::vector<std::shared_ptr<Node>>& b)
{
    return sameNodes(a, b);
}

template <class Node>
bool sameValue(const GapBuffer<std::shared_ptr<Node>>& a, const GapBuffer<std::shared_ptr<Node>>& b)
{
    return sameNodes(a, b);
}

template <class Key, class Node>
bool sameValue(const std::map<Key, std::shared_ptr<Node>>& a, const std::map<Key, std::shared_ptr<Node>>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& left, const auto& right) {
        return left.first == right.first && sameNode(left.second, right.second);
    });
}

template <class Struct, class Value>
bool sameField(const Struct& a, const Struct& b, const detail::Field<Struct, Value>& field)
{
    return sameValue(a.*field.member, b.*field.member);
}

template <class Struct, class Value>
bool sameField(const Struct& a, const Struct& b, const detail::SparseField<Struct, Value>& field)
{
    return sameValue(a.*field.member, b.*field.member);
}

template <class Struct>
bool sameField(const Struct& a, const Struct& b, const detail::PointField<Struct>& field)
{
    return a.*field.x == b.*field.x && a.*field.y == b.*field.y;
}

template <class Struct, class... Fields>
bool sameField(const Struct& a, const Struct& b, const detail::FieldGroup<Struct, Fields...>& group)
{
    return detail::allFields(group.fields, [&](const auto& field) { return sameField(a, b, field); });
}

// Relations compare by where their node sits.
bool sameField(const Document& a, const Document& b, const detail::Field<Document, std::shared_ptr<Layout>>&)
{
    return sameMember(a.layouts, a.activeLayout, b.layouts, b.activeLayout);
}

bool sameField(const HostState& a, const HostState& b,
               const detail::Field<HostState, std::shared_ptr<Document>>&)
{
    return sameMember(a.documents, a.activeDocument, b.documents, b.activeDocument);
}

bool sameField(const HostState& a, const HostState& b,
               const detail::Field<HostState, std::vector<std::shared_ptr<PopupMenu>>>&)
{
    return sameMenuBar(a, b);
}

template <class Struct> bool sameFields(const Struct& a, const Struct& b)
{
    return detail::allFields(detail::Fields<Struct>::list,
                             [&](const auto& field) { return sameField(a, b, field); });
}

}  // namespace

bool PopupMenuItem::operator==(const PopupMenuItem& other) const { return sameFields(*this, other); }
bool PopupMenu::operator==(const PopupMenu& other) const { return sameFields(*this, other); }
bool ToolbarButton::operator==(const ToolbarButton& other) const { return sameFields(*this, other); }
bool Toolbar::operator==(const Toolbar& other) const { return sameFields(*this, other); }
bool MenuGroup::operator==(const MenuGroup& other) const { return sameFields(*this, other); }
bool PlotWindow::operator==(const PlotWindow& other) const { return sameFields(*this, other); }
bool Layout::operator==(const Layout& other) const { return sameFields(*this, other); }
bool PlotSettings::operator==(const PlotSettings& other) const { return sameFields(*this, other); }
bool Document::operator==(const Document& other) const { return sameFields(*this, other); }
bool DrawingDemands::operator==(const DrawingDemands& other) const { return sameFields(*this, other); }
bool PlotJob::operator==(const PlotJob& other) const { return sameFields(*this, other); }
bool ZoomRequest::operator==(const ZoomRequest& other) const { return sameFields(*this, other); }
bool PreferencesFiles::operator==(const PreferencesFiles& other) const { return sameFields(*this, other); }
bool HostBehaviour::operator==(const HostBehaviour& other) const { return sameFields(*this, other); }
bool HostState::operator==(const HostState& other) const { return sameFields(*this, other); }

}  // namespace sim

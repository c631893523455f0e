// A host object that is a collection (the menu groups, a group's menus, the menu bar, a group's
// toolbars, a toolbar's buttons, a menu's items, the open drawings): its Count, its Item by
// position or by name, and its _NewEnum, which For Each walks. Each collection gives what sets it
// apart: the members of its interface, the words of its failures, its nodes and the object made
// for a member.
#pragma once

#include "calls/arguments_in.h"
#include "model/namings.h"
#include "objects/enumeration.h"
#include "objects/host_object.h"
#include "objects/places.h"

#include <memory>
#include <vector>

namespace sim::detail {

// How one collection's calls are named and what its Item calls a member in a failure.
struct CollectionTerms {
    const members::Member& count;
    const members::Member& item;
    const members::Member& enumeration;
    VARTYPE positionType;        // the variant type documented for a position
    const wchar_t* memberWords;  // what a member is called in a failure: "menu group"
};

// `Member` is the interface of the objects made for the members, `Node` what the host keeps for one
// in a `NodeList`; `Naming` (model/namings.h) says which names a member answers to when Item is
// given a name, which the host's index of those names finds at once.
template <class Interface, class Member, class Node, class Naming,
          class NodeList = std::vector<std::shared_ptr<Node>>>
class HostCollection : public HostObject<Interface>, public EnumerableCollection {
public:
    HRESULT STDMETHODCALLTYPE get_Count(LONG* count) override
    {
        Call call = this->begin(m_terms.count);
        if (!call.accepts(count))
            return call.status();
        return call.giveValue(count, static_cast<LONG>(memberCount()));
    }

    HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, Member** member) override
    {
        Call call = this->begin(m_terms.item, {Arg::variant(index)});
        if (!call.accepts(member))
            return call.status();
        size_t position = 0;
        if (!findPosition(call, index, m_terms.positionType, nodes(), m_terms.memberWords,
                          firstNamed<Naming>(this->core(), nodes(), nodesOwner()), position))
            return call.status();
        return call.giveObject(member, [&] { return memberAt(position); });
    }

    // The enumeration holds a reference on this collection, which it walks.
    HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumeration) override
    {
        Call call = this->begin(m_terms.enumeration);
        if (!call.accepts(enumeration))
            return call.status();
        return call.giveObject(enumeration, [&] {
            return newEnumeration(this->sharedCore(), static_cast<Interface*>(this), *this, *this);
        });
    }

    size_t memberCount() const override { return nodes().size(); }
    IDispatch* newMember(size_t position) override { return memberAt(position); }

protected:
    using Nodes = NodeList;
    using Terms = CollectionTerms;

    HostCollection(std::shared_ptr<HostCore> core, Terms terms)
        : HostObject<Interface>(std::move(core)), m_terms(std::move(terms))
    {
    }

    // The collection's nodes as they are at the moment of asking.
    virtual const Nodes& nodes() const = 0;
    // The node that holds nodes(), which keys the index of their names; null for the state's own.
    virtual std::shared_ptr<const void> nodesOwner() const { return nullptr; }
    // A new object, with a reference for the caller, for `node`, one of nodes(); null where the
    // host gives no object.
    virtual Member* newObjectFor(const std::shared_ptr<Node>& node) = 0;

private:
    Member* memberAt(size_t position)
    {
        const Nodes& members = nodes();
        this->core().seats.remember(members, position);
        return newObjectFor(members[position]);
    }

    const Terms m_terms;
};

}  // namespace sim::detail

// One popup menu: a group's menu or a submenu.
#include "objects/collection.h"
#include "objects/objects.h"

namespace sim::detail {
namespace {

class PopupMenuObject final : public HostCollection<HostPopupMenu, HostPopupMenuItem, PopupMenuItem,
                                                    ItemLabel, decltype(PopupMenu::items)> {
public:
    PopupMenuObject(const CorePtr& core, MenuPlace place)
        : HostCollection(core, {members::HostPopupMenu::get_Count, members::HostPopupMenu::Item,
                                members::HostPopupMenu::_NewEnum, kMenuPosition, L"menu item"}),
          m_place(std::move(place))
    {
    }

    std::string journalName() const override { return "HostPopupMenu " + nameOf(m_place); }
    std::wstring goneReason() const override { return detail::goneReason(core(), m_place); }

    HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) override
    {
        return give(members::HostPopupMenu::get_Name, name, [&] { return m_place.menu->name; });
    }

    // A submenu's name is the label of the item that leads to it.
    HRESULT STDMETHODCALLTYPE put_Name(BSTR name) override
    {
        Call call = begin(members::HostPopupMenu::put_Name, {Arg::text(name)});
        if (call.refused())
            return call.status();
        if (SysStringLen(name) == 0)
            return call.fail(E_INVALIDARG, L"a menu needs a name");
        m_place.menu->name = text::fromBstr(name);
        if (!m_place.submenuItems.empty())
            m_place.submenuItems.back()->label = m_place.menu->name;
        renamedInIndexes();
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE get_TagString(BSTR* tag) override
    {
        return give(members::HostPopupMenu::get_TagString, tag, [&] { return m_place.menu->tag; });
    }

    HRESULT STDMETHODCALLTYPE get_OnMenuBar(VARIANT_BOOL* onMenuBar) override
    {
        return give(members::HostPopupMenu::get_OnMenuBar, onMenuBar,
                    [&] { return isOnMenuBar() ? VARIANT_TRUE : VARIANT_FALSE; });
    }

    HRESULT STDMETHODCALLTYPE raw_AddMenuItem(VARIANT index, BSTR label, BSTR macro,
                                              HostPopupMenuItem** item) override
    {
        Call call = begin(members::HostPopupMenu::AddMenuItem,
                          {Arg::variant(index), Arg::text(label), Arg::text(macro)});
        if (!call.accepts(item))
            return call.status();
        auto added = std::make_shared<PopupMenuItem>();
        added->type = ItemType::command;
        added->label = text::fromBstr(label);
        added->macro = text::fromBstr(macro);
        return addItem(
            call, index, L"menu item", added, [&] { return newPopupMenuItem(sharedCore(), m_place, added); },
            item);
    }

    HRESULT STDMETHODCALLTYPE raw_AddSubMenu(VARIANT index, BSTR label, HostPopupMenu** subMenu) override
    {
        Call call = begin(members::HostPopupMenu::AddSubMenu, {Arg::variant(index), Arg::text(label)});
        if (!call.accepts(subMenu))
            return call.status();
        if (SysStringLen(label) == 0)
            return call.fail(E_INVALIDARG, L"a submenu needs a label");
        auto added = std::make_shared<PopupMenuItem>();
        added->type = ItemType::submenu;
        added->label = text::fromBstr(label);
        added->subMenu = std::make_shared<PopupMenu>();
        added->subMenu->name = added->label;
        return addItem(
            call, index, L"submenu", added, [&] { return newPopupMenu(sharedCore(), m_place.below(added)); },
            subMenu);
    }

    HRESULT STDMETHODCALLTYPE raw_AddSeparator(VARIANT index, HostPopupMenuItem** item) override
    {
        Call call = begin(members::HostPopupMenu::AddSeparator, {Arg::variant(index)});
        if (!call.accepts(item))
            return call.status();
        auto added = std::make_shared<PopupMenuItem>();
        added->type = ItemType::separator;
        return addItem(
            call, index, L"separator", added, [&] { return newPopupMenuItem(sharedCore(), m_place, added); },
            item);
    }

    HRESULT STDMETHODCALLTYPE raw_InsertInMenuBar(VARIANT position) override
    {
        Call call = begin(members::HostPopupMenu::InsertInMenuBar, {Arg::variant(position)});
        if (call.refused())
            return call.status();
        if (!m_place.submenuItems.empty())
            return call.fail(E_FAIL, L"submenu '" + m_place.menu->name + L"' cannot go on the menu bar");
        if (isOnMenuBar())
            return call.fail(E_FAIL, L"menu '" + m_place.menu->name + L"' is already on the menu bar");
        auto& bar = state().menuBar;
        size_t at = 0;
        if (!findInsertion(call, position, kMenuPosition, bar.size(), state().behaviour.menuIndexBeyondEnd,
                           L"menu to the menu bar", at))
            return call.status();
        bar.insert(bar.begin() + static_cast<std::ptrdiff_t>(at), m_place.menu);
        core().seats.remember(bar, at);
        core().names.added(core().seats, bar, at);
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE raw_RemoveFromMenuBar() override
    {
        Call call = begin(members::HostPopupMenu::RemoveFromMenuBar);
        if (call.refused())
            return call.status();
        if (!isOnMenuBar())
            return call.fail(E_FAIL, L"menu '" + m_place.menu->name + L"' is not on the menu bar");
        core().names.removed(state().menuBar, m_place.menu.get());
        core().seats.remove(state().menuBar, m_place.menu.get());
        return call.succeed();
    }

protected:
    const char* interfaceName() const override { return "HostPopupMenu"; }
    const Nodes& nodes() const override { return m_place.menu->items; }
    std::shared_ptr<const void> nodesOwner() const override { return m_place.menu; }
    HostPopupMenuItem* newObjectFor(const std::shared_ptr<PopupMenuItem>& item) override
    {
        return newPopupMenuItem(sharedCore(), m_place, item);
    }

private:
    bool isOnMenuBar() const
    {
        return m_place.submenuItems.empty() &&
               core().names.holds<MenuName>(core().seats, state().menuBar, nullptr, m_place.menu.get());
    }

    // A renamed menu is asked for by its new name wherever it stands: on the menu bar, in its
    // group, or as the item that leads to it.
    void renamedInIndexes()
    {
        NameIndex& names = core().names;
        const auto& leading = m_place.submenuItems;
        names.renamed(core().seats, state().menuBar, m_place.menu.get());
        if (leading.empty() && m_place.group)
            names.renamed(core().seats, m_place.group->menus, m_place.menu.get());
        if (leading.empty())
            return;
        const PopupMenu& parent = leading.size() > 1 ? *leading[leading.size() - 2]->subMenu : *m_place.top;
        names.renamed(core().seats, parent.items, leading.back().get());
    }

    // Inserts before the item now at the index (the count appends) and gives the new object.
    template <class Interface, class Make>
    HRESULT addItem(Call& call, const VARIANT& index, const std::wstring& what,
                    const std::shared_ptr<PopupMenuItem>& added, Make make, Interface** output)
    {
        auto& items = m_place.menu->items;
        size_t at = 0;
        if (!findInsertion(call, index, kMenuPosition, items.size(), state().behaviour.menuIndexBeyondEnd,
                           what, at))
            return call.status();
        if (call.givesNull())
            return call.succeed();
        added->enabled = state().behaviour.newMenuItemsEnabled;
        items.insert(items.begin() + static_cast<std::ptrdiff_t>(at), added);
        core().seats.remember(items, at);
        core().names.added(core().seats, items, at);
        return call.giveObject(output, make);
    }

    MenuPlace m_place;
};

}  // namespace

HostPopupMenu* newPopupMenu(const CorePtr& core, const MenuPlace& place)
{
    return place.menu ? new PopupMenuObject(core, place) : nullptr;
}

}  // namespace sim::detail

// A menu group's popup menus, and the menu bar.
#include "objects/collection.h"
#include "objects/objects.h"

namespace sim::detail {
namespace {

class PopupMenusObject final : public HostCollection<HostPopupMenus, HostPopupMenu, PopupMenu, MenuName> {
public:
    PopupMenusObject(const CorePtr& core, std::shared_ptr<MenuGroup> group)
        : HostCollection(core, {members::HostPopupMenus::get_Count, members::HostPopupMenus::Item,
                                members::HostPopupMenus::_NewEnum, kMenuPosition, L"menu"}),
          m_group(std::move(group))
    {
    }

    std::string journalName() const override { return "HostPopupMenus " + nameOf(*m_group); }
    std::wstring goneReason() const override { return detail::goneReason(core(), *m_group); }

    // A new menu goes after the group's menus, off the menu bar; names need not be unique.
    HRESULT STDMETHODCALLTYPE raw_AddMenu(BSTR name, HostPopupMenu** menu) override
    {
        Call call = begin(members::HostPopupMenus::AddMenu, {Arg::text(name)});
        if (!call.accepts(menu))
            return call.status();
        if (SysStringLen(name) == 0)
            return call.fail(E_INVALIDARG, L"a new menu needs a name");
        if (call.givesNull())
            return call.succeed();
        auto added = std::make_shared<PopupMenu>();
        added->name = text::fromBstr(name);
        m_group->menus.push_back(added);
        core().seats.remember(m_group->menus, m_group->menus.size() - 1);
        core().names.added(core().seats, m_group->menus, m_group->menus.size() - 1);
        core().menuOwners.added(m_group, *added);
        return call.giveObject(menu, [&] {
            return newPopupMenu(sharedCore(), MenuPlace{m_group, added, {}, added});
        });
    }

protected:
    const char* interfaceName() const override { return "HostPopupMenus"; }
    const Nodes& nodes() const override { return m_group->menus; }
    std::shared_ptr<const void> nodesOwner() const override { return m_group; }
    HostPopupMenu* newObjectFor(const std::shared_ptr<PopupMenu>& menu) override
    {
        return newPopupMenu(sharedCore(), MenuPlace{m_group, menu, {}, menu});
    }

private:
    std::shared_ptr<MenuGroup> m_group;
};

class MenuBarObject final : public HostCollection<HostMenuBar, HostPopupMenu, PopupMenu, MenuName> {
public:
    explicit MenuBarObject(const CorePtr& core)
        : HostCollection(core, {members::HostMenuBar::get_Count, members::HostMenuBar::Item,
                                members::HostMenuBar::_NewEnum, kMenuPosition, L"menu on the menu bar"})
    {
    }

    std::string journalName() const override { return "HostMenuBar"; }

protected:
    const char* interfaceName() const override { return "HostMenuBar"; }
    const Nodes& nodes() const override { return state().menuBar; }
    HostPopupMenu* newObjectFor(const std::shared_ptr<PopupMenu>& menu) override
    {
        return menu ? newPopupMenu(sharedCore(), placeOfTopMenu(core(), menu)) : nullptr;
    }
};

}  // namespace

HostPopupMenus* newPopupMenus(const CorePtr& core, const std::shared_ptr<MenuGroup>& group)
{
    return group ? new PopupMenusObject(core, group) : nullptr;
}

HostMenuBar* newMenuBar(const CorePtr& core)
{
    return new MenuBarObject(core);
}

}  // namespace sim::detail

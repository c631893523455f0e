// A menu group's popup menus, and the menu bar.
#include "calls/arguments_in.h"
#include "objects/host_object.h"
#include "objects/objects.h"

namespace sim::detail {
namespace {

class PopupMenusObject final : public HostObject<HostPopupMenus>, public EnumerableCollection {
public:
    PopupMenusObject(const CorePtr& core, std::shared_ptr<MenuGroup> group)
        : HostObject(core), m_group(std::move(group))
    {
    }

    std::string journalName() const override { return "HostPopupMenus " + nameOf(*m_group); }
    std::wstring goneReason() const override { return detail::goneReason(core(), *m_group); }

    HRESULT STDMETHODCALLTYPE get_Count(LONG* count) override
    {
        Call call = begin(members::HostPopupMenus::get_Count);
        if (!call.accepts(count))
            return call.status();
        return call.giveValue(count, static_cast<LONG>(memberCount()));
    }

    HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, HostPopupMenu** menu) override
    {
        Call call = begin(members::HostPopupMenus::Item, {Arg::variant(index)});
        if (!call.accepts(menu))
            return call.status();
        size_t position = 0;
        if (!findPosition(call, index, kMenuPosition, m_group->menus, L"menu",
                          firstNamed<MenuName>(core(), m_group->menus, m_group), position))
            return call.status();
        return call.giveObject(menu, [&] { return memberAt(position); });
    }

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

    HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumeration) override
    {
        return giveEnumeration(members::HostPopupMenus::_NewEnum, *this, enumeration);
    }

    size_t memberCount() const override { return m_group->menus.size(); }
    IDispatch* newMember(size_t position) override { return memberAt(position); }

protected:
    const char* interfaceName() const override { return "HostPopupMenus"; }

private:
    HostPopupMenu* memberAt(size_t position)
    {
        core().seats.remember(m_group->menus, position);
        const auto& found = m_group->menus[position];
        return newPopupMenu(sharedCore(), MenuPlace{m_group, found, {}, found});
    }

    std::shared_ptr<MenuGroup> m_group;
};

class MenuBarObject final : public HostObject<HostMenuBar>, public EnumerableCollection {
public:
    explicit MenuBarObject(const CorePtr& core) : HostObject(core) {}

    std::string journalName() const override { return "HostMenuBar"; }

    HRESULT STDMETHODCALLTYPE get_Count(LONG* count) override
    {
        Call call = begin(members::HostMenuBar::get_Count);
        if (!call.accepts(count))
            return call.status();
        return call.giveValue(count, static_cast<LONG>(memberCount()));
    }

    HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, HostPopupMenu** menu) override
    {
        Call call = begin(members::HostMenuBar::Item, {Arg::variant(index)});
        if (!call.accepts(menu))
            return call.status();
        size_t position = 0;
        if (!findPosition(call, index, kMenuPosition, state().menuBar, L"menu on the menu bar",
                          firstNamed<MenuName>(core(), state().menuBar), position))
            return call.status();
        return call.giveObject(menu, [&] { return memberAt(position); });
    }

    HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumeration) override
    {
        return giveEnumeration(members::HostMenuBar::_NewEnum, *this, enumeration);
    }

    size_t memberCount() const override { return state().menuBar.size(); }
    IDispatch* newMember(size_t position) override { return memberAt(position); }

protected:
    const char* interfaceName() const override { return "HostMenuBar"; }

private:
    HostPopupMenu* memberAt(size_t position)
    {
        core().seats.remember(state().menuBar, position);
        const auto& found = state().menuBar[position];
        return found ? newPopupMenu(sharedCore(), placeOfTopMenu(core(), found)) : nullptr;
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

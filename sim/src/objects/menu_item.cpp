// One item of a popup menu: a command, a separator or a submenu.
#include "calls/arguments_in.h"
#include "objects/host_object.h"
#include "objects/objects.h"

namespace sim::detail {
namespace {

class PopupMenuItemObject final : public HostObject<HostPopupMenuItem> {
public:
    PopupMenuItemObject(const CorePtr& core, MenuPlace menu, std::shared_ptr<PopupMenuItem> item)
        : HostObject(core), m_menu(std::move(menu)), m_item(std::move(item))
    {
    }

    std::string journalName() const override
    {
        return "HostPopupMenuItem " + nameOf(core(), m_menu, *m_item);
    }
    std::wstring goneReason() const override { return detail::goneReason(core(), m_menu, *m_item); }

    HRESULT STDMETHODCALLTYPE get_Label(BSTR* label) override
    {
        return give(members::HostPopupMenuItem::get_Label, label, [&] { return m_item->label; });
    }

    // A submenu item's label is its submenu's name.
    HRESULT STDMETHODCALLTYPE put_Label(BSTR label) override
    {
        Call call = begin(members::HostPopupMenuItem::put_Label, {Arg::text(label)});
        if (call.refused())
            return call.status();
        if (m_item->type == ItemType::separator)
            return call.fail(E_FAIL, L"a separator has no label");
        m_item->label = text::fromBstr(label);
        if (m_item->subMenu)
            m_item->subMenu->name = m_item->label;
        core().names.renamed(core().seats, m_menu.menu->items, m_item.get());
        if (m_item->subMenu)
            core().names.renamed(core().seats, state().menuBar, m_item->subMenu.get());
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE get_Macro(BSTR* macro) override
    {
        return give(members::HostPopupMenuItem::get_Macro, macro, [&] { return m_item->macro; });
    }

    HRESULT STDMETHODCALLTYPE get_Type(LONG* type) override
    {
        return give(members::HostPopupMenuItem::get_Type, type,
                    [&] { return static_cast<LONG>(m_item->type); });
    }

    HRESULT STDMETHODCALLTYPE get_SubMenu(HostPopupMenu** subMenu) override
    {
        Call call = begin(members::HostPopupMenuItem::get_SubMenu);
        if (!call.accepts(subMenu))
            return call.status();
        if (m_item->type != ItemType::submenu)
            return call.fail(E_FAIL, L"menu item '" + m_item->label + L"' is not a submenu");
        return call.giveObject(subMenu, [&] { return newPopupMenu(sharedCore(), m_menu.below(m_item)); });
    }

    HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL* enabled) override
    {
        return give(members::HostPopupMenuItem::get_Enabled, enabled,
                    [&] { return m_item->enabled ? VARIANT_TRUE : VARIANT_FALSE; });
    }

    HRESULT STDMETHODCALLTYPE put_Enabled(VARIANT_BOOL enabled) override
    {
        Call call = begin(members::HostPopupMenuItem::put_Enabled, {Arg::flag(enabled)});
        if (call.refused() || !readFlag(call, enabled, L"enabled flag", m_item->enabled))
            return call.status();
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE raw_Delete() override
    {
        Call call = begin(members::HostPopupMenuItem::Delete);
        if (call.refused())
            return call.status();
        core().names.removed(m_menu.menu->items, m_item.get());
        core().seats.remove(m_menu.menu->items, m_item.get());
        return call.succeed();
    }

protected:
    const char* interfaceName() const override { return "HostPopupMenuItem"; }

private:
    MenuPlace m_menu;
    std::shared_ptr<PopupMenuItem> m_item;
};

}  // namespace

HostPopupMenuItem* newPopupMenuItem(const CorePtr& core, const MenuPlace& place,
                                    const std::shared_ptr<PopupMenuItem>& item)
{
    return item ? new PopupMenuItemObject(core, place, item) : nullptr;
}

}  // namespace sim::detail

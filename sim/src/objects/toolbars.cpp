// A menu group's toolbars, and one toolbar.
#include "calls/arguments_in.h"
#include "objects/host_object.h"
#include "objects/objects.h"

namespace sim::detail {
namespace {

class ToolbarsObject final : public HostObject<HostToolbars>, public EnumerableCollection {
public:
    ToolbarsObject(const CorePtr& core, std::shared_ptr<MenuGroup> group)
        : HostObject(core), m_group(std::move(group))
    {
    }

    std::string journalName() const override { return "HostToolbars " + nameOf(*m_group); }
    std::wstring goneReason() const override { return detail::goneReason(core(), *m_group); }

    HRESULT STDMETHODCALLTYPE get_Count(LONG* count) override
    {
        Call call = begin(members::HostToolbars::get_Count);
        if (!call.accepts(count))
            return call.status();
        return call.giveValue(count, static_cast<LONG>(memberCount()));
    }

    HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, HostToolbar** toolbar) override
    {
        Call call = begin(members::HostToolbars::Item, {Arg::variant(index)});
        if (!call.accepts(toolbar))
            return call.status();
        const auto& toolbars = m_group->toolbars;
        size_t position = 0;
        if (!findPosition(call, index, kToolbarPosition, toolbars, L"toolbar",
                          firstNamed<ToolbarName>(core(), toolbars, m_group), position))
            return call.status();
        return call.giveObject(toolbar, [&] { return memberAt(position); });
    }

    HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumeration) override
    {
        return giveEnumeration(members::HostToolbars::_NewEnum, *this, enumeration);
    }

    size_t memberCount() const override { return m_group->toolbars.size(); }
    IDispatch* newMember(size_t position) override { return memberAt(position); }

protected:
    const char* interfaceName() const override { return "HostToolbars"; }

private:
    HostToolbar* memberAt(size_t position)
    {
        core().seats.remember(m_group->toolbars, position);
        return newToolbar(sharedCore(), ToolbarPlace{m_group, m_group->toolbars[position]});
    }

    std::shared_ptr<MenuGroup> m_group;
};

class ToolbarObject final : public HostObject<HostToolbar>, public EnumerableCollection {
public:
    ToolbarObject(const CorePtr& core, ToolbarPlace place) : HostObject(core), m_place(std::move(place)) {}

    std::string journalName() const override { return "HostToolbar " + nameOf(core(), m_place); }
    std::wstring goneReason() const override { return detail::goneReason(core(), m_place); }

    HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) override
    {
        Call call = begin(members::HostToolbar::get_Name);
        if (!call.accepts(name))
            return call.status();
        return call.giveText(name, toolbar().name);
    }

    HRESULT STDMETHODCALLTYPE get_TagString(BSTR* tag) override
    {
        Call call = begin(members::HostToolbar::get_TagString);
        if (!call.accepts(tag))
            return call.status();
        return call.giveText(tag, toolbar().tag);
    }

    HRESULT STDMETHODCALLTYPE get_Visible(VARIANT_BOOL* visible) override
    {
        Call call = begin(members::HostToolbar::get_Visible);
        if (!call.accepts(visible))
            return call.status();
        return call.giveValue(visible, toolbar().visible ? VARIANT_TRUE : VARIANT_FALSE);
    }

    HRESULT STDMETHODCALLTYPE put_Visible(VARIANT_BOOL visible) override
    {
        Call call = begin(members::HostToolbar::put_Visible, {Arg::flag(visible)});
        if (call.refused() || !readFlag(call, visible, L"visibility", toolbar().visible))
            return call.status();
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE get_DockStatus(LONG* dockStatus) override
    {
        return readPlacement(members::HostToolbar::get_DockStatus, &Toolbar::dockStatus, dockStatus);
    }
    HRESULT STDMETHODCALLTYPE get_Left(LONG* left) override
    {
        return readPlacement(members::HostToolbar::get_Left, &Toolbar::left, left);
    }
    HRESULT STDMETHODCALLTYPE get_Top(LONG* top) override
    {
        return readPlacement(members::HostToolbar::get_Top, &Toolbar::top, top);
    }
    HRESULT STDMETHODCALLTYPE get_FloatingRows(LONG* rows) override
    {
        return readPlacement(members::HostToolbar::get_FloatingRows, &Toolbar::floatingRows, rows);
    }

    // Docking and floating place the toolbar; they leave its visibility alone.
    HRESULT STDMETHODCALLTYPE raw_Dock(LONG side) override
    {
        Call call = begin(members::HostToolbar::Dock, {Arg::number(side)});
        if (call.refused())
            return call.status();
        if (side < 0 || side >= kDockFloating)
            return call.fail(E_INVALIDARG, L"dock side " + std::to_wstring(side) +
                                               L" is not one of 0 (top), 1 (bottom), 2 (left), 3 (right)");
        toolbar().dockStatus = side;
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE raw_Float(LONG top, LONG left, LONG rows) override
    {
        Call call =
            begin(members::HostToolbar::Float, {Arg::number(top), Arg::number(left), Arg::number(rows)});
        if (call.refused())
            return call.status();
        if (rows < 1)
            return call.fail(E_INVALIDARG,
                             L"a floating toolbar has at least 1 row, not " + std::to_wstring(rows));
        Toolbar& placed = toolbar();
        placed.dockStatus = kDockFloating;
        placed.top = top;
        placed.left = left;
        placed.floatingRows = rows;
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE get_Count(LONG* count) override
    {
        Call call = begin(members::HostToolbar::get_Count);
        if (!call.accepts(count))
            return call.status();
        return call.giveValue(count, static_cast<LONG>(memberCount()));
    }

    HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, HostToolbarItem** button) override
    {
        Call call = begin(members::HostToolbar::Item, {Arg::variant(index)});
        if (!call.accepts(button))
            return call.status();
        const auto& buttons = toolbar().buttons;
        size_t position = 0;
        if (!findPosition(call, index, kToolbarPosition, buttons, L"toolbar button",
                          firstNamed<ButtonName>(core(), buttons, m_place.toolbar), position))
            return call.status();
        return call.giveObject(button, [&] { return memberAt(position); });
    }

    HRESULT STDMETHODCALLTYPE raw_AddButton(VARIANT index, BSTR name, BSTR helpString, BSTR macro,
                                            HostToolbarItem** button) override
    {
        Call call = begin(members::HostToolbar::AddButton,
                          {Arg::variant(index), Arg::text(name), Arg::text(helpString), Arg::text(macro)});
        if (!call.accepts(button))
            return call.status();
        if (SysStringLen(name) == 0)
            return call.fail(E_INVALIDARG, L"a toolbar button needs a name");
        auto& buttons = toolbar().buttons;
        size_t at = 0;
        if (!findInsertion(call, index, kToolbarPosition, buttons.size(), BeyondEnd::refuse,
                           L"toolbar button", at))
            return call.status();
        if (call.givesNull())
            return call.succeed();
        auto added = std::make_shared<ToolbarButton>();
        added->name = text::fromBstr(name);
        added->helpString = text::fromBstr(helpString);
        added->macro = text::fromBstr(macro);
        buttons.insert(buttons.begin() + static_cast<std::ptrdiff_t>(at), added);
        core().seats.remember(buttons, at);
        core().names.added(core().seats, buttons, at);
        return call.giveObject(button, [&] { return newToolbarItem(sharedCore(), m_place, added); });
    }

    HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumeration) override
    {
        return giveEnumeration(members::HostToolbar::_NewEnum, *this, enumeration);
    }

    size_t memberCount() const override { return toolbar().buttons.size(); }
    IDispatch* newMember(size_t position) override { return memberAt(position); }

protected:
    const char* interfaceName() const override { return "HostToolbar"; }

private:
    HostToolbarItem* memberAt(size_t position)
    {
        const auto& buttons = toolbar().buttons;
        core().seats.remember(buttons, position);
        return newToolbarItem(sharedCore(), m_place, buttons[position]);
    }

    Toolbar& toolbar() const { return *m_place.toolbar; }

    HRESULT readPlacement(const members::Member& method, long Toolbar::*field, LONG* value)
    {
        Call call = begin(method);
        if (!call.accepts(value))
            return call.status();
        return call.giveValue(value, static_cast<LONG>(toolbar().*field));
    }

    ToolbarPlace m_place;
};

}  // namespace

HostToolbars* newToolbars(const CorePtr& core, const std::shared_ptr<MenuGroup>& group)
{
    return group ? new ToolbarsObject(core, group) : nullptr;
}

HostToolbar* newToolbar(const CorePtr& core, const ToolbarPlace& place)
{
    return place.toolbar ? new ToolbarObject(core, place) : nullptr;
}

}  // namespace sim::detail

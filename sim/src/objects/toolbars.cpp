// A menu group's toolbars, and one toolbar.
#include "objects/collection.h"
#include "objects/objects.h"

namespace sim::detail {
namespace {

class ToolbarsObject final : public HostCollection<HostToolbars, HostToolbar, Toolbar, ToolbarName> {
public:
    ToolbarsObject(const CorePtr& core, std::shared_ptr<MenuGroup> group)
        : HostCollection(core, {members::HostToolbars::get_Count, members::HostToolbars::Item,
                                members::HostToolbars::_NewEnum, kToolbarPosition, L"toolbar"}),
          m_group(std::move(group))
    {
    }

    std::string journalName() const override { return "HostToolbars " + nameOf(*m_group); }
    std::wstring goneReason() const override { return detail::goneReason(core(), *m_group); }

protected:
    const char* interfaceName() const override { return "HostToolbars"; }
    const Nodes& nodes() const override { return m_group->toolbars; }
    std::shared_ptr<const void> nodesOwner() const override { return m_group; }
    HostToolbar* newObjectFor(const std::shared_ptr<Toolbar>& toolbar) override
    {
        return newToolbar(sharedCore(), ToolbarPlace{m_group, toolbar});
    }

private:
    std::shared_ptr<MenuGroup> m_group;
};

class ToolbarObject final : public HostCollection<HostToolbar, HostToolbarItem, ToolbarButton, ButtonName> {
public:
    ToolbarObject(const CorePtr& core, ToolbarPlace place)
        : HostCollection(core, {members::HostToolbar::get_Count, members::HostToolbar::Item,
                                members::HostToolbar::_NewEnum, kToolbarPosition, L"toolbar button"}),
          m_place(std::move(place))
    {
    }

    std::string journalName() const override { return "HostToolbar " + nameOf(core(), m_place); }
    std::wstring goneReason() const override { return detail::goneReason(core(), m_place); }

    HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) override
    {
        return give(members::HostToolbar::get_Name, name, [&] { return toolbar().name; });
    }

    HRESULT STDMETHODCALLTYPE get_TagString(BSTR* tag) override
    {
        return give(members::HostToolbar::get_TagString, tag, [&] { return toolbar().tag; });
    }

    HRESULT STDMETHODCALLTYPE get_Visible(VARIANT_BOOL* visible) override
    {
        return give(members::HostToolbar::get_Visible, visible,
                    [&] { return toolbar().visible ? VARIANT_TRUE : VARIANT_FALSE; });
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

protected:
    const char* interfaceName() const override { return "HostToolbar"; }
    const Nodes& nodes() const override { return toolbar().buttons; }
    std::shared_ptr<const void> nodesOwner() const override { return m_place.toolbar; }
    HostToolbarItem* newObjectFor(const std::shared_ptr<ToolbarButton>& button) override
    {
        return newToolbarItem(sharedCore(), m_place, button);
    }

private:
    Toolbar& toolbar() const { return *m_place.toolbar; }

    HRESULT readPlacement(const members::Member& method, long Toolbar::*field, LONG* value)
    {
        return give(method, value, [&] { return static_cast<LONG>(toolbar().*field); });
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

// One button of a toolbar.
#include "objects/host_object.h"
#include "objects/objects.h"

namespace sim::detail {
namespace {

class ToolbarItemObject final : public HostObject<HostToolbarItem> {
public:
    ToolbarItemObject(const CorePtr& core, ToolbarPlace toolbar, std::shared_ptr<ToolbarButton> button)
        : HostObject(core), m_toolbar(std::move(toolbar)), m_button(std::move(button))
    {
    }

    std::string journalName() const override
    {
        return "HostToolbarItem " + nameOf(core(), m_toolbar, *m_button);
    }
    std::wstring goneReason() const override { return detail::goneReason(core(), m_toolbar, *m_button); }

    HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) override
    {
        return give(members::HostToolbarItem::get_Name, name, [&] { return m_button->name; });
    }

    HRESULT STDMETHODCALLTYPE get_TagString(BSTR* tag) override
    {
        return give(members::HostToolbarItem::get_TagString, tag, [&] { return m_button->tag; });
    }

    HRESULT STDMETHODCALLTYPE put_TagString(BSTR tag) override
    {
        Call call = begin(members::HostToolbarItem::put_TagString, {Arg::text(tag)});
        if (call.refused())
            return call.status();
        m_button->tag = text::fromBstr(tag);
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE get_Index(LONG* index) override
    {
        return give(members::HostToolbarItem::get_Index, index, [&] {
            return static_cast<LONG>(core().seats.find(m_toolbar.toolbar->buttons, m_button.get()));
        });
    }

    HRESULT STDMETHODCALLTYPE raw_SetBitmaps(BSTR smallBitmap, BSTR largeBitmap) override
    {
        Call call =
            begin(members::HostToolbarItem::SetBitmaps, {Arg::text(smallBitmap), Arg::text(largeBitmap)});
        if (call.refused())
            return call.status();
        if (SysStringLen(smallBitmap) == 0 || SysStringLen(largeBitmap) == 0)
            return call.fail(E_INVALIDARG, L"a toolbar button needs both a small and a large bitmap");
        m_button->smallBitmap = text::fromBstr(smallBitmap);
        m_button->largeBitmap = text::fromBstr(largeBitmap);
        return call.succeed();
    }

    // The toolbar must be a toolbar of a loaded group, named by its name or its tag; the button
    // keeps the two names as they were given.
    HRESULT STDMETHODCALLTYPE raw_AttachToolbarToFlyout(BSTR menuGroupName, BSTR toolbarName) override
    {
        Call call = begin(members::HostToolbarItem::AttachToolbarToFlyout,
                          {Arg::text(menuGroupName), Arg::text(toolbarName)});
        if (call.refused())
            return call.status();
        const std::wstring groupName = text::fromBstr(menuGroupName);
        const std::wstring toolbar = text::fromBstr(toolbarName);
        const auto group = loadedGroupNamed(core(), groupName);
        if (!group)
            return call.fail(E_INVALIDARG, L"no menu group '" + groupName + L"' is loaded");
        const bool known =
            !toolbar.empty() && firstNamed<ToolbarNameOrTag>(core(), group->toolbars, group)(toolbar) >= 0;
        if (!known)
            return call.fail(E_INVALIDARG,
                             L"menu group '" + group->name + L"' has no toolbar '" + toolbar + L"'");
        m_button->flyout = std::make_pair(groupName, toolbar);
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE raw_Delete() override
    {
        Call call = begin(members::HostToolbarItem::Delete);
        if (call.refused())
            return call.status();
        core().names.removed(m_toolbar.toolbar->buttons, m_button.get());
        core().seats.remove(m_toolbar.toolbar->buttons, m_button.get());
        return call.succeed();
    }

protected:
    const char* interfaceName() const override { return "HostToolbarItem"; }

private:
    ToolbarPlace m_toolbar;
    std::shared_ptr<ToolbarButton> m_button;
};

}  // namespace

HostToolbarItem* newToolbarItem(const CorePtr& core, const ToolbarPlace& place,
                                const std::shared_ptr<ToolbarButton>& button)
{
    return button ? new ToolbarItemObject(core, place, button) : nullptr;
}

}  // namespace sim::detail

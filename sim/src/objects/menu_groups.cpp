// The loaded menu groups, and one group.
#include "model/copy.h"
#include "objects/collection.h"
#include "objects/objects.h"

#include <algorithm>
#include <vector>

namespace sim::detail {
namespace {

class MenuGroupsObject final : public HostCollection<HostMenuGroups, HostMenuGroup, MenuGroup, GroupName> {
public:
    explicit MenuGroupsObject(const CorePtr& core)
        : HostCollection(core, {members::HostMenuGroups::get_Count, members::HostMenuGroups::Item,
                                members::HostMenuGroups::_NewEnum, kMenuPosition, L"menu group"})
    {
    }

    std::string journalName() const override { return "HostMenuGroups"; }

    // The file is found by its path as the host compares paths; its group loads as a fresh copy of
    // what the file defines, after the groups already loaded.
    HRESULT STDMETHODCALLTYPE raw_LoadMenuFile(BSTR menuFile, VARIANT baseMenu,
                                               HostMenuGroup** group) override
    {
        Call call =
            begin(members::HostMenuGroups::LoadMenuFile, {Arg::text(menuFile), Arg::variant(baseMenu)});
        if (!call.accepts(group))
            return call.status();
        // The interface documents an empty base-menu argument as "not the base menu".
        bool asBaseMenu = false;
        if (V_VT(&baseMenu) != VT_EMPTY &&
            !readOptionalYesNo(call, baseMenu, VT_BOOL, L"base-menu argument", asBaseMenu))
            return call.status();
        if (asBaseMenu)
            return call.fail(E_INVALIDARG, L"loading a menu file as the base menu is not simulated");
        const std::wstring path = text::fromBstr(menuFile);
        const auto file = core().texts.first<MenuFilePath>(core().seats, state().menuFiles, path);
        if (file == nullptr)
            return call.fail(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND),
                             L"menu file '" + path + L"' was not found");
        if (!file->second)
            return call.fail(E_FAIL, L"'" + path + L"' is not a menu file");
        if (loadedGroupNamed(core(), file->second->name))
            return call.fail(E_FAIL, L"menu group '" + file->second->name + L"' is already loaded");
        if (call.givesNull())
            return call.succeed();  // the output was cleared: no group, and none loaded
        state().menuGroups.push_back(copyMenuGroup(*file->second));
        core().seats.remember(state().menuGroups, state().menuGroups.size() - 1);
        core().names.added(core().seats, state().menuGroups, state().menuGroups.size() - 1);
        core().menuOwners.loaded(state().menuGroups.back());
        return call.giveObject(group, [&] { return newMenuGroup(sharedCore(), state().menuGroups.back()); });
    }

protected:
    const char* interfaceName() const override { return "HostMenuGroups"; }
    const Nodes& nodes() const override { return state().menuGroups; }
    HostMenuGroup* newObjectFor(const std::shared_ptr<MenuGroup>& group) override
    {
        return newMenuGroup(sharedCore(), group);
    }
};

class MenuGroupObject final : public HostObject<HostMenuGroup> {
public:
    MenuGroupObject(const CorePtr& core, std::shared_ptr<MenuGroup> group)
        : HostObject(core), m_group(std::move(group))
    {
    }

    std::string journalName() const override { return "HostMenuGroup " + nameOf(*m_group); }
    std::wstring goneReason() const override { return detail::goneReason(core(), *m_group); }

    HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) override
    {
        // An unloaded group still tells its name; everything else it is asked fails.
        return give(
            members::HostMenuGroup::get_Name, name, [&] { return m_group->name; }, Call::WhenGone::answers);
    }

    HRESULT STDMETHODCALLTYPE get_Menus(HostPopupMenus** menus) override
    {
        return give(members::HostMenuGroup::get_Menus, menus,
                    [&] { return newPopupMenus(sharedCore(), m_group); });
    }

    HRESULT STDMETHODCALLTYPE get_Toolbars(HostToolbars** toolbars) override
    {
        return give(members::HostMenuGroup::get_Toolbars, toolbars,
                    [&] { return newToolbars(sharedCore(), m_group); });
    }

    // The group's menus leave the menu bar with it.
    HRESULT STDMETHODCALLTYPE raw_Unload() override
    {
        Call call = begin(members::HostMenuGroup::Unload);
        if (call.refused())
            return call.status();
        // Each of the group's menus on the bar is found where it stands, and they go from the last
        // back, so that taking one off moves none of those still to go: the bar is never searched.
        auto& bar = state().menuBar;
        std::vector<long> places;
        for (const auto& menu : m_group->menus)
            if (core().names.holds<MenuName>(core().seats, bar, nullptr, menu.get()))
                places.push_back(core().seats.find(bar, menu.get()));
        std::sort(places.rbegin(), places.rend());
        for (const long place : places) {
            const PopupMenu* menu = bar[static_cast<size_t>(place)].get();
            core().names.removed(bar, menu);
            core().seats.remove(bar, menu);
        }
        core().names.removed(state().menuGroups, m_group.get());
        core().seats.remove(state().menuGroups, m_group.get());
        core().menuOwners.unloaded(*m_group);
        return call.succeed();
    }

protected:
    const char* interfaceName() const override { return "HostMenuGroup"; }

private:
    std::shared_ptr<MenuGroup> m_group;
};

}  // namespace

HostMenuGroups* newMenuGroups(const CorePtr& core)
{
    return new MenuGroupsObject(core);
}

HostMenuGroup* newMenuGroup(const CorePtr& core, const std::shared_ptr<MenuGroup>& group)
{
    return group ? new MenuGroupObject(core, group) : nullptr;
}

}  // namespace sim::detail

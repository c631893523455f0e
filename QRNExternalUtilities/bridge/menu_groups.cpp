#include "bridge/menu_groups.h"

#include "bridge/collection_walk.h"
#include "bridge/host_access.h"

namespace external_utilities {

std::optional<HostMenuGroupsPtr> readMenuGroups()
{
    HostMenuGroups* groups = nullptr;
    HRESULT status = E_POINTER;
    {
        const HostApplicationPtr application = getHostApplication();
        if (!application)
            return std::nullopt;
        status = application->get_MenuGroups(&groups);
    }
    HostMenuGroupsPtr owned(groups, false);
    if (FAILED(status))
        return std::nullopt;
    return owned;
}

HostMenuGroupPtr findMenuGroup(const MxtString& groupName)
{
    const HostMenuGroupsPtr groups = readFromApplication<HostMenuGroupsPtr>(
        [](HostApplication& application) { return application.GetMenuGroups(); });
    if (!groups)
        return HostMenuGroupPtr();
    HostMenuGroupPtr found;
    WalkRules rules;
    rules.copyPosition = true;
    walkByPosition<HostMenuGroupPtr>(*groups, rules, [&](HostMenuGroupPtr group, std::int32_t) {
        if (MxtString::compareNoCase(MxtString(group->GetName()), groupName) != 0)
            return WalkStep::next;
        found = std::move(group);
        return WalkStep::stop;
    });
    return found;
}

}  // namespace external_utilities

#include "toolbars/toolbar_lookup.h"

#include "bridge/menu_groups.h"

namespace external_utilities {

HostToolbarsPtr findGroupToolbars(const MxtString& groupName)
{
    const HostMenuGroupPtr group = findMenuGroup(groupName);
    return group ? group->GetToolbars() : HostToolbarsPtr();
}

HostToolbarPtr findToolbar(HostToolbars& toolbars, const MxtString& toolbarName)
{
    HostToolbarPtr found;
    walkByPosition<HostToolbarPtr>(toolbars, toolbarWalk(), [&](HostToolbarPtr toolbar, std::int32_t) {
        if (!isTagged(*toolbar, toolbarName))
            return WalkStep::next;
        found = std::move(toolbar);
        return WalkStep::stop;
    });
    return found;
}

}  // namespace external_utilities

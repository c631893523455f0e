#include "menus/group_menu.h"

#include "bridge/failure_policies.h"
#include "bridge/host_access.h"
#include "bridge/menu_groups.h"
#include "bridge/positions.h"

namespace external_utilities {

HostPopupMenuPtr findGroupMenu(const MxtString& groupName)
{
    HostPopupMenuPtr menu;
    catchEverything([&] {
        // Asked for first and held through the lookup, which reaches the host afresh itself.
        const HostApplicationPtr application = getHostApplication();
        if (!application)
            return;
        const HostMenuGroupPtr group = findMenuGroup(groupName);
        if (!group)
            return;
        menu = group->GetMenus()->Item(menuPosition(0));
    });
    return menu;
}

void addItemToMenu(const HostPopupMenuPtr& menu, std::int32_t index, const MxtString& label,
                   const MxtString& macro)
{
    if (!menu)
        return;
    catchEverything([&] {
        const HostPopupMenuItemPtr item =
            menu->AddMenuItem(menuPosition(index), label.getStringW(), macro.getStringW());
        if (item)
            item->PutEnabled(VARIANT_TRUE);
    });
}

}  // namespace external_utilities

// The MX menus on the host's menu bar.
#include "ZORBAppUtilities.h"

#include "bridge/collection_walk.h"
#include "bridge/host_access.h"
#include "bridge/yes_no.h"
#include "menus/group_menu.h"

using namespace external_utilities;

namespace {

HostMenuBarPtr readMenuBar()
{
    return readFromApplication<HostMenuBarPtr>(
        [](HostApplication& application) { return application.GetMenuBar(); });
}

}  // namespace

void ZORBAppUtilities::addMenuToMenuBar(const MxtString& groupName, const MxtArray<ZORBMenuItem>& items,
                                        long position)
{
    const HostPopupMenuPtr menu = findGroupMenu(groupName);
    if (!menu)
        return;
    // Items are added as given, whether or not the menu holds them already.
    for (int i = 0; i < items.getLength(); ++i)
        addItemToMenu(menu, items[i].index, items[i].label, items[i].macro);
    // Inserted unless the flag is exactly all bits set; removing tests for any bit instead, and
    // callers rely on both tests as they are.
    if (!isExactlyTrue(menu->GetOnMenuBar()))
        menu->InsertInMenuBar(menuPosition(position));
}

void ZORBAppUtilities::removeMenuFromMenuBar(const MxtString& groupName)
{
    const HostPopupMenuPtr menu = findGroupMenu(groupName);
    if (!menu)
        return;
    if (!isExactlyFalse(menu->GetOnMenuBar()))
        menu->RemoveFromMenuBar();
}

long ZORBAppUtilities::getNumberOfMenusOnMenuBar()
{
    const HostMenuBarPtr menuBar = readMenuBar();
    return menuBar ? menuBar->GetCount() : 0;
}

bool ZORBAppUtilities::isMenuLoadedOnMenuBar(const MxtString& text)
{
    const HostMenuBarPtr menuBar = readMenuBar();
    if (!menuBar)
        return false;
    bool found = false;
    WalkRules rules;
    rules.nullItem = WalkRules::NullItem::raises;
    // The text is looked for in the upper-cased tag as given: a caller's lower-case letters never
    // match, and the menu's displayed name plays no part.
    walkByPosition<HostPopupMenuPtr>(*menuBar, rules, [&](HostPopupMenuPtr menu, std::int32_t) {
        found = MxtString(menu->GetTagString()).toUpper().find(text) >= 0;
        return found ? WalkStep::stop : WalkStep::next;
    });
    return found;
}

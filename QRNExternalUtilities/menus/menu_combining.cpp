// Several MX menus combined into one new menu on the menu bar, each as a submenu of it.
#include "ZORBAppUtilities.h"

#include "bridge/collection_walk.h"
#include "bridge/failure_policies.h"
#include "bridge/host_access.h"
#include "bridge/yes_no.h"
#include "menus/group_menu.h"

using namespace external_utilities;

namespace {

// The host's item types; other values are passed over.
enum ItemType : LONG { kCommand = 0, kSeparator = 1, kSubMenu = 2 };

// Appends to `target` a submenu named as `source` holding copies of its items, separators and
// submenus (recursively), then takes `source` off the menu bar if it stood there. Names, labels
// and macros are copied; tags, states and help strings are not.
void copyMenuAsSubMenu(const HostPopupMenuPtr& target, const HostPopupMenuPtr& source)
{
    if (!target || !source)
        return;
    // A failure ends the copy at this level only; the level above goes on with its next item.
    catchEverything([&] {
        const LONG targetCount = target->GetCount();
        const HostPopupMenuPtr copy = target->AddSubMenu(menuPosition(targetCount), source->GetName());
        bool copiedWhole = true;
        if (copy) {
            WalkRules rules;
            rules.nullItem = WalkRules::NullItem::visited;
            walkByPosition<HostPopupMenuItemPtr>(
                *source, rules, [&](HostPopupMenuItemPtr item, std::int32_t i) {
                    if (!item) {
                        copiedWhole = false;
                        return WalkStep::stop;
                    }
                    const _bstr_t label = item->GetLabel();
                    const _bstr_t macro = item->GetMacro();
                    const LONG type = item->GetType();
                    if (type == kCommand) {
                        copy->AddMenuItem(menuPosition(i), label, macro)->PutLabel(label);
                    }
                    else if (type == kSeparator) {
                        // At the target's count read before the copy, not at i: every separator of one
                        // menu lands at the same index, as callers have always seen it.
                        copy->AddSeparator(menuPosition(targetCount));
                    }
                    else if (type == kSubMenu) {
                        const HostPopupMenuPtr subMenu = item->GetSubMenu();
                        if (!subMenu) {
                            copiedWhole = false;
                            return WalkStep::stop;
                        }
                        copyMenuAsSubMenu(copy, subMenu);
                    }
                    return WalkStep::next;
                });
        }
        // A source whose copy stopped short stays on the menu bar.
        if (!copiedWhole)
            return;
        if (isExactlyTrue(source->GetOnMenuBar()))
            source->RemoveFromMenuBar();
    });
}

}  // namespace

void ZORBAppUtilities::combineMenusOnMenuBar(const MxtString& menuName, const MxtArray<MxtString>& groupNames,
                                             long position)
{
    catchEverything([&] {
        const HostApplicationPtr application = getHostApplication();
        if (!application)
            return;
        MxtArray<HostPopupMenuPtr> sources;
        for (int i = 0; i < groupNames.getLength(); ++i)
            sources.add(findGroupMenu(groupNames[i]));
        // The new menu goes into whichever group stands first, not into a source group.
        const HostMenuGroupPtr firstGroup = application->GetMenuGroups()->Item(menuPosition(0));
        const _bstr_t name(menuName.getStringW());
        const HostPopupMenuPtr combined = firstGroup->GetMenus()->AddMenu(name);
        combined->PutName(name);  // written a second time, as the host has always been told
        for (int i = 0; i < sources.getLength(); ++i)
            copyMenuAsSubMenu(combined, sources[i]);
        combined->InsertInMenuBar(menuPosition(position));
    });
}

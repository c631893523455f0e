// The MX entries of the host's object-snap cursor menu: a block placed counting from the menu's
// end, so that the menu's last items stay below it.
#include "ZORBAppUtilities.h"

#include "bridge/collection_walk.h"
#include "bridge/failure_policies.h"
#include "bridge/host_access.h"

using namespace external_utilities;

namespace {

const wchar_t* const kMXGroupName = L"MX";
const wchar_t* const kSnapMenuTag = L"PM_0001";

// Positions in the snap menu are copied for each call, and the copy's failure raises.
WalkRules snapWalk(WalkRules::NullItem nullItem)
{
    WalkRules rules;
    rules.copyPosition = true;
    rules.nullItem = nullItem;
    return rules;
}

_variant_t snapPosition(long position)
{
    return copiedPosition(menuPosition(position));
}

// The first menu of the "MX" group (any letter case) tagged "PM_0001" (any case) or not tagged.
// When none is, the group's last menu is taken all the same; only a group without menus gives
// null. A failure on the way gives what was found so far.
HostPopupMenuPtr findSnapMenu()
{
    HostPopupMenuPtr snap;
    catchAutomationFailureQuietly([&] {
        const HostMenuGroupsPtr groups = readFromApplication<HostMenuGroupsPtr>(
            [](HostApplication& application) { return application.GetMenuGroups(); });
        if (!groups)
            return;
        HostMenuGroupPtr mx;
        walkByPosition<HostMenuGroupPtr>(
            *groups, snapWalk(WalkRules::NullItem::raises), [&](HostMenuGroupPtr group, std::int32_t) {
                if (MxtString::compareNoCase(MxtString(group->GetName()), kMXGroupName) != 0)
                    return WalkStep::next;
                mx = std::move(group);
                return WalkStep::stop;
            });
        if (!mx)
            return;
        const HostPopupMenusPtr menus = mx->GetMenus();
        if (!menus)
            return;
        walkByPosition<HostPopupMenuPtr>(
            *menus, snapWalk(WalkRules::NullItem::skipped), [&](HostPopupMenuPtr menu, std::int32_t) {
                snap = std::move(menu);
                const MxtString tag(snap->GetTagString());
                const bool isSnapMenu = tag.isEmpty() || MxtString::compareNoCase(tag, kSnapMenuTag) == 0;
                return isSnapMenu ? WalkStep::stop : WalkStep::next;
            });
    });
    return snap;
}

// Whether an item among the first `count` of the menu runs `macro` (letter case ignored; labels
// play no part).
bool holdsMacro(HostPopupMenu& snap, LONG count, const MxtString& macro)
{
    bool held = false;
    walkPositions<HostPopupMenuItemPtr>(
        snap, count, snapWalk(WalkRules::NullItem::raises), [&](HostPopupMenuItemPtr item, std::int32_t) {
            held = MxtString::compareNoCase(MxtString(item->GetMacro()), macro) == 0;
            return held ? WalkStep::stop : WalkStep::next;
        });
    return held;
}

}  // namespace

bool ZORBAppUtilities::addMenuItemsToSnapMenu(const MxtArray<MxtString>& labels,
                                              const MxtArray<MxtString>& macros, long positionFromEnd)
{
    if (labels.getLength() == 0)
        return true;
    const HostPopupMenuPtr snap = findSnapMenu();
    if (!snap)
        return false;
    // Only the items there before this call are looked at.
    const LONG count = snap->GetCount();
    // Room for every entry at once: grown 8 at a time, the list would be copied at each growth.
    MxtArray<int> newEntries;
    newEntries.setPhysicalLength(labels.getLength());
    for (int i = 0; i < labels.getLength(); ++i)
        if (!holdsMacro(*snap, count, macros[i]))
            newEntries.add(i);
    if (newEntries.getLength() == 0)
        return true;
    long at = count - positionFromEnd;
    // A separator goes first only when every entry is new.
    if (newEntries.getLength() == labels.getLength()) {
        if (!snap->AddSeparator(snapPosition(at)))
            return false;
        ++at;
    }
    for (int k = 0; k < newEntries.getLength(); ++k) {
        const int entry = newEntries[k];
        if (!snap->AddMenuItem(snapPosition(at), labels[entry].getStringW(), macros[entry].getStringW()))
            return false;
        ++at;
    }
    return true;
}

bool ZORBAppUtilities::removeMenuItemsFromSnapMenu(const MxtArray<MxtString>& labels, long positionFromEnd)
{
    if (labels.getLength() == 0)
        return true;
    const HostPopupMenuPtr snap = findSnapMenu();
    if (!snap)
        return false;
    const LONG count = snap->GetCount();
    const int size = labels.getLength();
    const long base = count - positionFromEnd - size;
    for (int k = 0; k < size; ++k) {
        const HostPopupMenuItemPtr item = snap->Item(snapPosition(base + k));
        // A block that is not where it should be is left alone, and the answer is still true.
        if (item && MxtString::compareNoCase(MxtString(item->GetLabel()), labels[k]) != 0)
            return true;
    }
    // Deliberately one before the checked block and exactly `size` times: after an addition with
    // its separator this takes the separator and all entries but the last, which MX code expects.
    for (int k = 0; k < size; ++k) {
        const HostPopupMenuItemPtr item = snap->Item(snapPosition(base - 1));
        if (item)
            item->Delete();
    }
    return true;
}

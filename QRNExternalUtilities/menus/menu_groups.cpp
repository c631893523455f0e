// Whether an MX menu group is loaded, and loading and unloading menu files.
#include "ZORBAppUtilities.h"

#include "bridge/collection_walk.h"
#include "bridge/failure_policies.h"
#include "bridge/menu_groups.h"

#include <optional>

using namespace external_utilities;

namespace {

// A menu file's group is named by the path's last component: the text after the last backslash,
// with its extension if it has one.
MxtString groupNameOf(const MxtString& path)
{
    const int lastSeparator = path.find_last_of(L'\\');
    return lastSeparator < 0 ? path : path.right(path.length() - lastSeparator - 1);
}

// Every group of the collection, in its order, so that the collection can be released before the
// groups are worked on; a position the host refuses is left out, a null one kept.
MxtArray<HostMenuGroupPtr> copyMenuGroups(HostMenuGroups& groups)
{
    MxtArray<HostMenuGroupPtr> copies;
    WalkRules rules;
    rules.failedItem = WalkRules::FailedItem::skipped;
    rules.nullItem = WalkRules::NullItem::visited;
    walkByPosition<HostMenuGroupPtr>(groups, rules, [&](HostMenuGroupPtr group, std::int32_t) {
        copies.add(group);
        return WalkStep::next;
    });
    return copies;
}

// The loaded groups, copied; nothing when the host refuses the collection. A collection the host
// gave as null cannot be counted and raises E_POINTER, as a call on any null object does.
std::optional<MxtArray<HostMenuGroupPtr>> loadedMenuGroups()
{
    const auto groups = readMenuGroups();
    if (!groups)
        return std::nullopt;
    if (!*groups)
        _com_issue_error(E_POINTER);
    return copyMenuGroups(**groups);
}

}  // namespace

bool ZORBAppUtilities::isMenuLoaded(const MxtString& groupName)
{
    bool loaded = false;
    catchAutomationFailure([&] {
        const auto groups = loadedMenuGroups();
        if (!groups)
            return;
        // Exactly, code unit by code unit: unlike every other lookup, letter case counts here.
        for (int i = 0; i < groups->getLength() && !loaded; ++i)
            loaded = MxtString((*groups)[i]->GetName()) == groupName;
    });
    return loaded;
}

bool ZORBAppUtilities::loadMenus(const MxtArray<MxtString>& menuFiles)
{
    // True from the start and never false: the answer only says that the operation ran.
    const bool ran = true;
    catchAutomationFailure([&] {
        // Only a refused read ends the operation here; a collection given as null refuses the
        // first load (E_POINTER), after the loaded test of that file.
        const auto groups = readMenuGroups();
        if (!groups)
            return;
        for (int i = 0; i < menuFiles.getLength(); ++i) {
            // The upper-cased name is compared exactly, so a group the host names in another case
            // is never found and its file is loaded again.
            if (isMenuLoaded(groupNameOf(menuFiles[i]).toUpper()))
                continue;
            // The load's status is not looked at: a file that does not load is passed over. A group
            // is given only with a success; after a failure the output is not ours to release.
            HostMenuGroup* loaded = nullptr;
            const HRESULT status = (*groups)->raw_LoadMenuFile(_bstr_t(menuFiles[i].getStringW()), _variant_t(), &loaded);
            if (SUCCEEDED(status)) {
                const HostMenuGroupPtr released(loaded, false);
            }
        }
    });
    return ran;
}

bool ZORBAppUtilities::unloadMenus(const MxtArray<MxtString>& menuFiles)
{
    bool completed = false;
    catchAutomationFailure([&] {
        // The copy is not updated by an unload: a path named twice reaches the unloaded group again,
        // and the host's refusal ends the operation.
        const auto loaded = loadedMenuGroups();
        if (!loaded)
            return;
        const MxtArray<HostMenuGroupPtr>& groups = *loaded;
        for (int i = 0; i < menuFiles.getLength(); ++i) {
            const MxtString groupName = groupNameOf(menuFiles[i]);
            for (int g = 0; g < groups.getLength(); ++g) {
                if (MxtString::compareNoCase(MxtString(groups[g]->GetName()), groupName) == 0) {
                    groups[g]->Unload();
                    break;
                }
            }
        }
        completed = true;
    });
    return completed;
}

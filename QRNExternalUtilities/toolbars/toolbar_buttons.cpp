// Toolbar buttons: attaching a toolbar to a button's flyout, and putting a new button in the place
// of an old one.
#include "ZORBAppUtilities.h"

#include "bridge/failure_policies.h"
#include "toolbars/toolbar_lookup.h"

using namespace external_utilities;

namespace {

// The first button of `toolbar` tagged `buttonName`; null when there is none.
HostToolbarItemPtr findButton(HostToolbar& toolbar, const MxtString& buttonName)
{
    HostToolbarItemPtr found;
    walkByPosition<HostToolbarItemPtr>(toolbar, toolbarWalk(), [&](HostToolbarItemPtr button, std::int32_t) {
        if (!isTagged(*button, buttonName))
            return WalkStep::next;
        found = std::move(button);
        return WalkStep::stop;
    });
    return found;
}

// Where a replacement goes: the first button tagged `buttonName` that is not the replacement itself
// (tagged `newButtonTag` and named `newButtonName`), its position, and whether a replacement stands
// before it already.
struct ReplacementSite {
    HostToolbarItemPtr oldButton;
    std::int32_t position = 0;
    bool replacementStands = false;
};

ReplacementSite findReplacementSite(HostToolbar& toolbar, const MxtString& buttonName,
                                    const MxtString& newButtonName, const MxtString& newButtonTag)
{
    ReplacementSite site;
    walkByPosition<HostToolbarItemPtr>(toolbar, toolbarWalk(), [&](HostToolbarItemPtr button, std::int32_t at) {
        const MxtString tag(button->GetTagString());
        // The name is read only for a button of the new tag, so that a replacement is told from an
        // old button of the same tag.
        if (MxtString::compareNoCase(tag, newButtonTag) == 0 &&
            MxtString::compareNoCase(MxtString(button->GetName()), newButtonName) == 0) {
            site.replacementStands = true;
            return WalkStep::next;
        }
        if (MxtString::compareNoCase(tag, buttonName) != 0)
            return WalkStep::next;
        site.oldButton = std::move(button);
        site.position = at;
        return WalkStep::stop;
    });
    return site;
}

// Tags a new button; a button the host will not tag would be found by no later call, so it is
// taken out again (as far as the host lets it) before the failure goes on to the caller.
void tagOrTakeOut(HostToolbarItem& button, const MxtString& tag)
{
    try {
        button.PutTagString(tag.getStringW());
    }
    catch (const _com_error&) {
        catchEverything([&] { button.Delete(); });
        throw;
    }
}

// The first toolbar tagged `toolbarName` in the group named `groupName`; null when either is missing.
HostToolbarPtr findGroupToolbar(const MxtString& groupName, const MxtString& toolbarName)
{
    const HostToolbarsPtr toolbars = findGroupToolbars(groupName);
    return toolbars ? findToolbar(*toolbars, toolbarName) : HostToolbarPtr();
}

// The flyout shows the toolbar named as given to the operation, in the group named as given.
void attachFlyout(HostToolbarItem& button, const MxtString& groupName, const MxtString& toolbarName)
{
    const _bstr_t toolbar(toolbarName.getStringW());
    const _bstr_t group(groupName.getStringW());
    button.AttachToolbarToFlyout(group, toolbar);
}

}  // namespace

void ZORBAppUtilities::attachToolbarToFlyout(const MxtString& groupName, const MxtString& toolbarName,
                                             const MxtString& buttonName)
{
    const HostToolbarPtr toolbar = findGroupToolbar(groupName, toolbarName);
    if (!toolbar)
        return;
    const HostToolbarItemPtr button = findButton(*toolbar, buttonName);
    if (button)
        attachFlyout(*button, groupName, toolbarName);
}

void ZORBAppUtilities::replaceToolbarButton(const MxtString& groupName, const MxtString& toolbarName,
                                            const MxtString& buttonName, const MxtString& newButtonName,
                                            const MxtString& newButtonTag, const MxtString& helpString,
                                            const MxtString& macro, const MxtString& smallBitmap,
                                            const MxtString& largeBitmap, const MxtString& flyoutToolbarName)
{
    const HostToolbarPtr toolbar = findGroupToolbar(groupName, toolbarName);
    if (!toolbar)
        return;
    const ReplacementSite site = findReplacementSite(*toolbar, buttonName, newButtonName, newButtonTag);
    if (!site.oldButton)
        return;
    // A call again after the old button's removal failed finds its new button in place and only
    // removes the old one.
    if (!site.replacementStands) {
        const HostToolbarItemPtr newButton = toolbar->AddButton(
            toolbarPosition(site.position), newButtonName.getStringW(), helpString.getStringW(), macro.getStringW());
        if (!newButton)
            return;
        tagOrTakeOut(*newButton, newButtonTag);
        // A host that refuses the bitmaps leaves a working button with its default image.
        catchEverything([&] { newButton->SetBitmaps(smallBitmap.getStringW(), largeBitmap.getStringW()); });
        if (!flyoutToolbarName.isEmpty())
            attachFlyout(*newButton, groupName, flyoutToolbarName);
    }
    // Last, so that a failure on the way never loses the old button.
    site.oldButton->Delete();
}

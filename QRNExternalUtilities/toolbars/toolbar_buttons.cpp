// Toolbar buttons: attaching a toolbar to a button's flyout, and putting a new button in the place
// of an old one.
#include "ZORBAppUtilities.h"

#include "bridge/failure_policies.h"
#include "toolbars/toolbar_lookup.h"

using namespace external_utilities;

namespace {

// The first button of `toolbar` tagged `buttonName`, with its position; null when there is none.
HostToolbarItemPtr findButton(HostToolbar& toolbar, const MxtString& buttonName, std::int32_t& position)
{
    HostToolbarItemPtr found;
    walkByPosition<HostToolbarItemPtr>(toolbar, toolbarWalk(), [&](HostToolbarItemPtr button, std::int32_t at) {
        if (!isTagged(*button, buttonName))
            return WalkStep::next;
        found = std::move(button);
        position = at;
        return WalkStep::stop;
    });
    return found;
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
    std::int32_t position = 0;
    const HostToolbarItemPtr button = findButton(*toolbar, buttonName, position);
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
    std::int32_t position = 0;
    const HostToolbarItemPtr oldButton = findButton(*toolbar, buttonName, position);
    if (!oldButton)
        return;
    const HostToolbarItemPtr newButton = toolbar->AddButton(toolbarPosition(position), newButtonName.getStringW(),
                                                            helpString.getStringW(), macro.getStringW());
    if (!newButton)
        return;
    newButton->PutTagString(newButtonTag.getStringW());
    // A host that refuses the bitmaps leaves a working button with its default image.
    catchEverything([&] { newButton->SetBitmaps(smallBitmap.getStringW(), largeBitmap.getStringW()); });
    if (!flyoutToolbarName.isEmpty())
        attachFlyout(*newButton, groupName, flyoutToolbarName);
    // Last, so that a failure on the way never loses the old button.
    oldButton->Delete();
}

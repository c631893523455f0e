// Showing and hiding the MX toolbars, keeping their place between a hide and the next show.
#include "ZORBAppUtilities.h"

#include "bridge/yes_no.h"
#include "toolbars/toolbar_lookup.h"

using namespace external_utilities;

namespace {

// The host's dock status of a floating toolbar; any other value names a side.
constexpr long kFloating = 4;

}  // namespace

bool ZORBAppUtilities::showHideToolbar(bool show, MxtString& groupName, MxtString& toolbarName, long& left,
                                       long& top, long& dockStatus, long& floatingRows)
{
    bool result = true;
    const HostToolbarsPtr toolbars = findGroupToolbars(groupName);
    if (!toolbars)
        return result;
    // Unlike the other lookups, every toolbar with the tag is processed, not only the first.
    walkByPosition<HostToolbarPtr>(*toolbars, toolbarWalk(), [&](HostToolbarPtr toolbar, std::int32_t) {
        if (!isTagged(*toolbar, toolbarName))
            return WalkStep::next;
        const VARIANT_BOOL visible = toolbar->GetVisible();
        // Read but not used (a show places the toolbar where the caller says); its failure still ends
        // the operation, as callers have always seen.
        toolbar->GetDockStatus();
        if (show && isExactlyFalse(visible)) {
            // Placed before it is made visible, so that it never shows at a stale place.
            if (dockStatus == kFloating)
                toolbar->Float(top, left, floatingRows);
            else
                toolbar->Dock(dockStatus);
            toolbar->PutVisible(VARIANT_TRUE);
        }
        else if (!show && isExactlyTrue(visible)) {
            toolbar->PutVisible(VARIANT_FALSE);
            result = false;
            // Each written as soon as it is read: a failure leaves those read so far.
            left = toolbar->GetLeft();
            top = toolbar->GetTop();
            floatingRows = toolbar->GetFloatingRows();
            dockStatus = toolbar->GetDockStatus();
        }
        return WalkStep::next;
    });
    return result;
}

bool ZORBAppUtilities::isToolbarVisible(const MxtString& groupName, const MxtString& toolbarName)
{
    const HostToolbarsPtr toolbars = findGroupToolbars(groupName);
    if (!toolbars)
        return false;
    const HostToolbarPtr toolbar = findToolbar(*toolbars, toolbarName);
    return toolbar && isExactlyTrue(toolbar->GetVisible());
}

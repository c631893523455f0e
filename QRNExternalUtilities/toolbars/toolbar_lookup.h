// Toolbars and buttons are known by their tags, the identifiers their menu source gives them, not
// by their displayed names; letter case is ignored.
#pragma once

#include "bridge/collection_walk.h"

#include "host/object_model.h"

#include "MxtString"

namespace external_utilities {

// Whether a toolbar's or a button's tag equals `tag` ignoring case (a null tag is empty).
template <class TaggedObject> bool isTagged(TaggedObject& object, const MxtString& tag)
{
    return MxtString::compareNoCase(tag, MxtString(object.GetTagString())) == 0;
}

// Toolbars and buttons are asked for with a VT_I4 position copied for the call; a position where
// the host gives none is passed over.
inline WalkRules toolbarWalk()
{
    WalkRules rules;
    rules.position = toolbarPosition;
    rules.copyPosition = true;
    return rules;
}

// The toolbars of the group named `groupName` (letter case ignored), or null when there is no such
// group or it gives none. Raises when a host call fails.
HostToolbarsPtr findGroupToolbars(const MxtString& groupName);

// The first toolbar of `toolbars` tagged `toolbarName`, or null. Later toolbars with the same tag are
// not looked at.
HostToolbarPtr findToolbar(HostToolbars& toolbars, const MxtString& toolbarName);

}  // namespace external_utilities

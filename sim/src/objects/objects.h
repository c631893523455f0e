// The host objects the simulator gives out, one factory per interface. Each gives a new object
// holding one reference for the caller, or null for a null node (a place where the host gives
// no object).
#pragma once

#include "host/host_core.h"
#include "objects/places.h"

#include "host/object_model.h"

#include <memory>

namespace sim::detail {

using CorePtr = std::shared_ptr<HostCore>;

HostApplication* newApplication(const CorePtr& core);
HostPreferences* newPreferences(const CorePtr& core);
HostPreferencesFiles* newPreferencesFiles(const CorePtr& core);
HostMenuGroups* newMenuGroups(const CorePtr& core);
HostMenuGroup* newMenuGroup(const CorePtr& core, const std::shared_ptr<MenuGroup>& group);
HostPopupMenus* newPopupMenus(const CorePtr& core, const std::shared_ptr<MenuGroup>& group);
HostPopupMenu* newPopupMenu(const CorePtr& core, const MenuPlace& place);
HostPopupMenuItem* newPopupMenuItem(const CorePtr& core, const MenuPlace& place,
                                    const std::shared_ptr<PopupMenuItem>& item);
HostMenuBar* newMenuBar(const CorePtr& core);
HostToolbars* newToolbars(const CorePtr& core, const std::shared_ptr<MenuGroup>& group);
HostToolbar* newToolbar(const CorePtr& core, const ToolbarPlace& place);
HostToolbarItem* newToolbarItem(const CorePtr& core, const ToolbarPlace& place,
                                const std::shared_ptr<ToolbarButton>& button);
HostDocuments* newDocuments(const CorePtr& core);
HostDocument* newDocument(const CorePtr& core, const std::shared_ptr<Document>& document);
HostLayout* newLayout(const CorePtr& core, const std::shared_ptr<Document>& document,
                      const std::shared_ptr<Layout>& layout);
HostPlot* newPlot(const CorePtr& core, const std::shared_ptr<Document>& document);

}  // namespace sim::detail

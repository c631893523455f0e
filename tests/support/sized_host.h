// Hosts of a chosen size, for tests that count the host calls an operation makes. Every collection
// an operation walks holds as many entries as asked, and the entry the operations look for stands
// last, so that a walk which stops at it has passed all the others.
#pragma once

#include "sim/model.h"

namespace module_testing {

// How many of each a sized host holds. The fillers before the sought entry are numbered from 1.
struct HostSizes {
    int menuGroups = 1;       // "GROUP1" ... (without menus or toolbars), then kSoughtGroup
    int menus = 1;            // of kSoughtGroup: tagged "PM_OTHER1" ..., then its snap menu "PM_0001"
    int menuItems = 1;        // command items of every menu of kSoughtGroup, macros "_ITEM1" ...
    int toolbars = 1;         // of kSoughtGroup, all shown: "TB_OTHER1" ..., then kSoughtToolbar
    int buttons = 1;          // of every toolbar of kSoughtGroup: "ID_OTHER1" ..., then kSoughtButton
    int documents = 1;        // open drawings C:\Drawings\D1 ..., then kSoughtDrawing; the first active
    int menuBarMenus = 1;     // on the menu bar, menus of no group: "PM_BAR1" ..., then kSoughtBarMenuTag
    int pathFolders = 1;      // of the support path and of the printer style sheet path
    int searchPathFiles = 1;  // on the host's search path, the hatch pattern file among them
    int systemVariables = 0;  // besides the host's own: "VARIABLE1" ..., each 0
    // Each filler group holds one menu "PM_GROUP1" ..., and those stand on the menu bar before the
    // menus of no group, as when every group put its menu there.
    bool groupMenusOnMenuBar = false;
    bool groupToolbars = false;  // each filler group holds one toolbar "TB_GROUP1" ... with one button
    int menuFiles = 0;  // loadable, none loaded: "C:\Menus\FILE1.mnu" ... of groups "FILEGROUP1" ...

    // A host that grows in everything at once: n of each.
    static HostSizes allOf(int n);
};

extern const wchar_t* const kSoughtGroup;       // "MX", the group whose menus hold the snap menu
extern const wchar_t* const kSoughtToolbar;     // tag
extern const wchar_t* const kSoughtButton;      // tag
extern const wchar_t* const kSoughtDrawing;     // full file name
extern const wchar_t* const kDrawingToOpen;     // on disk, not open
extern const wchar_t* const kSoughtBarMenuTag;  // "PM_SOUGHT"

// The default host, strict about argument types, with its menu groups, menu bar, documents, search
// paths and search path files replaced by ones of the sizes asked for. Its registry, system
// variables and MX support folder stay the default host's.
sim::HostState sizedHost(const HostSizes& sizes);

// Where the sought entries stand in a sized host.
sim::MenuGroup& soughtGroupOf(sim::HostState& state);  // the last group
sim::PopupMenu& snapMenuOf(sim::HostState& state);     // the sought group's last menu
sim::Toolbar& soughtToolbarOf(sim::HostState& state);  // the sought group's last toolbar

// Appends to a snap menu a separator and `entries` entries "Entry 1" ... (macros "_ENTRY1" ...),
// as an addition of that many new entries leaves it.
void addSnapEntries(sim::PopupMenu& snapMenu, int entries);

}  // namespace module_testing

// What an MX product does with the host when it starts and when it shuts down: its folders go on
// the host's support path, its menu group is loaded and the group's menu goes on the menu bar.
#pragma once

#include "MxtArray"
#include "MxtString"
#include "ZORBAppUtilities.h"

namespace mx_startup {

struct Plan {
    MxtArray<MxtString> supportFolders;               // put on the support path, those missing
    MxtString menuFile;                               // the menu file that defines the group
    MxtString menuGroup;                              // the group's name, as the host names it
    MxtArray<ZORBAppUtilities::ZORBMenuItem> items;   // added to the group's menu
    long menuBarPosition = 0;                         // where the menu goes on the menu bar
};

struct Outcome {
    bool supportPathSet = false;  // the folders are all on the support path
    bool menuPlaced = false;      // the group is loaded and its menu was put on the menu bar
};

// Does what it can: a menu the host will not place leaves the support path set, and the other way
// round. Never throws for what the host refuses.
Outcome startUp(const Plan& plan);

// Takes the group's menu off the menu bar and unloads the group. False when the host refused.
bool shutDown(const Plan& plan);

}  // namespace mx_startup

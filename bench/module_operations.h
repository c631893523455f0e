// Every exported operation of the module, called so that each call leaves the host as it found
// it: what an operation added, removed or changed is put back by editing the host's state
// directly, which costs no host call and next to no time. Four leave the host as their first call
// left it, which every later call repeats exactly: setTemplateDwgPath, attachToolbarToFlyout,
// replaceToolbarButton (its new button stands in the old one's place and takes its tag back) and
// plotLayout (the plot settings; the plot job is cleared).
#pragma once

#include "sim/host.h"

#include "MxtArray"
#include "MxtString"

#include <memory>
#include <string>
#include <vector>

namespace module_bench {

// What the operations are asked for: names that the host holds (or, for the files and drawing to
// open, that it can load).
struct Targets {
    std::wstring group;            // loaded, with the snap menu "PM_0001" and `toolbar`
    std::wstring toolbar;          // tag, shown
    std::wstring button;           // tag of the last button of `toolbar`
    std::wstring openDrawing;      // full file name of an open drawing
    std::wstring drawingToOpen;    // on disk, not open
    std::wstring barMenuText;      // occurs in the tag of a menu on the menu bar
    std::wstring menuFileToLoad;   // of a group not loaded
    std::wstring menuFileToUnload; // of `group`
};

// The host's nodes that the operations change, found once, so that putting them back costs no
// walk.
struct Places {
    std::shared_ptr<sim::MenuGroup> group;
    std::shared_ptr<sim::PopupMenu> snapMenu;
    std::shared_ptr<sim::Toolbar> toolbar;
    std::shared_ptr<sim::Document> activeDocument;
    std::wstring supportPath;
    std::wstring printerStyleSheetPath;
};

struct Session {
    // `given`: how many folders the path operations, and how many entries the snap menu
    // operations, are given.
    Session(sim::Host& host, Targets targets, int given);

    sim::Host& host;
    Targets targets;
    Places places;
    // What the operations are given, made once, so that its making is not timed: folders that
    // are on no path, and snap entries "Entry 1" ... with macros "_ENTRY1" ..., which no item of
    // the benchmarks' hosts runs.
    MxtArray<MxtString> newFolders;
    MxtArray<MxtString> snapLabels;
    MxtArray<MxtString> snapMacros;
};

struct Operation {
    std::string name;
    void (*run)(Session&);
    // Arranges the host for the operation before it is timed; null when nothing is needed.
    void (*arrange)(Session&) = nullptr;
};

const std::vector<Operation>& operations();
const Operation& operationNamed(const std::string& name);

}  // namespace module_bench

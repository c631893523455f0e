// The parts a host view is made of, each an HTML fragment of the state now with its entries marked
// against the state before (html_view.h puts them together). A view without a state to compare
// with passes the same state twice.
#pragma once

#include "change_marks.h"

#include "sim/model.h"

#include <memory>
#include <string>

namespace zorbsim::html {

template <class Node> using NodeVersions = Versions<std::shared_ptr<Node>>;

// The class that marks an entry's element: " added", " removed", " changed", or nothing.
const char* changeClass(Change change);

// Which entries of two states are one entry, perhaps changed: groups by name, menus, toolbars and
// buttons by tag (by name where either has none).
bool sameGroup(const std::shared_ptr<sim::MenuGroup>& a, const std::shared_ptr<sim::MenuGroup>& b);
bool sameMenu(const std::shared_ptr<sim::PopupMenu>& a, const std::shared_ptr<sim::PopupMenu>& b);
bool sameToolbar(const std::shared_ptr<sim::Toolbar>& a, const std::shared_ptr<sim::Toolbar>& b);

// An openable menu (details.menu) with its items, separators and submenus; `note` is added to the
// hover text of its title.
std::string menuHtml(const NodeVersions<sim::PopupMenu>& menu, const std::string& note = {});
// The menu bar's menus in order, each openable.
std::string menuBarHtml(const sim::HostState& before, const sim::HostState& after);

// The window's toolbar areas around the drawing area: toolbars docked at their side, floating ones
// at their place, hidden ones marked; `drawing` is what the drawing area shows above the floating
// toolbars (the open documents).
std::string windowToolbarsHtml(const sim::HostState& before, const sim::HostState& after,
                               const std::string& drawing);
// A toolbar of a group's list: its place and visibility, and its buttons with their tags, bitmaps
// and flyouts.
std::string toolbarEntryHtml(const NodeVersions<sim::Toolbar>& toolbar);

// The open documents as the drawing area's tabs, the active one marked.
std::string documentTabsHtml(const sim::HostState& before, const sim::HostState& after);
// The open documents with their active layouts and plot settings, the active one marked.
std::string documentsHtml(const sim::HostState& before, const sim::HostState& after);
std::string plotJobsHtml(const sim::HostState& before, const sim::HostState& after);
std::string zoomRequestsHtml(const sim::HostState& before, const sim::HostState& after);

}  // namespace zorbsim::html

// A host state as a page shows it: the host's window (the menu bar with openable menus, toolbars
// docked at their side or floating at their place, the open documents), every loaded menu group
// with its menus and toolbars, the documents, system variables, preferences, plot jobs and zoom
// requests.
#pragma once

#include "sim/model.h"

#include <ostream>
#include <string>
#include <vector>

namespace zorbsim::html {

// `name` names the view in its page ("host", "before", "step-3"), so that "#open=NAME/menubar/&File"
// opens that menu. With `baseline`, every entry is marked against it: added, removed (shown where it
// stood) or changed.
void writeHostView(std::ostream& out, const std::string& name, const sim::HostState& state,
                   const sim::HostState* baseline = nullptr);

// The parts of what a view shows in which two states differ ("menu groups", "menu bar", "documents",
// ...), in the view's order.
std::vector<std::string> changedParts(const sim::HostState& before, const sim::HostState& after);

// The page of `zorbsim view`: the state of `source` (a file, or the built-in default host).
void writeViewPage(std::ostream& out, const sim::HostState& state, const std::string& source);

}  // namespace zorbsim::html

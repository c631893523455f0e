// The module's menu tests: a strict host with the MX menu files loadable, and ways to arrange and
// read its menus.
#pragma once

#include "support/faults.h"
#include "support/host_test.h"
#include "support/mxt_text.h"

#include <string>
#include <vector>

namespace module_testing {

extern const wchar_t* const kMXMenuFile;       // defines the group "MX"
extern const wchar_t* const kMXToolsMenuFile;  // defines the group "MXTOOLS"

// Loads the group a menu file of `state` defines, as the host would; gives the loaded group.
std::shared_ptr<sim::MenuGroup> loadGroupInto(sim::HostState& state, const wchar_t* menuFile);

class MenuTest : public ModuleTest {
protected:
    // Loads the group a menu file defines into the host as it stands, and clears the journal, so
    // that a test sees only its operation's host calls.
    std::shared_ptr<sim::MenuGroup> loadGroup(const wchar_t* menuFile);

    std::shared_ptr<sim::MenuGroup> loadedGroup(const std::wstring& name);

    // The items of a menu as "label" (commands), "---" (separators) or "label>" (submenus).
    static std::vector<std::wstring> entriesOf(const sim::PopupMenu& menu);
};

}  // namespace module_testing

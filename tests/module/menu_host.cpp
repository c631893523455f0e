#include "menu_host.h"

#include <algorithm>

namespace module_testing {

const wchar_t* const kMXMenuFile = L"C:\\Program Files\\MX\\Support\\MX";
const wchar_t* const kMXToolsMenuFile = L"C:\\Program Files\\MX\\Support\\MXTOOLS";

std::shared_ptr<sim::MenuGroup> loadGroupInto(sim::HostState& state, const wchar_t* menuFile)
{
    // A state holding only the file's group is cloned, so that the loaded group shares no node
    // with the file's.
    sim::HostState holder;
    holder.menuGroups = {state.menuFiles.at(menuFile)};
    const auto group = sim::clone(holder).menuGroups.front();
    state.menuGroups.push_back(group);
    return group;
}

std::shared_ptr<sim::MenuGroup> MenuTest::loadGroup(const wchar_t* menuFile)
{
    const auto group = loadGroupInto(state(), menuFile);
    host().journal().clear();
    return group;
}

std::shared_ptr<sim::MenuGroup> MenuTest::loadedGroup(const std::wstring& name)
{
    const auto& groups = state().menuGroups;
    const auto found =
        std::find_if(groups.begin(), groups.end(), [&](const auto& group) { return group->name == name; });
    return found == groups.end() ? nullptr : *found;
}

std::vector<std::wstring> MenuTest::entriesOf(const sim::PopupMenu& menu)
{
    std::vector<std::wstring> entries;
    for (const auto& item : menu.items) {
        switch (item->type) {
        case sim::ItemType::command:
            entries.push_back(item->label);
            break;
        case sim::ItemType::separator:
            entries.push_back(L"---");
            break;
        case sim::ItemType::submenu:
            entries.push_back(item->label + L">");
            break;
        }
    }
    return entries;
}

}  // namespace module_testing

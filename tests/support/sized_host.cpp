#include "support/sized_host.h"

#include "sim/host.h"

#include <memory>
#include <string>

namespace module_testing {

const wchar_t* const kSoughtGroup = L"MX";
const wchar_t* const kSoughtToolbar = L"TB_SOUGHT";
const wchar_t* const kSoughtButton = L"ID_SOUGHT";
const wchar_t* const kSoughtDrawing = L"C:\\Drawings\\SOUGHT.dwg";
const wchar_t* const kDrawingToOpen = L"C:\\Drawings\\NEW.dwg";
const wchar_t* const kSoughtBarMenuTag = L"PM_SOUGHT";

namespace {

const wchar_t* const kSnapMenuTag = L"PM_0001";

std::wstring numbered(const std::wstring& prefix, int number)
{
    return prefix + std::to_wstring(number);
}

// `count` texts: `filler` numbered from 1 for all but the last, and `sought` last.
std::vector<std::wstring> endingWith(int count, const std::wstring& filler, const std::wstring& sought)
{
    std::vector<std::wstring> texts;
    for (int number = 1; number < count; ++number)
        texts.push_back(numbered(filler, number));
    texts.push_back(sought);
    return texts;
}

std::shared_ptr<sim::PopupMenu> menu(const std::wstring& tag, int items)
{
    auto made = std::make_shared<sim::PopupMenu>();
    made->name = L"Menu " + tag;
    made->tag = tag;
    for (int number = 1; number <= items; ++number) {
        auto item = std::make_shared<sim::PopupMenuItem>();
        item->label = numbered(L"Item ", number);
        item->macro = numbered(L"_ITEM", number);
        made->items.push_back(item);
    }
    return made;
}

std::shared_ptr<sim::Toolbar> toolbar(const std::wstring& tag, int buttons)
{
    auto made = std::make_shared<sim::Toolbar>();
    made->name = L"Toolbar " + tag;
    made->tag = tag;
    for (const std::wstring& buttonTag : endingWith(buttons, L"ID_OTHER", kSoughtButton)) {
        auto button = std::make_shared<sim::ToolbarButton>();
        button->name = L"Button " + buttonTag;
        button->tag = buttonTag;
        made->buttons.push_back(button);
    }
    return made;
}

std::shared_ptr<sim::MenuGroup> soughtGroup(const HostSizes& sizes)
{
    auto group = std::make_shared<sim::MenuGroup>();
    group->name = kSoughtGroup;
    for (const std::wstring& tag : endingWith(sizes.menus, L"PM_OTHER", kSnapMenuTag))
        group->menus.push_back(menu(tag, sizes.menuItems));
    for (const std::wstring& tag : endingWith(sizes.toolbars, L"TB_OTHER", kSoughtToolbar))
        group->toolbars.push_back(toolbar(tag, sizes.buttons));
    return group;
}

std::wstring folderList(const std::wstring& prefix, int folders)
{
    std::wstring list = numbered(prefix, 1);
    for (int number = 2; number <= folders; ++number)
        list += L";" + numbered(prefix, number);
    return list;
}

}  // namespace

HostSizes HostSizes::allOf(int n)
{
    return {n, n, n, n, n, n, n, n, n};
}

sim::HostState sizedHost(const HostSizes& sizes)
{
    sim::HostState state = sim::defaultHostState();
    state.behaviour.strictArguments = true;

    state.menuGroups.clear();
    state.menuBar.clear();
    for (int number = 1; number < sizes.menuGroups; ++number) {
        auto group = std::make_shared<sim::MenuGroup>();
        group->name = numbered(L"GROUP", number);
        if (sizes.groupMenusOnMenuBar) {
            group->menus.push_back(menu(numbered(L"PM_GROUP", number), 0));
            state.menuBar.push_back(group->menus.back());
        }
        if (sizes.groupToolbars)
            group->toolbars.push_back(toolbar(numbered(L"TB_GROUP", number), 1));
        state.menuGroups.push_back(group);
    }
    state.menuGroups.push_back(soughtGroup(sizes));
    for (int number = 1; number <= sizes.menuFiles; ++number) {
        auto group = std::make_shared<sim::MenuGroup>();
        group->name = numbered(L"FILEGROUP", number);
        state.menuFiles[L"C:\\Menus\\FILE" + std::to_wstring(number) + L".mnu"] = group;
    }

    for (const std::wstring& tag : endingWith(sizes.menuBarMenus, L"PM_BAR", kSoughtBarMenuTag))
        state.menuBar.push_back(menu(tag, 0));

    state.documents.clear();
    state.drawingsOnDisk = {kDrawingToOpen};
    for (const std::wstring& name : endingWith(sizes.documents, L"C:\\Drawings\\D", kSoughtDrawing)) {
        auto document = std::make_shared<sim::Document>();
        document->fullFileName = name;
        document->activeLayout = std::make_shared<sim::Layout>();
        document->activeLayout->name = L"Layout1";
        document->activeLayout->plotType = 5;
        state.documents.push_back(document);
        state.drawingsOnDisk.push_back(name);
    }
    state.activeDocument = state.documents.front();

    // Short folders, so that a hundred of them with a folder added stay below both paths' limits.
    state.preferences.supportPath = folderList(L"S:\\", sizes.pathFolders);
    state.preferences.printerStyleSheetPath = folderList(L"P:\\", sizes.pathFolders);

    const std::wstring hatchFile = state.registryValues.at(L"FixedProfile\\General").at(L"HatchFile");
    state.searchPathFiles.clear();
    for (const std::wstring& file : endingWith(sizes.searchPathFiles, L"file", hatchFile))
        state.searchPathFiles[file] = L"C:\\Zorb\\Support\\" + file;
    for (int number = 1; number <= sizes.systemVariables; ++number)
        state.systemVariables[numbered(L"VARIABLE", number)] = 0;
    return state;
}

sim::MenuGroup& soughtGroupOf(sim::HostState& state)
{
    return *state.menuGroups.back();
}

sim::PopupMenu& snapMenuOf(sim::HostState& state)
{
    return *soughtGroupOf(state).menus.back();
}

sim::Toolbar& soughtToolbarOf(sim::HostState& state)
{
    return *soughtGroupOf(state).toolbars.back();
}

void addSnapEntries(sim::PopupMenu& snapMenu, int entries)
{
    auto& items = snapMenu.items;
    auto separator = std::make_shared<sim::PopupMenuItem>();
    separator->type = sim::ItemType::separator;
    items.push_back(separator);
    for (int number = 1; number <= entries; ++number) {
        auto entry = std::make_shared<sim::PopupMenuItem>();
        entry->label = numbered(L"Entry ", number);
        entry->macro = numbered(L"_ENTRY", number);
        items.push_back(entry);
    }
}

}  // namespace module_testing

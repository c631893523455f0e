// What a host call costs the simulated host itself, counted in entries of its collections looked
// at (Host::entriesExamined), on hosts of 10 and of 1,000 of what is walked. Each call checks that
// its object's node is still in the host; a real host answers an item at a position at once, so a
// walk of n entries must cost the host n times one call, not n² as a search of the collection per
// call would.
#include "sim_test.h"
#include "support/sized_host.h"

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

using namespace sim_testing;
using module_testing::HostSizes;

namespace {

// The deepest node a call checks is a toolbar button: its group, its toolbar and the button
// itself, one look each, and one more for each position in the journal's name of it.
constexpr long long kMostExaminedPerCall = 5;
// A name asked for costs a look at the first entry of that name, where the host last found it,
// for each of the (at most two) ways the collection names its entries.
constexpr long long kMostExaminedPerName = 2;
// Asked by name, a collection is read once to index it; a walk asks at most three collections.
constexpr long long kIndexingPasses = 3;

struct Walk {
    const char* name;
    // Makes the host n large in what the walk passes.
    void (*grow)(HostSizes& sizes, int n);
    // Reads one property of each of the n entries, as the module's walks do.
    std::function<void(int n)> walk;
    int namesPerCall = 0;  // names each call asks for
};

void PrintTo(const Walk& walk, std::ostream* out)
{
    *out << walk.name;
}

HostMenuGroupPtr soughtGroup()
{
    return group(module_testing::kSoughtGroup);
}

// The state as the walks read it: handed out for changes, it would have the host read it again.
const sim::HostState& unchanged()
{
    return std::as_const(*sim::Host::current()).state();
}

// Asks `collection` for each of `nodes` by the text `field` of it.
template <class Collection, class Nodes, class Node>
void askEachByName(const Collection& collection, const Nodes& nodes, std::wstring Node::*field)
{
    for (const auto& node : nodes)
        collection->Item(_variant_t(((*node).*field).c_str()));
}

const sim::MenuGroup& soughtGroupNode()
{
    return *unchanged().menuGroups.back();
}

const Walk kWalks[] = {
    {"groups", [](HostSizes& sizes, int n) { sizes.menuGroups = n; },
     [](int n) {
         HostMenuGroupsPtr groups = application()->GetMenuGroups();
         for (int i = 0; i < n; ++i)
             groups->Item(indexOf(VT_I4, i))->GetName();
     }},
    {"menus", [](HostSizes& sizes, int n) { sizes.menus = n; },
     [](int n) {
         HostPopupMenusPtr menus = soughtGroup()->GetMenus();
         for (int i = 0; i < n; ++i)
             menus->Item(indexOf(VT_I4, i))->GetTagString();
     }},
    {"items", [](HostSizes& sizes, int n) { sizes.menuItems = n; },
     [](int n) {
         HostPopupMenuPtr menu = soughtGroup()->GetMenus()->Item(indexOf(VT_I4, 0));
         for (int i = 0; i < n; ++i)
             menu->Item(indexOf(VT_I4, i))->GetMacro();
     }},
    // The snap removal's way: every item deleted at one position, each found there first.
    {"item_deletions", [](HostSizes& sizes, int n) { sizes.menuItems = n; },
     [](int n) {
         HostPopupMenuPtr menu = soughtGroup()->GetMenus()->Item(indexOf(VT_I4, 0));
         for (int i = 0; i < n; ++i)
             menu->Item(indexOf(VT_I4, 0))->Delete();
     }},
    {"toolbars", [](HostSizes& sizes, int n) { sizes.toolbars = n; },
     [](int n) {
         HostToolbarsPtr toolbars = soughtGroup()->GetToolbars();
         for (int i = 0; i < n; ++i)
             toolbars->Item(indexOf(VT_I4, i))->GetVisible();
     }},
    {"buttons", [](HostSizes& sizes, int n) { sizes.buttons = n; },
     [](int n) {
         HostToolbarPtr toolbar = soughtGroup()->GetToolbars()->Item(indexOf(VT_I4, 0));
         for (int i = 0; i < n; ++i)
             toolbar->Item(indexOf(VT_I4, i))->GetTagString();
     }},
    {"documents", [](HostSizes& sizes, int n) { sizes.documents = n; },
     [](int n) {
         HostDocumentsPtr documents = application()->GetDocuments();
         for (int i = 0; i < n; ++i)
             documents->Item(indexOf(VT_INT, i))->GetFullFileName();
     }},
    {"menu_bar", [](HostSizes& sizes, int n) { sizes.menuBarMenus = n; },
     [](int n) {
         HostMenuBarPtr bar = application()->GetMenuBar();
         for (int i = 0; i < n; ++i)
             bar->Item(indexOf(VT_I4, i))->GetTagString();
     }},
    // A menu bar of many groups' menus, and menus of no group behind them: each menu given names
    // its group, or that it has none, which must not cost a search of the groups.
    {"menu_bar_of_many_groups",
     [](HostSizes& sizes, int n) {
         sizes.menuGroups = n + 1;
         sizes.groupMenusOnMenuBar = true;
     },
     [](int n) {
         HostMenuBarPtr bar = application()->GetMenuBar();
         for (int i = 0; i < n; ++i)
             bar->Item(indexOf(VT_I4, i))->GetTagString();
     }},
    {"menu_bar_beside_many_groups",
     [](HostSizes& sizes, int n) {
         sizes.menuGroups = n + 1;
         sizes.groupMenusOnMenuBar = true;
         sizes.menuBarMenus = n;
     },
     [](int n) {
         HostMenuBarPtr bar = application()->GetMenuBar();
         for (int i = n; i < 2 * n; ++i)
             bar->Item(indexOf(VT_I4, i))->GetTagString();
     }},
    // Each entry asked for by its name, among n of its kind.
    {"groups_by_name", [](HostSizes& sizes, int n) { sizes.menuGroups = n; },
     [](int) {
         askEachByName(application()->GetMenuGroups(), unchanged().menuGroups, &sim::MenuGroup::name);
     },
     1},
    {"menus_by_name", [](HostSizes& sizes, int n) { sizes.menus = n; },
     [](int) { askEachByName(soughtGroup()->GetMenus(), soughtGroupNode().menus, &sim::PopupMenu::name); },
     1},
    {"items_by_label", [](HostSizes& sizes, int n) { sizes.menuItems = n; },
     [](int) {
         askEachByName(soughtGroup()->GetMenus()->Item(indexOf(VT_I4, 0)), soughtGroupNode().menus[0]->items,
                       &sim::PopupMenuItem::label);
     },
     1},
    {"toolbars_by_name", [](HostSizes& sizes, int n) { sizes.toolbars = n; },
     [](int) {
         askEachByName(soughtGroup()->GetToolbars(), soughtGroupNode().toolbars, &sim::Toolbar::name);
     },
     1},
    {"buttons_by_name", [](HostSizes& sizes, int n) { sizes.buttons = n; },
     [](int) {
         askEachByName(soughtGroup()->GetToolbars()->Item(indexOf(VT_I4, 0)),
                       soughtGroupNode().toolbars[0]->buttons, &sim::ToolbarButton::name);
     },
     1},
    {"menu_bar_by_name", [](HostSizes& sizes, int n) { sizes.menuBarMenus = n; },
     [](int) { askEachByName(application()->GetMenuBar(), unchanged().menuBar, &sim::PopupMenu::name); }, 1},
    // By full file name, by file name alone, and opened again: each made the active drawing.
    {"documents_by_name", [](HostSizes& sizes, int n) { sizes.documents = n; },
     [](int) {
         HostDocumentsPtr documents = application()->GetDocuments();
         askEachByName(documents, unchanged().documents, &sim::Document::fullFileName);
         for (const auto& document : unchanged().documents) {
             const std::wstring& full = document->fullFileName;
             documents->Item(_variant_t(full.substr(full.find_last_of(L'\\') + 1).c_str()));
             documents->Open(full.c_str());
         }
     },
     1},
    // Each load first makes sure that no loaded group has the new group's name.
    {"menu_file_loads_beside_many_groups",
     [](HostSizes& sizes, int n) {
         sizes.menuGroups = n;
         sizes.menuFiles = n;
     },
     [](int) {
         std::vector<std::wstring> files;
         for (const auto& [path, group] : unchanged().menuFiles)
             if (group->name.rfind(L"FILEGROUP", 0) == 0)
                 files.push_back(path);
         HostMenuGroupsPtr groups = application()->GetMenuGroups();
         for (const std::wstring& file : files)
             groups->LoadMenuFile(file.c_str(), _variant_t());
     },
     2},
    // A flyout names its toolbar by group and toolbar: every group's toolbar by name, and each of
    // the sought group's toolbars by tag.
    {"flyouts_among_many_groups_and_toolbars",
     [](HostSizes& sizes, int n) {
         sizes.menuGroups = n;
         sizes.groupToolbars = true;
         sizes.toolbars = n;
     },
     [](int) {
         HostToolbarItemPtr button =
             soughtGroup()->GetToolbars()->Item(indexOf(VT_I4, 0))->Item(indexOf(VT_I4, 0));
         for (const auto& group : unchanged().menuGroups)
             for (const auto& toolbar : group->toolbars)
                 button->AttachToolbarToFlyout(
                     group->name.c_str(),
                     (group == unchanged().menuGroups.back() ? toolbar->tag : toolbar->name).c_str());
     },
     2},
    // Each of a group's menus put on a menu bar of n menus and taken off again: neither asks for a
    // search of the menu bar for a menu that is not on it.
    {"menus_onto_and_off_the_menu_bar",
     [](HostSizes& sizes, int n) {
         sizes.menus = n;
         sizes.menuBarMenus = n;
     },
     [](int n) {
         HostPopupMenusPtr menus = soughtGroup()->GetMenus();
         for (int i = 0; i < n; ++i) {
             HostPopupMenuPtr menu = menus->Item(indexOf(VT_I4, i));
             menu->InsertInMenuBar(indexOf(VT_I4, n));
             menu->RemoveFromMenuBar();
         }
     }},
    // Every group unloaded, each taking its menu off a menu bar of the others' menus.
    {"unloads_off_a_menu_bar_of_many_groups",
     [](HostSizes& sizes, int n) {
         sizes.menuGroups = n;
         sizes.groupMenusOnMenuBar = true;
     },
     [](int n) {
         HostMenuGroupsPtr groups = application()->GetMenuGroups();
         for (int i = n - 1; i >= 0; --i)
             groups->Item(indexOf(VT_I4, i))->Unload();
     }},
    // By file name and by the full path found, as the host's SDK is asked.
    {"search_path_files", [](HostSizes& sizes, int n) { sizes.searchPathFiles = n; },
     [](int) {
         for (const auto& [name, path] : unchanged().searchPathFiles)
             for (const std::wstring* asked : {&name, &path}) {
                 ZbString found;
                 ASSERT_EQ(zbedFindFile(asked->c_str(), found), kZbNormal);
                 zbHeapFree(found.buffer);
             }
     },
     1},
    // Each variable read and set by its name, as the host's SDK is asked.
    {"system_variables", [](HostSizes& sizes, int n) { sizes.systemVariables = n; },
     [](int) {
         for (const auto& [name, value] : unchanged().systemVariables) {
             resbuf buffer{};
             ASSERT_EQ(zbedGetVar(name.c_str(), &buffer), kZbNormal);
             ASSERT_EQ(zbedSetVar(name.c_str(), &buffer), kZbNormal);
         }
     },
     1},
};

class CallCost : public SimTest, public ::testing::WithParamInterface<Walk> {};

TEST_P(CallCost, DoesNotGrowWithTheHost)
{
    for (const int n : {10, 1000}) {
        HostSizes sizes;
        GetParam().grow(sizes, n);
        state() = module_testing::sizedHost(sizes);
        clearHostCalls();
        const long long before = host().entriesExamined();
        GetParam().walk(n);
        const long long examined = host().entriesExamined() - before;
        const long long calls = static_cast<long long>(hostCallEntries().size());
        const long long perCall = kMostExaminedPerCall + kMostExaminedPerName * GetParam().namesPerCall;
        EXPECT_LE(examined, perCall * calls + kIndexingPasses * n)
            << "walking " << n << " " << GetParam().name << ": " << calls << " host calls looked at "
            << examined << " entries";
    }
}

INSTANTIATE_TEST_SUITE_P(Walks, CallCost, ::testing::ValuesIn(kWalks),
                         [](const auto& info) { return std::string(info.param.name); });

// A held object whose node moved (an entry was put before it) is found again at its new place and
// pays for the search once; one whose node left fails.
TEST_F(CallCost, AMovedNodeIsSearchedForOnce)
{
    HostSizes sizes;
    sizes.menuItems = 1000;
    state() = module_testing::sizedHost(sizes);
    HostPopupMenuPtr menu = soughtGroup()->GetMenus()->Item(indexOf(VT_I4, 0));
    HostPopupMenuItemPtr last = menu->Item(indexOf(VT_I4, 999));
    // Moved by one, it is found beside its seat: one look more than at its seat.
    menu->AddMenuItem(indexOf(VT_I4, 0), L"First", L"_first");
    long long before = host().entriesExamined();
    EXPECT_EQ(last->GetMacro(), _bstr_t(L"_ITEM1000"));
    EXPECT_LE(host().entriesExamined() - before, kMostExaminedPerCall + 1);

    // Moved further, it is searched for once, and found at its new seat after that.
    menu->AddMenuItem(indexOf(VT_I4, 0), L"Second", L"_second");
    menu->AddMenuItem(indexOf(VT_I4, 0), L"Third", L"_third");
    before = host().entriesExamined();
    EXPECT_EQ(last->GetMacro(), _bstr_t(L"_ITEM1000"));
    EXPECT_GT(host().entriesExamined() - before, 1000);
    before = host().entriesExamined();
    EXPECT_EQ(last->GetMacro(), _bstr_t(L"_ITEM1000"));
    EXPECT_LE(host().entriesExamined() - before, kMostExaminedPerCall);

    state().menuGroups.back()->menus.front()->items.pop_back();
    EXPECT_EQ(failureOf([&] { last->GetMacro(); }).Error(), E_FAIL);
}

// What a lookup by name answers follows every change the host makes, and any made directly in the
// state: the first entry of that name, letter case ignored, or none.
TEST_F(CallCost, AskedByNameTheFirstOfThatNameAnswersAfterEveryChange)
{
    HostSizes sizes;
    sizes.menuItems = 3;
    sizes.documents = 2;
    state() = module_testing::sizedHost(sizes);
    HostPopupMenuPtr menu = soughtGroup()->GetMenus()->Item(indexOf(VT_I4, 0));
    const auto macroOf = [&](const wchar_t* label) {
        return std::wstring(menu->Item(_variant_t(label))->GetMacro());
    };
    const auto refusedLabel = [&](const wchar_t* label) {
        return failureOf([&] { menu->Item(_variant_t(label)); }).Error();
    };
    EXPECT_EQ(macroOf(L"item 3"), L"_ITEM3");

    // A namesake put before the item answers instead of it, one put after it does not.
    HostPopupMenuItemPtr before = menu->AddMenuItem(indexOf(VT_I4, 1), L"ITEM 3", L"_before");
    menu->AddMenuItem(indexOf(VT_I4, 4), L"Item 3", L"_after");
    EXPECT_EQ(macroOf(L"Item 3"), L"_before");
    before->Delete();
    EXPECT_EQ(macroOf(L"Item 3"), L"_ITEM3");

    // A renamed item answers to its new name only, before a namesake that follows it.
    menu->Item(indexOf(VT_I4, 0))->PutLabel(L"Item 3");
    EXPECT_EQ(macroOf(L"Item 3"), L"_ITEM1");
    EXPECT_EQ(refusedLabel(L"Item 1"), DISP_E_BADINDEX);

    // Renamed directly in the state, the menu is read again.
    state().menuGroups.back()->menus.front()->items[0]->label = L"Other";
    EXPECT_EQ(macroOf(L"Item 3"), L"_ITEM3");
    EXPECT_EQ(macroOf(L"other"), L"_ITEM1");

    // A menu renamed, put on the menu bar and taken off it; a group unloaded.
    menu->PutName(L"Renamed");
    EXPECT_EQ(std::wstring(soughtGroup()->GetMenus()->Item(_variant_t(L"renamed"))->GetName()), L"Renamed");
    HostMenuBarPtr bar = application()->GetMenuBar();
    menu->InsertInMenuBar(indexOf(VT_I4, 0));
    EXPECT_EQ(std::wstring(bar->Item(_variant_t(L"RENAMED"))->GetName()), L"Renamed");
    menu->RemoveFromMenuBar();
    EXPECT_EQ(failureOf([&] { bar->Item(_variant_t(L"Renamed")); }).Error(), DISP_E_BADINDEX);
    soughtGroup()->Unload();
    EXPECT_EQ(failureOf([&] { group(module_testing::kSoughtGroup); }).Error(), DISP_E_BADINDEX);

    // A drawing closed is no longer open by its name; opened again, it is.
    HostDocumentsPtr documents = application()->GetDocuments();
    documents->Item(_variant_t(L"sought.DWG"))->Close();
    EXPECT_EQ(failureOf([&] { documents->Item(_variant_t(L"SOUGHT.dwg")); }).Error(), DISP_E_BADINDEX);
    documents->Open(module_testing::kSoughtDrawing);
    EXPECT_EQ(std::wstring(documents->Item(_variant_t(L"c:/drawings/sought.dwg"))->GetFullFileName()),
              module_testing::kSoughtDrawing);
}

}  // namespace

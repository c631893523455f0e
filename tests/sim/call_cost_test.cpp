// What a host call costs the simulated host itself, counted in entries of its collections looked
// at (Host::entriesExamined), on hosts of 10 and of 1,000 of what is walked. Each call checks that
// its object's node is still in the host; a real host answers an item at a position at once, so a
// walk of n entries must cost the host n times one call, not n² as a search of the collection per
// call would.
#include "sim_test.h"
#include "support/sized_host.h"

#include <functional>
#include <ostream>

using namespace sim_testing;
using module_testing::HostSizes;

namespace {

// The deepest node a call checks is a menu item: its group, its menu and the item itself, one
// look each, and one more for the item's position in the journal's name of it.
constexpr long long kMostExaminedPerCall = 4;

struct Walk {
    const char* name;
    // Makes the host n large in what the walk passes.
    void (*grow)(HostSizes& sizes, int n);
    // Reads one property of each of the n entries, as the module's walks do.
    std::function<void(int n)> walk;
};

void PrintTo(const Walk& walk, std::ostream* out)
{
    *out << walk.name;
}

HostMenuGroupPtr soughtGroup() { return group(module_testing::kSoughtGroup); }

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
        EXPECT_LE(examined, kMostExaminedPerCall * calls)
            << "walking " << n << " " << GetParam().name << ": " << calls << " host calls looked at " << examined
            << " entries";
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

}  // namespace

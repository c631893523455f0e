// Walking the host's collections through _NewEnum, as For Each does: what an enumeration gives,
// how it moves, what it sees of changes made while it walks, and what the journal, faults and
// reference counts make of it.
#include "sim_test.h"

#include <functional>
#include <vector>

using namespace sim_testing;

namespace {

// One of the host's collections on the default host with the MX group loaded and a second
// drawing open, read by position and by enumeration.
struct Collection {
    const char* name;
    std::function<IUnknownPtr()> enumeration;          // the collection's _NewEnum
    std::function<std::vector<std::wstring>()> names;  // of Item(0) to Item(Count - 1)
    std::function<std::wstring(IDispatch*)> nameOf;    // of a member an enumeration gave
};

template <class CollectionPtr, class Name>
std::vector<std::wstring> namesByPosition(CollectionPtr collection, Name name)
{
    std::vector<std::wstring> names;
    for (LONG i = 0; i < collection->GetCount(); ++i)
        names.push_back(std::wstring(name(collection->Item(indexOf(VT_I4, i)))));
    return names;
}

HostPopupMenuPtr fileMenu()
{
    return group(L"ZORB")->GetMenus()->Item(indexOf(VT_I4, 0));
}

HostToolbarPtr standardToolbar()
{
    return group(L"ZORB")->GetToolbars()->Item(indexOf(VT_I4, 0));
}

const Collection kCollections[] = {
    {"MenuGroups", [] { return application()->GetMenuGroups()->_NewEnum(); },
     [] {
         return namesByPosition(application()->GetMenuGroups(),
                                [](HostMenuGroupPtr g) { return g->GetName(); });
     },
     [](IDispatch* member) { return std::wstring(HostMenuGroupPtr(member)->GetName()); }},
    {"GroupMenus", [] { return group(L"ZORB")->GetMenus()->_NewEnum(); },
     [] {
         return namesByPosition(group(L"ZORB")->GetMenus(), [](HostPopupMenuPtr m) { return m->GetName(); });
     },
     [](IDispatch* member) { return std::wstring(HostPopupMenuPtr(member)->GetName()); }},
    {"MenuItems", [] { return fileMenu()->_NewEnum(); },
     [] { return namesByPosition(fileMenu(), [](HostPopupMenuItemPtr i) { return i->GetLabel(); }); },
     [](IDispatch* member) { return std::wstring(HostPopupMenuItemPtr(member)->GetLabel()); }},
    {"MenuBar", [] { return application()->GetMenuBar()->_NewEnum(); },
     [] {
         return namesByPosition(application()->GetMenuBar(), [](HostPopupMenuPtr m) { return m->GetName(); });
     },
     [](IDispatch* member) { return std::wstring(HostPopupMenuPtr(member)->GetName()); }},
    {"Toolbars", [] { return group(L"MX")->GetToolbars()->_NewEnum(); },
     [] {
         return namesByPosition(group(L"MX")->GetToolbars(), [](HostToolbarPtr t) { return t->GetName(); });
     },
     [](IDispatch* member) { return std::wstring(HostToolbarPtr(member)->GetName()); }},
    {"ToolbarButtons", [] { return standardToolbar()->_NewEnum(); },
     [] { return namesByPosition(standardToolbar(), [](HostToolbarItemPtr b) { return b->GetName(); }); },
     [](IDispatch* member) { return std::wstring(HostToolbarItemPtr(member)->GetName()); }},
    {"Documents", [] { return application()->GetDocuments()->_NewEnum(); },
     [] {
         return namesByPosition(application()->GetDocuments(),
                                [](HostDocumentPtr d) { return d->GetFullFileName(); });
     },
     [](IDispatch* member) { return std::wstring(HostDocumentPtr(member)->GetFullFileName()); }},
};

class Enumeration : public SimTest {
protected:
    void SetUp() override
    {
        loadMx();
        application()->GetDocuments()->Open(L"C:\\Projects\\Warehouse 12\\Drawings\\GA-002.dwg", _variant_t(),
                                            _variant_t());
        clearHostCalls();
    }

    // The names of the next `count` members, and what Next answered.
    struct Step {
        HRESULT status;
        std::vector<std::wstring> names;
    };
    static Step next(IEnumVARIANT* enumeration, ULONG count, const Collection& collection)
    {
        std::vector<VARIANT> items(count);
        ULONG fetched = 99;
        Step step{enumeration->Next(count, items.data(), &fetched), {}};
        EXPECT_LE(fetched, count);
        for (ULONG i = 0; i < count; ++i) {
            _variant_t item;
            item.Attach(items[i]);
            if (i < fetched) {
                EXPECT_EQ(V_VT(&item), VT_DISPATCH);
                step.names.push_back(collection.nameOf(V_DISPATCH(&item)));
            }
            else {
                EXPECT_EQ(V_VT(&item), VT_EMPTY);  // a slot not filled is left empty, owning nothing
            }
        }
        return step;
    }

    static IEnumVARIANTPtr enumerationOf(const Collection& collection)
    {
        IEnumVARIANTPtr enumeration = collection.enumeration();
        EXPECT_NE(enumeration, nullptr);
        return enumeration;
    }
};

class EveryCollection : public Enumeration, public testing::WithParamInterface<Collection> {};

std::vector<std::wstring> joined(std::vector<std::wstring> first, const std::vector<std::wstring>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

}  // namespace

TEST_P(EveryCollection, GivesItsMembersInTheOrderOfTheirPositions)
{
    const Collection& collection = GetParam();
    const std::vector<std::wstring> expected = collection.names();
    ASSERT_GT(expected.size(), 1u);

    IEnumVARIANTPtr oneByOne = enumerationOf(collection);
    std::vector<std::wstring> walked;
    for (Step step = next(oneByOne, 1, collection); step.status == S_OK; step = next(oneByOne, 1, collection))
        walked = joined(walked, step.names);
    EXPECT_EQ(walked, expected);

    // Asked for three at a time, the last step gives what is left and says so.
    IEnumVARIANTPtr inThrees = enumerationOf(collection);
    walked.clear();
    Step step = next(inThrees, 3, collection);
    for (; step.status == S_OK; step = next(inThrees, 3, collection))
        walked = joined(walked, step.names);
    EXPECT_EQ(step.status, S_FALSE);
    EXPECT_EQ(joined(walked, step.names), expected);

    oneByOne = nullptr;
    inThrees = nullptr;
    EXPECT_EQ(host().referencesHeld(), 0);
}

INSTANTIATE_TEST_SUITE_P(Host, EveryCollection, testing::ValuesIn(kCollections),
                         [](const testing::TestParamInfo<Collection>& info) { return info.param.name; });

TEST_F(Enumeration, SkipResetAndCloneMoveFromWhereItStands)
{
    const Collection& menus = kCollections[1];
    const std::vector<std::wstring> names = menus.names();
    ASSERT_GE(names.size(), 4u);
    IEnumVARIANTPtr walk = enumerationOf(menus);

    EXPECT_EQ(walk->Skip(2), S_OK);
    IEnumVARIANTPtr copy;
    ASSERT_EQ(walk->Clone(&copy), S_OK);
    EXPECT_EQ(next(walk, 1, menus).names, std::vector<std::wstring>{names[2]});
    // The copy goes on from where the original stood when it was made, on its own.
    EXPECT_EQ(next(copy, 2, menus).names, (std::vector<std::wstring>{names[2], names[3]}));
    EXPECT_EQ(next(walk, 1, menus).names, std::vector<std::wstring>{names[3]});

    EXPECT_EQ(walk->Skip(static_cast<ULONG>(names.size())), S_FALSE);
    EXPECT_EQ(next(walk, 1, menus).status, S_FALSE);
    EXPECT_EQ(walk->Reset(), S_OK);
    EXPECT_EQ(next(walk, 1, menus).names, std::vector<std::wstring>{names[0]});

    // One item needs no count back; more do.
    VARIANT item;
    EXPECT_EQ(walk->Next(1, &item, nullptr), S_OK);
    VariantClear(&item);
    VARIANT two[2];
    EXPECT_EQ(walk->Next(2, two, nullptr), E_POINTER);
    EXPECT_EQ(V_VT(&two[0]), VT_EMPTY);
    EXPECT_EQ(walk->Next(1, nullptr, nullptr), E_POINTER);

    walk = nullptr;
    copy = nullptr;
    EXPECT_EQ(host().referencesHeld(), 0);
}

TEST_F(Enumeration, SeesTheCollectionAsItIsAtEachStep)
{
    const Collection& items = kCollections[2];
    const std::vector<std::wstring> before = items.names();
    ASSERT_GE(before.size(), 4u);
    IEnumVARIANTPtr walk = enumerationOf(items);
    ASSERT_EQ(next(walk, 1, items).names, std::vector<std::wstring>{before[0]});

    // Deleting the member just given moves the rest up: the one after it is passed over, as a walk
    // by positions passes it over.
    fileMenu()->Item(indexOf(VT_I4, 0))->Delete();
    EXPECT_EQ(next(walk, 1, items).names, std::vector<std::wstring>{before[2]});

    // A member added at the end is given when the walk gets there.
    HostPopupMenuPtr menu = fileMenu();
    menu->AddMenuItem(indexOf(VT_I4, menu->GetCount()), L"Last", L"^C^C_LAST ");
    std::vector<std::wstring> rest;
    for (Step step = next(walk, 2, items); !step.names.empty(); step = next(walk, 2, items))
        rest = joined(rest, step.names);
    EXPECT_EQ(rest.back(), L"Last");
    EXPECT_EQ(rest.size(), before.size() - 2);

    // The collection gone, its enumeration fails as the collection does.
    IEnumVARIANTPtr groups = enumerationOf(kCollections[4]);
    group(L"MX")->Unload();
    VARIANT toolbar;
    ULONG fetched = 7;
    EXPECT_EQ(groups->Next(1, &toolbar, &fetched), E_FAIL);
    EXPECT_EQ(V_VT(&toolbar), VT_EMPTY);
    EXPECT_EQ(fetched, 0u);
    EXPECT_EQ(groups->Reset(), E_FAIL);
}

TEST_F(Enumeration, TheJournalShowsItsCallsOnItsCollection)
{
    IEnumVARIANTPtr walk = enumerationOf(kCollections[0]);
    IEnumVARIANTPtr copy;
    VARIANT items[3];
    ULONG fetched = 0;
    walk->Next(3, items, &fetched);
    for (ULONG i = 0; i < fetched; ++i)
        VariantClear(&items[i]);
    walk->Skip(1);
    walk->Reset();
    walk->Clone(&copy);

    EXPECT_EQ(hostCalls(),
              (std::vector<std::string>{"sdk.zbedGetZorbWinApp", "CWinApp.GetIDispatch",
                                        "HostApplication.get_MenuGroups", "HostMenuGroups._NewEnum",
                                        "IEnumVARIANT.Next", "IEnumVARIANT.Skip", "IEnumVARIANT.Reset",
                                        "IEnumVARIANT.Clone"}));
    const sim::JournalEntry& nextCall = hostCallEntries()[4];
    EXPECT_EQ(nextCall.object, "HostMenuGroups");
    EXPECT_EQ(nextCall.status, S_FALSE);
    ASSERT_EQ(nextCall.arguments.size(), 1u);
    EXPECT_EQ(nextCall.arguments[0].value, "3");
}

TEST_F(Enumeration, FaultsFailItsCallsAndLeaveNothingHeld)
{
    armFault(failingCall("IEnumVARIANT.Next"));
    IEnumVARIANTPtr walk = enumerationOf(kCollections[6]);
    VARIANT items[2];
    ULONG fetched = 5;
    EXPECT_EQ(walk->Next(2, items, &fetched), module_testing::kInjectedStatus);
    EXPECT_EQ(V_VT(&items[0]), VT_EMPTY);
    EXPECT_EQ(V_VT(&items[1]), VT_EMPTY);
    EXPECT_EQ(fetched, 0u);
    clearFaults();

    armFault(withheldObject("IEnumVARIANT.Clone"));
    IEnumVARIANT* copy = walk;  // cleared by the call
    EXPECT_EQ(walk->Clone(&copy), S_OK);
    EXPECT_EQ(copy, nullptr);

    armFault(failingCall("HostToolbar._NewEnum"));
    EXPECT_EQ(failureOf([] { standardToolbar()->_NewEnum(); }).Error(), module_testing::kInjectedStatus);

    walk = nullptr;
    EXPECT_EQ(host().referencesHeld(), 0);
}

TEST_F(Enumeration, HoldsItsCollectionWhileItLives)
{
    IEnumVARIANTPtr walk = enumerationOf(kCollections[0]);
    // The collection object was let go by the caller: the enumeration's own reference keeps it.
    EXPECT_EQ(host().referencesHeld(), 2);
    EXPECT_EQ(next(walk, 1, kCollections[0]).names, std::vector<std::wstring>{L"ZORB"});
    walk = nullptr;
    EXPECT_EQ(host().referencesHeld(), 0);
}

// How script engines call _NewEnum through IDispatch is the dispatch probe's; the probe cannot tell
// whether the member's flags are the right ones, only that both builds read the same.
TEST_F(Enumeration, IsHiddenFromThoseWhoListAnObjectsMembers)
{
    IDispatchPtr groups(application()->GetMenuGroups());
    ITypeInfoPtr typeInfo;
    ASSERT_EQ(groups->GetTypeInfo(0, LOCALE_USER_DEFAULT, &typeInfo), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(typeInfo->GetTypeAttr(&attributes), S_OK);
    WORD flags = 0;
    for (UINT f = 0; f < attributes->cFuncs; ++f) {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(typeInfo->GetFuncDesc(f, &function), S_OK);
        if (function->memid == DISPID_NEWENUM)
            flags = function->wFuncFlags;
        typeInfo->ReleaseFuncDesc(function);
    }
    typeInfo->ReleaseTypeAttr(attributes);
    EXPECT_EQ(flags, FUNCFLAG_FRESTRICTED | FUNCFLAG_FHIDDEN);
}

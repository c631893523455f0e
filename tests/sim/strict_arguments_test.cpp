// Strict arguments: a host that takes only the variant types its interface documents, and still
// takes every form a forgiving host coerces when it is not strict. Also where a menu addition
// beyond the end goes.
#include "sim_test.h"

#include <functional>

using namespace sim_testing;

namespace {

class StrictArguments : public SimTest {};

const wchar_t* const kDrawing = L"C:\\Projects\\Warehouse 12\\Drawings\\GA-002.dwg";

_variant_t missing()
{
    return _variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR);
}

_variant_t yesNo(VARIANT_BOOL value)
{
    return _variant_t(value, VT_BOOL);
}

// A layout list whose first index is `lowerBound`.
_variant_t layoutsFrom(LONG lowerBound)
{
    SAFEARRAYBOUND bound{1, lowerBound};
    _variant_t list;
    V_VT(&list) = VT_ARRAY | VT_BSTR;
    V_ARRAY(&list) = SafeArrayCreate(VT_BSTR, 1, &bound);
    SafeArrayPutElement(V_ARRAY(&list), &lowerBound, _bstr_t(L"Layout1").GetBSTR());
    return list;
}

HostPopupMenuPtr firstZorbMenu()
{
    return group(L"ZORB")->GetMenus()->Item(indexOf(VT_I4, 0));
}

struct WrongArgument {
    const char* what;
    HRESULT strictStatus;
    std::function<HRESULT()> call;  // the raw call, so that its status is seen as it is
};

std::vector<WrongArgument> wrongArguments()
{
    return {
        {"a menu group index of VT_I2", DISP_E_TYPEMISMATCH,
         [] {
             HostMenuGroupPtr found;
             return application()->GetMenuGroups()->raw_Item(indexOf(VT_I2, 0), &found);
         }},
        {"a menu item index of VT_INT", DISP_E_TYPEMISMATCH,
         [] {
             HostPopupMenuItemPtr found;
             return firstZorbMenu()->raw_Item(indexOf(VT_INT, 0), &found);
         }},
        {"a document index of VT_I4", DISP_E_TYPEMISMATCH,
         [] {
             HostDocumentPtr found;
             return application()->GetDocuments()->raw_Item(indexOf(VT_I4, 0), &found);
         }},
        {"adding a separator at a VT_INT index", DISP_E_TYPEMISMATCH,
         [] {
             HostPopupMenuItemPtr added;
             return firstZorbMenu()->raw_AddSeparator(indexOf(VT_INT, 0), &added);
         }},
        {"an enabled flag of 1", E_INVALIDARG,
         [] { return firstZorbMenu()->Item(indexOf(VT_I4, 0))->put_Enabled(1); }},
        {"a visibility of 1", E_INVALIDARG,
         [] { return group(L"ZORB")->GetToolbars()->Item(indexOf(VT_I4, 0))->put_Visible(1); }},
        {"a base-menu flag of VT_I2", DISP_E_TYPEMISMATCH,
         [] {
             HostMenuGroupPtr loaded;
             return application()->GetMenuGroups()->raw_LoadMenuFile(
                 _bstr_t(L"C:\\Program Files\\MX\\Support\\MX"), indexOf(VT_I2, 0), &loaded);
         }},
        {"a read-only flag of VT_BOOL", DISP_E_TYPEMISMATCH,
         [] {
             HostDocumentPtr opened;
             return application()->GetDocuments()->raw_Open(_bstr_t(kDrawing), yesNo(VARIANT_FALSE),
                                                            missing(), &opened);
         }},
        {"a read-only flag of VT_I2 1", E_INVALIDARG,
         [] {
             HostDocumentPtr opened;
             return application()->GetDocuments()->raw_Open(_bstr_t(kDrawing), indexOf(VT_I2, 1), missing(),
                                                            &opened);
         }},
        {"a password left out as an empty variant", DISP_E_TYPEMISMATCH,
         [] {
             HostDocumentPtr opened;
             return application()->GetDocuments()->raw_Open(_bstr_t(kDrawing), indexOf(VT_I2, 0),
                                                            _variant_t(), &opened);
         }},
        {"a layout list from index 1", E_INVALIDARG,
         [] { return application()->GetActiveDocument()->GetPlot()->raw_SetLayoutsToPlot(layoutsFrom(1)); }},
        {"a device left out as an empty variant", DISP_E_TYPEMISMATCH,
         [] {
             VARIANT_BOOL plotted = VARIANT_FALSE;
             return application()->GetActiveDocument()->GetPlot()->raw_PlotToDevice(_variant_t(), &plotted);
         }},
        // Last: it closes the active drawing.
        {"a save-changes flag of VT_I4", DISP_E_TYPEMISMATCH,
         [] { return application()->GetActiveDocument()->raw_Close(indexOf(VT_I4, 0), missing()); }},
    };
}

}  // namespace

TEST_F(StrictArguments, EachArgumentOfAnotherTypeOrValueIsRefusedOnlyByAStrictHost)
{
    state().drawingsOnDisk.push_back(kDrawing);
    for (const WrongArgument& wrong : wrongArguments()) {
        state().behaviour.strictArguments = true;
        const sim::HostState before = sim::clone(state());
        EXPECT_EQ(wrong.call(), wrong.strictStatus) << wrong.what;
        EXPECT_TRUE(state() == before) << wrong.what << " changed the host";
        state().behaviour.strictArguments = false;
        EXPECT_TRUE(SUCCEEDED(wrong.call())) << wrong.what << " on a forgiving host";
    }
}

TEST_F(StrictArguments, TheDocumentedFormsAreTakenAndTheRefusalSaysWhatWasExpected)
{
    state().behaviour.strictArguments = true;
    state().drawingsOnDisk.push_back(kDrawing);
    HostMenuGroupsPtr groups = application()->GetMenuGroups();
    EXPECT_EQ(groups->Item(indexOf(VT_I4, 0))->GetName(), _bstr_t(L"ZORB"));
    EXPECT_EQ(groups->Item(_variant_t(L"zorb"))->GetName(), _bstr_t(L"ZORB"));
    // An empty base-menu argument is documented as "not the base menu".
    EXPECT_NE(groups->LoadMenuFile(L"C:\\Program Files\\MX\\Support\\MX", _variant_t()), nullptr);
    HostDocumentPtr opened = application()->GetDocuments()->Open(kDrawing, indexOf(VT_I2, 0), missing());
    EXPECT_EQ(application()->GetDocuments()->Item(indexOf(VT_INT, 1))->GetFullFileName(), _bstr_t(kDrawing));
    opened->Close(indexOf(VT_I2, VARIANT_TRUE), _variant_t(kDrawing));

    _com_error refused = failureOf([&] { groups->Item(indexOf(VT_INT, 0)); });
    EXPECT_EQ(descriptionOf(refused),
              L"a menu group index is a whole number (VT_I4) or a name (VT_BSTR), not VT_INT");
}

TEST_F(StrictArguments, AdditionsBeyondTheEndOfAMenuAreRefusedOrAppendedAsTheHostIsSet)
{
    HostPopupMenuPtr file = firstZorbMenu();
    const LONG count = file->GetCount();
    EXPECT_EQ(failureOf([&] { file->AddSeparator(indexOf(VT_I4, count + 5)); }).Error(), E_INVALIDARG);
    EXPECT_EQ(file->GetCount(), count);

    state().behaviour.menuIndexBeyondEnd = sim::BeyondEnd::append;
    file->AddMenuItem(indexOf(VT_I4, count + 5), L"&Last", L"^C^C_last");
    file->AddSubMenu(indexOf(VT_I4, 1000), L"&Deep");
    ASSERT_EQ(file->GetCount(), count + 2);
    EXPECT_EQ(state().menuGroups[0]->menus[0]->items[count]->label, L"&Last");
    EXPECT_EQ(state().menuGroups[0]->menus[0]->items[count + 1]->label, L"&Deep");
    EXPECT_EQ(failureOf([&] { file->AddSeparator(indexOf(VT_I4, -1)); }).Error(), E_INVALIDARG);
    // A VT_I4 that holds more than 32 bits (where long is wider) is out of range, not appended.
    if (sizeof(long) > 4) {
        EXPECT_EQ(failureOf([&] { file->AddSeparator(indexOf(VT_I4, static_cast<long>(1LL << 32))); }).Error(),
                  DISP_E_OVERFLOW);
    }

    HostPopupMenuPtr mx = loadMx()->GetMenus()->Item(indexOf(VT_I4, 1));
    mx->InsertInMenuBar(indexOf(VT_I4, 99));
    EXPECT_EQ(state().menuBar.back(), state().menuGroups[1]->menus[1]);

    // Toolbar buttons are not menu items: beyond the end they are refused either way.
    HostToolbarPtr standard = group(L"ZORB")->GetToolbars()->Item(indexOf(VT_I4, 0));
    EXPECT_EQ(failureOf([&] { standard->AddButton(indexOf(VT_I4, 999), L"B", L"", L""); }).Error(),
              E_INVALIDARG);
}

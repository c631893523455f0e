// The host application driven by name, as MX code that takes the dispatch from getCADAppDispatch
// and calls IDispatch itself does: what it reaches and what the journal shows of it. What a call
// that goes wrong is told, case by case against the platform's dispatcher, is the dispatch probe's.
#include "ZORBAppUtilities.h"

#include "support/host_test.h"

#include "host/object_model.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using module_testing::ModuleTest;

namespace {

// What one call by name gave.
struct Outcome {
    HRESULT status = E_FAIL;
    _variant_t result;
};

// Calls `name` on `object` with `arguments` in the caller's order; a property put passes its value
// named DISPID_PROPERTYPUT, as every automation client does.
Outcome call(IDispatch* object, const wchar_t* name, WORD flags, std::vector<_variant_t> arguments = {})
{
    Outcome outcome;
    DISPID member = DISPID_UNKNOWN;
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    outcome.status = object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &member);
    if (FAILED(outcome.status))
        return outcome;
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPID putName = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    if (flags == DISPATCH_PROPERTYPUT) {
        parameters.rgdispidNamedArgs = &putName;
        parameters.cNamedArgs = 1;
    }
    outcome.status = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &outcome.result,
                                    nullptr, nullptr);
    return outcome;
}

Outcome get(IDispatch* object, const wchar_t* name, std::vector<_variant_t> arguments = {})
{
    return call(object, name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(arguments));
}

// The object a successful call gave, for the next call.
IDispatchPtr objectOf(const Outcome& outcome)
{
    EXPECT_EQ(outcome.status, S_OK);
    EXPECT_EQ(V_VT(&outcome.result), VT_DISPATCH);
    return V_VT(&outcome.result) == VT_DISPATCH ? IDispatchPtr(V_DISPATCH(&outcome.result)) : IDispatchPtr();
}

_variant_t shortNumber(SHORT value)
{
    _variant_t number;
    V_VT(&number) = VT_I2;
    V_I2(&number) = value;
    return number;
}

// A point as a script builds one: an array of variants.
_variant_t scriptPoint(double x, double y)
{
    _variant_t point;
    V_VT(&point) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(&point) = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    LONG at = 0;
    for (double coordinate : {x, y}) {
        _variant_t element(coordinate);
        SafeArrayPutElement(V_ARRAY(&point), &at, &element);
        ++at;
    }
    return point;
}

class LateBinding : public ModuleTest {
protected:
    void SetUp() override
    {
        IDispatch* dispatch = nullptr;
        ASSERT_EQ(ZORBAppUtilities::getCADAppDispatch(&dispatch), S_OK);
        m_application.Attach(dispatch);
        clearHostCalls();
    }
    void TearDown() override
    {
        m_application = nullptr;
        ModuleTest::TearDown();
    }

    IDispatch* application() { return m_application; }
    IDispatchPtr menuGroups() { return objectOf(get(application(), L"MenuGroups")); }

private:
    IDispatchPtr m_application;
};

TEST_F(LateBinding, TypeInformationDescribesTheInterfaceItServes)
{
    UINT count = 0;
    ASSERT_EQ(application()->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    ITypeInfoPtr typeInfo;
    ASSERT_EQ(application()->GetTypeInfo(0, LOCALE_USER_DEFAULT, &typeInfo), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(typeInfo->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(attributes->guid == __uuidof(HostApplication));
    EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FDUAL, 0);
    // The interface's own members, in the order of its vtable; those inherited are restricted.
    std::vector<std::wstring> names;
    for (UINT f = 0; f < attributes->cFuncs; ++f) {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(typeInfo->GetFuncDesc(f, &function), S_OK);
        if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0) {
            BSTR name = nullptr;
            UINT given = 0;
            ASSERT_EQ(typeInfo->GetNames(function->memid, &name, 1, &given), S_OK);
            names.push_back(static_cast<const wchar_t*>(_bstr_t(name, false)));
        }
        typeInfo->ReleaseFuncDesc(function);
    }
    typeInfo->ReleaseTypeAttr(attributes);
    EXPECT_EQ(names, (std::vector<std::wstring>{L"Preferences", L"MenuGroups", L"MenuBar", L"ActiveDocument",
                                                L"Documents", L"ZoomWindow"}));
    EXPECT_EQ(application()->GetTypeInfo(1, LOCALE_USER_DEFAULT, &typeInfo), DISP_E_BADINDEX);
}

TEST_F(LateBinding, ReachesTheHostByNameAsTheVtableDoes)
{
    // Names are found without regard to case, as scripts write them.
    const Outcome name = get(objectOf(get(menuGroups(), L"item", {shortNumber(0)})), L"NAME");
    ASSERT_EQ(name.status, S_OK);
    EXPECT_EQ(std::wstring(_bstr_t(name.result)), state().menuGroups[0]->name);

    const Outcome count = get(menuGroups(), L"Count");
    EXPECT_EQ(V_VT(&count.result), VT_I4);
    EXPECT_EQ(V_I4(&count.result), static_cast<LONG>(state().menuGroups.size()));

    IDispatchPtr files = objectOf(get(objectOf(get(application(), L"Preferences")), L"Files"));
    EXPECT_EQ(call(files, L"SupportPath", DISPATCH_PROPERTYPUT, {_variant_t(L"D:\\Support")}).status, S_OK);
    EXPECT_EQ(state().preferences.supportPath, L"D:\\Support");

    // A number written as text is coerced to the declared LONG; left out, an optional argument
    // reaches the host as the missing-argument variant.
    IDispatchPtr toolbar = objectOf(get(objectOf(get(objectOf(get(menuGroups(), L"Item", {_variant_t(L"ZORB")})),
                                                     L"Toolbars")),
                                        L"Item", {shortNumber(0)}));
    EXPECT_EQ(call(toolbar, L"Float", DISPATCH_METHOD, {_variant_t(L"120"), _variant_t(40L), shortNumber(2)}).status,
              S_OK);
    const sim::Toolbar& floated = *state().menuGroups[0]->toolbars[0];
    EXPECT_EQ(floated.top, 120);
    EXPECT_EQ(floated.left, 40);
    EXPECT_EQ(floated.floatingRows, 2);

    const Outcome loaded = get(menuGroups(), L"LoadMenuFile", {_variant_t(L"C:\\Program Files\\MX\\Support\\MX")});
    ASSERT_EQ(loaded.status, S_OK);
    EXPECT_EQ(state().menuGroups.back()->name, L"MX");

    EXPECT_EQ(call(application(), L"ZoomWindow", DISPATCH_METHOD, {scriptPoint(1, 2), scriptPoint(30, 40)}).status,
              S_OK);
    ASSERT_EQ(state().zoomRequests.size(), 1u);
    EXPECT_EQ(state().zoomRequests[0], (sim::ZoomRequest{1, 2, 30, 40}));
}

TEST_F(LateBinding, JournalMarksTheCallWithTheTypesThatArrived)
{
    IDispatchPtr groups = menuGroups();
    IDispatchPtr toolbars = objectOf(get(objectOf(get(groups, L"Item", {shortNumber(0)})), L"Toolbars"));
    clearHostCalls();
    // A strict host judges early-bound calls only: a script's VT_I2 index is taken.
    IDispatchPtr toolbar = objectOf(get(toolbars, L"Item", {shortNumber(0)}));
    ASSERT_EQ(call(toolbar, L"Dock", DISPATCH_METHOD, {shortNumber(2)}).status, S_OK);
    const auto& calls = hostCallEntries();
    ASSERT_EQ(calls.size(), 2u);
    // A VARIANT parameter passes as it came; a LONG one is coerced before the host sees it.
    EXPECT_EQ(sim::typedMethodOf(calls[0]), "HostToolbars.Item(VT_I2)");
    EXPECT_EQ(calls[0].lateBound, (std::vector<VARTYPE>{VT_I2}));
    EXPECT_EQ(sim::typedMethodOf(calls[1]), "HostToolbar.Dock(VT_I4)");
    EXPECT_EQ(calls[1].lateBound, (std::vector<VARTYPE>{VT_I2}));
    EXPECT_NE(sim::formatJournalLine(calls[1]).find("[late-bound: VT_I2]"), std::string::npos);

    // Through the vtable the call is early-bound: unmarked, and judged.
    clearHostCalls();
    HostToolbarsPtr typed;
    ASSERT_EQ(toolbars->QueryInterface(__uuidof(HostToolbars), reinterpret_cast<void**>(&typed)), S_OK);
    HostToolbarPtr found;
    EXPECT_EQ(typed->raw_Item(shortNumber(0), &found), DISP_E_TYPEMISMATCH);
    ASSERT_EQ(hostCallEntries().size(), 1u);
    EXPECT_FALSE(hostCallEntries()[0].lateBound);
}

TEST_F(LateBinding, ArgumentsOfAPropertyWithoutParametersGoOnToTheDefaultMemberOfWhatItGives)
{
    // app.MenuGroups("ZORB") in a script: MenuGroups takes no argument, so the group is the one
    // the collection's default member (Item) gives for it.
    const Outcome group = get(application(), L"MenuGroups", {_variant_t(L"ZORB")});
    const auto& calls = hostCallEntries();
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(sim::typedMethodOf(calls[0]), "HostApplication.get_MenuGroups()");
    EXPECT_EQ(calls[0].lateBound, std::vector<VARTYPE>{}) << "the argument is not the property's own";
    EXPECT_EQ(sim::typedMethodOf(calls[1]), "HostMenuGroups.Item(VT_BSTR)");
    EXPECT_EQ(calls[1].lateBound, (std::vector<VARTYPE>{VT_BSTR}));
    EXPECT_EQ(std::wstring(_bstr_t(get(objectOf(group), L"Name").result)), L"ZORB");

    // An argument beyond those of a member that gives no object is left unused.
    IDispatchPtr toolbar = objectOf(get(objectOf(get(objectOf(get(menuGroups(), L"Item", {shortNumber(0)})),
                                                     L"Toolbars")),
                                        L"Item", {shortNumber(0)}));
    clearHostCalls();
    EXPECT_EQ(call(toolbar, L"Dock", DISPATCH_METHOD, {shortNumber(1), shortNumber(2)}).status, S_OK);
    ASSERT_EQ(hostCallEntries().size(), 1u);
    EXPECT_EQ(hostCallEntries()[0].arguments[0].value, "1");
    EXPECT_EQ(hostCallEntries()[0].lateBound, (std::vector<VARTYPE>{VT_I2, VT_I2}));
}

}  // namespace

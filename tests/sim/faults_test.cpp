// Faults armed on the host: which calls they hit and what those calls then do.
#include "sim_test.h"

#include <stdexcept>

using namespace sim_testing;

namespace {

class Faults : public SimTest {};

}  // namespace

TEST_F(Faults, TheNthMatchingCallFailsWithTheStatusGiven)
{
    host().armFault(failingCall("HostMenuGroups.Item", 2, DISP_E_EXCEPTION));
    HostMenuGroupsPtr groups = application()->GetMenuGroups();
    groups->Item(indexOf(VT_I4, 0));
    _com_error second = failureOf([&] { groups->Item(indexOf(VT_I4, 0)); });
    EXPECT_EQ(second.Error(), DISP_E_EXCEPTION);
    EXPECT_FALSE(descriptionOf(second).empty());
    groups->Item(indexOf(VT_I4, 0));
    EXPECT_EQ(state().faults[0].matchingCallsSeen, 3);
    EXPECT_EQ(host().journal().entries().back().status, S_OK);
}

TEST_F(Faults, AFaultOnEveryCallCanBeLimitedToOneObject)
{
    loadMx();
    sim::Fault onMx = failingCall("HostMenuGroup.get_Name", 0, E_ACCESSDENIED);
    onMx.object = "'MX'";
    host().armFault(onMx);
    EXPECT_EQ(group(L"ZORB")->GetName(), _bstr_t(L"ZORB"));
    EXPECT_EQ(failureOf([] { group(L"MX")->GetName(); }).Error(), E_ACCESSDENIED);
    EXPECT_EQ(failureOf([] { group(L"MX")->GetName(); }).Error(), E_ACCESSDENIED);
    EXPECT_EQ(state().faults[0].matchingCallsSeen, 2);

    host().clearFaults();
    EXPECT_EQ(group(L"MX")->GetName(), _bstr_t(L"MX"));
}

TEST_F(Faults, ANullObjectFaultGivesNothingAndDoesNothing)
{
    host().armFault(withheldObject("HostPopupMenu.AddSeparator"));
    HostPopupMenuPtr snap = loadMx()->GetMenus()->Item(indexOf(VT_I4, 0));
    EXPECT_EQ(snap->AddSeparator(indexOf(VT_I4, 0)).GetInterfacePtr(), nullptr);
    EXPECT_EQ(snap->GetCount(), 10);
    EXPECT_EQ(host().journal().entries().back().status, S_OK);

    host().armFault(withheldObject("HostApplication.get_ActiveDocument"));
    EXPECT_EQ(application()->GetActiveDocument().GetInterfacePtr(), nullptr);
}

TEST_F(Faults, TheFrameworkObjectItsDispatchAndTheApplicationInterfaceCanBeWithheld)
{
    host().armFault(faultOfKind(sim::FaultKind::noFrameworkObject));
    EXPECT_EQ(zbedGetZorbWinApp(), nullptr);
    host().clearFaults();

    host().armFault(faultOfKind(sim::FaultKind::noDispatch));
    EXPECT_EQ(zbedGetZorbWinApp()->GetIDispatch(TRUE), nullptr);
    host().clearFaults();

    host().armFault(faultOfKind(sim::FaultKind::refuseApplicationInterface, 1));
    IDispatch* dispatch = zbedGetZorbWinApp()->GetIDispatch(TRUE);
    HostApplication* application = nullptr;
    EXPECT_EQ(dispatch->QueryInterface(__uuidof(HostApplication), reinterpret_cast<void**>(&application)),
              E_NOINTERFACE);
    EXPECT_EQ(application, nullptr);
    IDispatch* again = nullptr;
    EXPECT_EQ(dispatch->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&again)), S_OK);
    again->Release();
    EXPECT_EQ(dispatch->QueryInterface(__uuidof(HostApplication), reinterpret_cast<void**>(&application)),
              S_OK);
    application->Release();
    dispatch->Release();
}

TEST_F(Faults, SdkFunctionsReportAFailedCallAsTheirFailure)
{
    host().armFault(failingCall("sdk.zbedFindFile"));
    ZbString found;
    EXPECT_EQ(zbedFindFile(L"zorb.pat", found), kZbError);
    EXPECT_EQ(found.buffer, nullptr);
    host().armFault(failingCall("sdk.zbdbHostApplicationServices", 1));
    EXPECT_EQ(zbdbHostApplicationServices(), nullptr);
    EXPECT_NE(zbdbHostApplicationServices(), nullptr);
}

TEST_F(Faults, AFaultTheHostCannotHonourIsRefusedWhenArmed)
{
    EXPECT_THROW(host().armFault(failingCall("HostMenuGroups.Item", 0, S_OK)), std::invalid_argument);
    EXPECT_THROW(host().armFault(withheldObject("")), std::invalid_argument);
    EXPECT_THROW(host().armFault(failingCall("HostMenuGroups.Item", -1)), std::invalid_argument);
    EXPECT_TRUE(state().faults.empty());
}

TEST_F(Faults, StringAllocationFailsWhereTheRuntimeAllowsIt)
{
    const sim::Fault fault = faultOfKind(sim::FaultKind::failStringAllocation, 1);
    if (!sim::canFailRuntimeCalls()) {
        EXPECT_THROW(host().armFault(fault), std::logic_error);
        return;
    }
    HostMenuGroupPtr zorb = group(L"ZORB");
    host().armFault(fault);
    EXPECT_EQ(failureOf([&] { zorb->GetName(); }).Error(), E_OUTOFMEMORY);
    EXPECT_EQ(zorb->GetName(), _bstr_t(L"ZORB"));
}

// References callers hold on host objects, and objects that outlive their node or their host.
#include "sim_test.h"

#include <memory>
#include <stdexcept>

using namespace sim_testing;

namespace {

class References : public SimTest {};

}  // namespace

TEST_F(References, EveryReferenceACallerTakesIsCountedUntilReleased)
{
    EXPECT_EQ(host().referencesHeld(), 0);
    {
        HostApplicationPtr app = application();
        EXPECT_EQ(host().referencesHeld(), 1);
        HostMenuGroupsPtr groups = app->GetMenuGroups();
        HostMenuGroupPtr zorb = groups->Item(indexOf(VT_I4, 0));
        HostMenuGroupPtr copy = zorb;
        EXPECT_EQ(host().referencesHeld(), 4);
        ISupportErrorInfo* support = nullptr;
        ASSERT_EQ(zorb->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(&support)), S_OK);
        EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(HostMenuGroup)), S_OK);
        EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(HostToolbar)), S_FALSE);
        EXPECT_EQ(host().referencesHeld(), 5);
        support->Release();
    }
    EXPECT_EQ(host().referencesHeld(), 0);
}

TEST_F(References, KeptApplicationReferencesAreLetGoWithoutAHostCall)
{
    zbedGetZorbWinApp()->GetIDispatch(TRUE);  // kept, as zoomWindow keeps its reference
    host().journal().clear();
    EXPECT_THROW(host().releaseApplicationReferences(2), std::logic_error);
    EXPECT_EQ(host().referencesHeld(), 1);

    host().releaseApplicationReferences(1);

    EXPECT_EQ(host().referencesHeld(), 0);
    EXPECT_TRUE(host().journal().entries().empty());
    EXPECT_THROW(host().releaseApplicationReferences(1), std::logic_error);
}

TEST_F(References, AFailedCallGivesNoReference)
{
    HostMenuGroupsPtr groups = application()->GetMenuGroups();
    failureOf([&] { groups->Item(indexOf(VT_I4, 9)); });
    int somewhere = 0;
    HostMenuGroup* none = reinterpret_cast<HostMenuGroup*>(&somewhere);  // cleared by the failed call
    EXPECT_EQ(groups->raw_Item(indexOf(VT_I4, 9), &none), DISP_E_BADINDEX);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(groups->raw_Item(indexOf(VT_I4, 0), nullptr), E_POINTER);
    groups = nullptr;
    EXPECT_EQ(host().referencesHeld(), 0);
}

// The outputs of a call refused before it began (by a fault, or because its object's node left
// the host) are cleared all the same: a caller that reads them after a failure finds nothing.
TEST_F(References, ARefusedCallStillClearsItsOutputs)
{
    int somewhere = 0;
    HostMenuGroupPtr mx = loadMx();
    armFault(failingCall("HostMenuGroups.get_Count"));
    LONG count = 42;
    EXPECT_EQ(application()->GetMenuGroups()->get_Count(&count), module_testing::kInjectedStatus);
    EXPECT_EQ(count, 0);

    HostPopupMenuPtr menu = mx->GetMenus()->Item(indexOf(VT_I4, 0));
    mx->Unload();
    BSTR tag = reinterpret_cast<BSTR>(&somewhere);
    EXPECT_EQ(menu->get_TagString(&tag), E_FAIL);
    EXPECT_EQ(tag, nullptr);
    VARIANT_BOOL onMenuBar = VARIANT_TRUE;
    EXPECT_EQ(menu->get_OnMenuBar(&onMenuBar), E_FAIL);
    EXPECT_EQ(onMenuBar, VARIANT_FALSE);
    HostPopupMenuItem* item = reinterpret_cast<HostPopupMenuItem*>(&somewhere);
    EXPECT_EQ(menu->raw_Item(indexOf(VT_I4, 0), &item), E_FAIL);
    EXPECT_EQ(item, nullptr);
}

TEST(HostLifetime, AnObjectThatOutlivesItsHostFailsInsteadOfCrashing)
{
    auto host = std::make_unique<sim::Host>();
    HostMenuGroupPtr zorb = group(L"ZORB");
    HostMenuGroupsPtr groups = application()->GetMenuGroups();
    host.reset();
    EXPECT_EQ(failureOf([&] { zorb->GetName(); }).Error(), E_UNEXPECTED);
    LONG count = 3;
    EXPECT_EQ(groups->get_Count(&count), E_UNEXPECTED);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(zbedGetZorbWinApp(), nullptr);
}

TEST(HostLifetime, OnlyOneHostIsInstalledAtATime)
{
    sim::Host first;
    EXPECT_THROW(sim::Host second, std::logic_error);
    EXPECT_EQ(sim::Host::current(), &first);
}

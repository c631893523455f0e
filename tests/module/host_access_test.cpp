// The host's automation root as MX code that drives automation itself receives it.
#include "CADPlotUtilities.h"
#include "ZORBAppUtilities.h"

#include "support/host_test.h"
#include "support/mxt_text.h"

#include "host/object_model.h"

#include <gtest/gtest.h>

using module_testing::ModuleTest;
using module_testing::text;

namespace {

class HostAccess : public ModuleTest {};

IDispatch* const kNotWritten = reinterpret_cast<IDispatch*>(0x1);

TEST_F(HostAccess, DispatchBelongsToTheCallerAndLeadsToTheApplication)
{
    IDispatch* dispatch = kNotWritten;
    ASSERT_EQ(ZORBAppUtilities::getCADAppDispatch(&dispatch), S_OK);
    ASSERT_NE(dispatch, nullptr);
    ASSERT_NE(dispatch, kNotWritten);
    EXPECT_EQ(host().referencesHeld(), 1);

    HostApplicationPtr application;
    ASSERT_EQ(dispatch->QueryInterface(__uuidof(HostApplication), reinterpret_cast<void**>(&application)),
              S_OK);
    dispatch->Release();
    EXPECT_EQ(text(MxtString(application->GetPreferences()->GetFiles()->GetSupportPath())),
              state().preferences.supportPath);
}

TEST_F(HostAccess, DispatchQueryRefusesANullOutput)
{
    EXPECT_EQ(ZORBAppUtilities::getCADAppDispatch(nullptr), E_POINTER);
    EXPECT_TRUE(hostCalls().empty());
}

TEST_F(HostAccess, ApplicationIsTheTypedInterfaceWithAReferenceForTheCaller)
{
    HostApplicationPtr application(static_cast<HostApplication*>(ZORBAppUtilities::getCadApplication()),
                                   false);
    ASSERT_TRUE(application);
    EXPECT_EQ(host().referencesHeld(), 1);
    // The typed interface itself, usable without another query.
    state().preferences.drawingPath = L"D:\\Drawings";
    EXPECT_EQ(text(MxtString(application->GetPreferences()->GetFiles()->GetDrawingPath())), L"D:\\Drawings");
}

TEST_F(HostAccess, ExportedClassesAssignAsValues)
{
    // The assignments are exported from the module; code built against the classes links to them.
    ZORBAppUtilities utilities;
    ZORBAppUtilities other;
    EXPECT_EQ(&(utilities = other), &utilities);
    EXPECT_EQ(&(utilities = std::move(other)), &utilities);
    CADPlotUtilities plot;
    CADPlotUtilities otherPlot;
    EXPECT_EQ(&(plot = otherPlot), &plot);
    EXPECT_EQ(&(plot = std::move(otherPlot)), &plot);
}

}  // namespace

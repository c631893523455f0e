// Tests that fail on purpose, so that CTest can check what the test helper's fixture reports about
// them (tests/testing/CMakeLists.txt): leftovers, the host calls of a failed test, a state file
// that cannot be read, the values of failed comparisons, and silence when all is well.
#include "simtest/host_fixture.h"

#include "framework.h"
#include "host/sdk.h"

#include "MxtArray"
#include "MxtString"

#include <gtest/gtest.h>

namespace {

// Reaches the host the way MX code does: one host call for the framework object, one for its
// dispatch. The caller owns the reference.
IDispatch* takeApplication()
{
    return zbedGetZorbWinApp()->GetIDispatch(TRUE);
}

class Fixture : public simtest::HostFixture {};

TEST_F(Fixture, PassesAndPrintsNothing)
{
    takeApplication()->Release();
    EXPECT_EQ(hostCalls().size(), 2u);
}

TEST_F(Fixture, FailsAfterTwoHostCalls)
{
    takeApplication()->Release();
    ADD_FAILURE() << "failed on purpose";
}

// Holds the application through the fixture's check, and lets go of it only afterwards.
class KeepingAReference : public simtest::HostFixture {
protected:
    void TearDown() override
    {
        HostFixture::TearDown();
        m_kept->Release();
    }
    IDispatch* m_kept = nullptr;
};

TEST_F(KeepingAReference, IsReportedAsALeftover)
{
    m_kept = takeApplication();
}

class FromAMissingStateFile : public simtest::HostFixture {
protected:
    FromAMissingStateFile() : HostFixture("no-such-host.json") {}
};

TEST_F(FromAMissingStateFile, FailsNamingTheFile) {}

bool holdsNoFolders(const MxtArray<MxtString>& folders)
{
    return folders.getLength() == 0;
}

TEST(Printers, ShowTheValuesOfFailedComparisons)
{
    EXPECT_EQ(MxtString(L"C:\\MX\\Support"), MxtString(L"C:\\Zorb"));
    MxtArray<MxtString> folders;
    folders.add(MxtString(L"C:\\MX"));
    folders.add(MxtString(L"D:\\Plot Styles"));
    EXPECT_PRED1(holdsNoFolders, folders);
    EXPECT_EQ(_bstr_t(L"Größe A"), _bstr_t());
    EXPECT_EQ(_variant_t(42L), _variant_t(L"forty-two"));
}

}  // namespace

// The host SDK functions, and what the installed host puts into the process's environment.
#include "sim_test.h"

#include "MXSettings"
#include "MxtRegistry"

using namespace sim_testing;

namespace {

class Sdk : public SimTest {};

MxtString registryValue(const wchar_t* key, const wchar_t* name)
{
    MxtString value;
    if (!MxtRegistry::getRegValueCurrentUser(key, name, value, 1))
        return L"(none)";
    return value;
}

}  // namespace

TEST_F(Sdk, SystemVariablesAreReadAndSetAsShortValues)
{
    resbuf value;
    ASSERT_EQ(zbedGetVar(L"dwgcheck", &value), kZbNormal);
    EXPECT_EQ(value.restype, kZbShortValue);
    EXPECT_EQ(value.resval.rint, 1);
    value.resval.rint = 0;
    EXPECT_EQ(zbedSetVar(L"DWGCHECK", &value), kZbNormal);
    EXPECT_EQ(state().systemVariables[L"DWGCHECK"], 0);

    EXPECT_EQ(zbedGetVar(L"NOSUCHVAR", &value), kZbError);
    EXPECT_EQ(host().journal().entries().back().status, E_FAIL);
    resbuf real;
    real.restype = kZbRealValue;
    real.resval.rreal = 2.5;
    EXPECT_EQ(zbedSetVar(L"DWGCHECK", &real), kZbError);
    EXPECT_EQ(state().systemVariables[L"DWGCHECK"], 0);
    EXPECT_EQ(host().journal().entries().back().arguments[1].type, VT_R8);
}

TEST_F(Sdk, AFileOnTheSearchPathComesInAHostBufferGivenBackWithHeapFree)
{
    ZbString found;
    ASSERT_EQ(zbedFindFile(L"ZORB.PAT", found), kZbNormal);
    EXPECT_STREQ(found.buffer, L"C:\\Program Files\\Zorb 2026\\Support\\zorb.pat");
    EXPECT_EQ(host().buffersHeld(), 1);
    zbHeapFree(found.buffer);
    EXPECT_EQ(host().buffersHeld(), 0);
    EXPECT_EQ(host().journal().entries().back().status, S_OK);

    int local = 0;
    zbHeapFree(&local);  // not the host's: refused, not freed
    EXPECT_EQ(host().journal().entries().back().status, E_FAIL);

    ZbString missing;
    EXPECT_EQ(zbedFindFile(L"mx.pat", missing), kZbError);
    EXPECT_EQ(missing.buffer, nullptr);
}

TEST_F(Sdk, TheRegistryValuesAndTheSupportFolderAreInPlaceWhileTheHostIs)
{
    const wchar_t* root = zbdbHostApplicationServices()->getUserRegistryProductRootKey();
    EXPECT_STREQ(root, L"Software\\Zorb\\Zorb2026\\Profile-MX");
    const std::wstring general = std::wstring(root) + L"\\FixedProfile\\General";
    EXPECT_EQ(registryValue(root, L"ZorbLocation"), MxtString(L"C:\\Program Files\\Zorb 2026"));
    EXPECT_EQ(registryValue(general.c_str(), L"HatchFile"), MxtString(L"zorb.pat"));
    EXPECT_EQ(MXSettings::getInstance()->getPathSupport(), MxtString(L"C:\\Program Files\\MX\\Support"));

    state().registryValues[L"FixedProfile\\General"][L"HatchFile"] = L"steel.pat";
    state().mxSupportFolder = L"D:\\MX\\Support";
    host().syncEnvironment();
    EXPECT_EQ(registryValue(general.c_str(), L"HatchFile"), MxtString(L"steel.pat"));
    EXPECT_EQ(MXSettings::getInstance()->getPathSupport(), MxtString(L"D:\\MX\\Support"));
}

TEST(SdkWithoutHost, EveryFunctionReportsFailureAndTheEnvironmentIsCleanedUp)
{
    const MxtString supportBefore = MXSettings::getInstance()->getPathSupport();
    {
        sim::Host host;
    }
    EXPECT_EQ(registryValue(L"Software\\Zorb\\Zorb2026\\Profile-MX", L"ZorbLocation"), MxtString(L"(none)"));
    EXPECT_EQ(MXSettings::getInstance()->getPathSupport(), supportBefore);

    resbuf value;
    ZbString found;
    EXPECT_EQ(zbedGetZorbWinApp(), nullptr);
    EXPECT_EQ(zbedGetVar(L"DWGCHECK", &value), kZbError);
    EXPECT_EQ(zbedSetVar(L"DWGCHECK", &value), kZbError);
    EXPECT_EQ(zbedFindFile(L"zorb.pat", found), kZbError);
    EXPECT_EQ(zbdbHostApplicationServices(), nullptr);
}

// A key that was there before the host gets its values back; one that a simulated host left
// behind (its mark says so) is taken back as the host's own and removed.
TEST(SdkWithoutHost, AKeyThatWasThereBeforeTheHostIsLeftInPlaceUnlessASimulatedHostLeftIt)
{
    const wchar_t* root = L"Software\\MX simulated host test";  // right below a key that is there
    for (const wchar_t* otherValue : {L"Owner", L"MX.SimulatedHost"}) {
        SCOPED_TRACE(otherValue);
        const bool leftBehind = std::wstring(otherValue) == L"MX.SimulatedHost";
        MxtRegistry::setRegValueCurrentUser(root, L"ZorbLocation", L"E:\\Zorb");
        MxtRegistry::setRegValueCurrentUser(root, otherValue, L"someone");
        sim::HostState state = sim::defaultHostState();
        state.registryRootKey = root;
        {
            sim::Host host(std::move(state));
            EXPECT_EQ(registryValue(root, L"ZorbLocation"), MxtString(L"C:\\Program Files\\Zorb 2026"));
        }
        EXPECT_EQ(registryValue(root, L"ZorbLocation"), MxtString(leftBehind ? L"(none)" : L"E:\\Zorb"));
        EXPECT_EQ(registryValue(root, otherValue), MxtString(leftBehind ? L"(none)" : L"someone"));
        MxtRegistry::deleteKeyCurrentUser(root);
    }
}

TEST(SdkWithoutHost, AHostBufferCanBeGivenBackAfterItsHostWent)
{
    ZbString found;
    long held = 0;
    {
        sim::Host host;
        ASSERT_EQ(zbedFindFile(L"C:\\Program Files\\Zorb 2026\\Support\\zorb.lin", found), kZbNormal);
        held = host.buffersHeld();
    }
    sim::Host next;
    EXPECT_EQ(next.buffersHeld(), held);
    zbHeapFree(found.buffer);
    EXPECT_EQ(next.buffersHeld(), held - 1);
}

TEST(SdkWithoutHost, AHostWithoutARootKeyWritesNoRegistryValues)
{
    sim::HostState state = sim::defaultHostState();
    state.registryRootKey.clear();
    sim::Host host(std::move(state));
    EXPECT_EQ(registryValue(L"", L"ZorbLocation"), MxtString(L"(none)"));
    EXPECT_STREQ(zbdbHostApplicationServices()->getUserRegistryProductRootKey(), L"");
}

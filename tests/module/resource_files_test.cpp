// The host's installation folder and its resource files where the host's settings lack them.
#include "ZORBAppUtilities.h"

#include "support/faults.h"
#include "support/host_test.h"
#include "support/mxt_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

using namespace module_testing;

namespace {

const MxtString kUntouched(L"untouched");
const std::wstring kGeneralProfile = L"FixedProfile\\General";

// The host's per-user settings, as the registry holds them below the host's product root.
class HostResourceFiles : public ModuleTest {
protected:
    HostResourceFiles()
    {
        state().registryRootKey = L"Software\\Zorb\\R24.0\\ZORB-7001:409";
        state().registryValues[L""][L"ZorbLocation"] = L"C:\\Program Files\\Zorb 2024";
        state().registryValues[kGeneralProfile][L"LinetypeFile"] = L"zorbiso.lin";
        state().registryValues[kGeneralProfile][L"HatchFile"] = L"zorbiso.pat";
        state().searchPathFiles[L"zorbiso.pat"] = L"C:\\Program Files\\Zorb 2024\\Support\\zorbiso.pat";
        host().syncEnvironment();
    }

    void setHatchFileFoundAt(const std::wstring& foundPath)
    {
        state().searchPathFiles[L"zorbiso.pat"] = foundPath;
    }
};

// Each piece missing makes the answer false and leaves the output; the hatch file is searched for
// only when its registry value is there.
TEST_F(HostResourceFiles, MissingValuesOrFilesAreFalseAndLeaveTheOutput)
{
    MxtString path = kUntouched;
    // Read below the general profile, not the product root itself.
    EXPECT_FALSE(ZORBAppUtilities::getLinetypeFilePath(MxtString(L"ZorbLocation"), path));

    state().registryValues[L""].erase(L"ZorbLocation");
    state().searchPathFiles.clear();
    host().syncEnvironment();
    EXPECT_FALSE(ZORBAppUtilities::getCadProductLocation(path));
    const std::pair<bool (*)(const MxtString&, MxtString&), const wchar_t*> reads[] = {
        {ZORBAppUtilities::getLinetypeFilePath, L"NoSuchValue"},
        {ZORBAppUtilities::getHatchFilePath, L"NoSuchValue"},
        {ZORBAppUtilities::getHatchFilePath, L"HatchFile"},
    };
    for (const auto& [read, valueName] : reads)
        EXPECT_FALSE(read(MxtString(valueName), path)) << narrow(valueName);
    EXPECT_EQ(path, kUntouched);
    const std::vector<std::string> calls = hostCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "sdk.zbedFindFile"), 1);
}

TEST_F(HostResourceFiles, HatchFileFoundAtAPathOfTheHostLimitOrWithNoPathIsRefused)
{
    const std::wstring longest = textOfLength(259, L"C:\\Deep\\");
    setHatchFileFoundAt(longest);
    MxtString path = kUntouched;
    EXPECT_TRUE(ZORBAppUtilities::getHatchFilePath(MxtString(L"HatchFile"), path));
    EXPECT_EQ(text(path), longest);

    for (const std::size_t length : {260u, 1000u}) {
        setHatchFileFoundAt(textOfLength(length, L"C:\\Deep\\"));
        path = kUntouched;
        EXPECT_FALSE(ZORBAppUtilities::getHatchFilePath(MxtString(L"HatchFile"), path)) << length;
        EXPECT_EQ(path, kUntouched);
    }

    // A host that says it found the file yet gives no path has found nothing usable.
    setHatchFileFoundAt(longest);
    armFault(answering("sdk.zbedFindFile", nullAnswer()));
    EXPECT_FALSE(ZORBAppUtilities::getHatchFilePath(MxtString(L"HatchFile"), path));
    EXPECT_EQ(path, kUntouched);
}

}  // namespace

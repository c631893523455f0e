// The template and drawing folders, the host's installation folder and its resource files.
#include "ZORBAppUtilities.h"

#include "host_calls.h"
#include "support/host_test.h"
#include "support/mxt_text.h"

#include <gmock/gmock.h>

using namespace module_testing;
using ::testing::Contains;
using ::testing::ElementsAreArray;
using ::testing::Each;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

const MxtString kUntouched(L"untouched");
const std::wstring kGeneralProfile = L"FixedProfile\\General";

class TemplateAndDrawingPaths : public SimulatedHostTest {};

TEST_F(TemplateAndDrawingPaths, TemplateFolderIsWrittenToTheFilePreferences)
{
    EXPECT_TRUE(ZORBAppUtilities::setTemplateDwgPath(MxtString(L"D:\\MX\\Templates")));
    EXPECT_EQ(state().preferences.templateDrawingFolder, L"D:\\MX\\Templates");
    EXPECT_THAT(hostCalls(),
                ElementsAreArray(reachingPreferencesFiles({"HostPreferencesFiles.put_TemplateDrawingFolder"})));
    EXPECT_EQ(host().journal().entries().back().arguments.at(0).type, VT_BSTR);
}


TEST_F(TemplateAndDrawingPaths, DrawingPathReplacesTheOutput)
{
    state().preferences.drawingPath = L"D:\\Projects\\Bridge";
    MxtString path = kUntouched;
    EXPECT_TRUE(ZORBAppUtilities::getCadDrawingPath(path));
    EXPECT_EQ(text(path), L"D:\\Projects\\Bridge");
    EXPECT_THAT(hostCalls(), ElementsAreArray(reachingPreferencesFiles({"HostPreferencesFiles.get_DrawingPath"})));
}


// The host's per-user settings, as the registry holds them below the host's product root.
class HostResourceFiles : public SimulatedHostTest {
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

    void expectNoAutomation()
    {
        EXPECT_THAT(hostCalls(), Each(Not(StartsWith("Host")))) << "no automation object is involved";
    }
};

TEST_F(HostResourceFiles, ProductLocationIsReadUnderTheProductRoot)
{
    MxtString location = kUntouched;
    EXPECT_TRUE(ZORBAppUtilities::getCadProductLocation(location));
    EXPECT_EQ(text(location), L"C:\\Program Files\\Zorb 2024");
    expectNoAutomation();
}

TEST_F(HostResourceFiles, MissingValuesAreFalseAndLeaveTheOutput)
{
    state().registryValues[L""].erase(L"ZorbLocation");
    host().syncEnvironment();
    MxtString location = kUntouched;
    EXPECT_FALSE(ZORBAppUtilities::getCadProductLocation(location));
    EXPECT_EQ(location, kUntouched);

    MxtString path = kUntouched;
    EXPECT_FALSE(ZORBAppUtilities::getLinetypeFilePath(MxtString(L"NoSuchValue"), path));
    EXPECT_EQ(path, kUntouched);
}

TEST_F(HostResourceFiles, LinetypeFileIsTheRecordedTextWhetherOrNotTheFileExists)
{
    MxtString path;
    EXPECT_TRUE(ZORBAppUtilities::getLinetypeFilePath(MxtString(L"LinetypeFile"), path));
    EXPECT_EQ(text(path), L"zorbiso.lin");
    EXPECT_THAT(hostCalls(), Not(Contains("sdk.zbedFindFile")));

    // Read below the general profile, not the product root itself.
    EXPECT_FALSE(ZORBAppUtilities::getLinetypeFilePath(MxtString(L"ZorbLocation"), path));
}

TEST_F(HostResourceFiles, HatchFileIsFoundOnTheHostSearchPath)
{
    MxtString path = kUntouched;
    EXPECT_TRUE(ZORBAppUtilities::getHatchFilePath(MxtString(L"HatchFile"), path));
    EXPECT_EQ(text(path), L"C:\\Program Files\\Zorb 2024\\Support\\zorbiso.pat");
    EXPECT_THAT(hostCalls(), Contains("sdk.zbedFindFile"));
    expectNoAutomation();
}

TEST_F(HostResourceFiles, HatchFileWithoutARegistryValueIsNotSearchedFor)
{
    MxtString path = kUntouched;
    EXPECT_FALSE(ZORBAppUtilities::getHatchFilePath(MxtString(L"NoSuchValue"), path));
    EXPECT_EQ(path, kUntouched);
    EXPECT_THAT(hostCalls(), Not(Contains("sdk.zbedFindFile")));
}

TEST_F(HostResourceFiles, HatchFileNotOnTheSearchPathIsFalse)
{
    state().searchPathFiles.clear();
    MxtString path = kUntouched;
    EXPECT_FALSE(ZORBAppUtilities::getHatchFilePath(MxtString(L"HatchFile"), path));
    EXPECT_EQ(path, kUntouched);
    EXPECT_THAT(hostCalls(), Contains("sdk.zbedFindFile"));
}

TEST_F(HostResourceFiles, HatchFileFoundAtAPathOfTheHostLimitIsRefused)
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
}

}  // namespace

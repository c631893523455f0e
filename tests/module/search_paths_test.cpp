// The host's support path and printer style sheet path.
#include "CADPlotUtilities.h"
#include "ZORBAppUtilities.h"

#include "host_calls.h"
#include "support/faults.h"
#include "support/host_test.h"
#include "support/mxt_text.h"

#include "MxtGlobalStorage"

#include <gmock/gmock.h>

using namespace module_testing;
using sim::FaultKind;
using ::testing::ElementsAreArray;

namespace {

const MxtString kUntouched(L"untouched");

class SearchPaths : public SimulatedHostTest {
protected:
    SearchPaths()
    {
        state().preferences.supportPath = L"C:\\Zorb\\Support;C:\\Zorb\\Fonts";
        state().preferences.printerStyleSheetPath = L"C:\\Zorb\\Plot Styles";
        state().mxSupportFolder = L"D:\\MX\\Support";
        host().syncEnvironment();
    }

    ~SearchPaths() override { forgetRecordedSupportPath(); }

    static void forgetRecordedSupportPath()
    {
        delete MxtGlobalStorage::g_pZorbSupportPaths;
        MxtGlobalStorage::g_pZorbSupportPaths = nullptr;
    }

    // The text of the last host call's only argument, checked to have crossed as a string.
    std::wstring lastWrittenText()
    {
        const sim::JournalEntry& last = host().journal().entries().back();
        EXPECT_EQ(last.arguments.size(), 1u);
        EXPECT_EQ(last.arguments.at(0).type, VT_BSTR);
        return std::wstring(last.arguments.at(0).value.begin(), last.arguments.at(0).value.end());
    }
};

TEST_F(SearchPaths, SupportPathIsReadFromTheFilePreferences)
{
    EXPECT_EQ(text(ZORBAppUtilities::getCADAppSupportPath()), L"C:\\Zorb\\Support;C:\\Zorb\\Fonts");
    EXPECT_THAT(hostCalls(), ElementsAreArray(reachingPreferencesFiles({"HostPreferencesFiles.get_SupportPath"})));
}


TEST_F(SearchPaths, PlotStylePathIsReadIntoTheOutput)
{
    MxtString path = kUntouched;
    EXPECT_TRUE(ZORBAppUtilities::getPlotStylePath(path));
    EXPECT_EQ(text(path), L"C:\\Zorb\\Plot Styles");
    EXPECT_EQ(hostCalls().back(), "HostPreferencesFiles.get_PrinterStyleSheetPath");
}

TEST_F(SearchPaths, NewSupportFoldersAreWrittenOnceAsTheMergedPath)
{
    MxtString merged = kUntouched;
    EXPECT_TRUE(ZORBAppUtilities::addPathesToCADAppSupportPath(
        mxtStrings({L"D:\\MX\\Support", L"c:\\zorb\\fonts", L"D:\\MX\\Fonts"}), merged));
    const std::wstring expected = L"C:\\Zorb\\Support;C:\\Zorb\\Fonts;D:\\MX\\Support;D:\\MX\\Fonts";
    EXPECT_EQ(text(merged), expected);
    EXPECT_EQ(state().preferences.supportPath, expected);
    EXPECT_THAT(hostCalls(), ElementsAreArray(reachingPreferencesFiles(
                                 {"HostPreferencesFiles.get_SupportPath", "HostPreferencesFiles.put_SupportPath"})));
    EXPECT_EQ(lastWrittenText(), expected);
}

TEST_F(SearchPaths, NoFoldersToAddSucceedWithoutAskingTheHost)
{
    arm(faultOfKind(FaultKind::noFrameworkObject));
    MxtString merged = kUntouched;
    EXPECT_TRUE(ZORBAppUtilities::addPathesToCADAppSupportPath(MxtArray<MxtString>(), merged));
    EXPECT_EQ(merged, kUntouched);
    EXPECT_TRUE(hostCalls().empty());
}

TEST_F(SearchPaths, FoldersAlreadyPresentSucceedWithoutWriting)
{
    MxtString merged = kUntouched;
    EXPECT_TRUE(ZORBAppUtilities::addPathesToCADAppSupportPath(mxtStrings({L"c:\\ZORB\\support"}), merged));
    EXPECT_EQ(merged, kUntouched);
    EXPECT_EQ(hostCalls().back(), "HostPreferencesFiles.get_SupportPath");

    state().preferences.printerStyleSheetPath = L"C:\\Zorb\\Plot Styles;d:\\mx\\SUPPORT";
    EXPECT_TRUE(ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath(merged));
    EXPECT_EQ(merged, kUntouched);
    EXPECT_EQ(hostCalls().back(), "HostPreferencesFiles.get_PrinterStyleSheetPath");
}

// Each path has its own limit: a merged path one character below it is written, one at it is
// refused without a write.
struct LimitCase {
    const char* name;
    std::wstring sim::PreferencesFiles::*path;
    std::size_t refusedLength;
    bool (*add)(MxtString& merged);
};

class SearchPathLimits : public SearchPaths, public ::testing::WithParamInterface<LimitCase> {};

TEST_P(SearchPathLimits, MergedPathBelowTheLimitIsWrittenAndAtTheLimitRefused)
{
    const LimitCase& limit = GetParam();
    const std::wstring folder = L"D:\\MX\\Support";
    for (const std::size_t mergedLength : {limit.refusedLength - 1, limit.refusedLength}) {
        SCOPED_TRACE(mergedLength);
        const std::wstring current = textOfLength(mergedLength - 1 - folder.size(), L"C:\\");
        state().preferences.*limit.path = current;
        MxtString merged = kUntouched;
        const bool written = mergedLength < limit.refusedLength;
        EXPECT_EQ(limit.add(merged), written);
        EXPECT_EQ(state().preferences.*limit.path, written ? current + L";" + folder : current);
        EXPECT_EQ(text(merged), written ? current + L";" + folder : text(kUntouched));
    }
}

INSTANTIATE_TEST_SUITE_P(
    BothPaths, SearchPathLimits,
    ::testing::Values(
        LimitCase{"SupportPath", &sim::PreferencesFiles::supportPath, 2048,
                  [](MxtString& merged) {
                      return ZORBAppUtilities::addPathesToCADAppSupportPath(mxtStrings({L"D:\\MX\\Support"}), merged);
                  }},
        LimitCase{"PrinterStyleSheetPath", &sim::PreferencesFiles::printerStyleSheetPath, 1050,
                  [](MxtString& merged) { return ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath(merged); }}),
    [](const ::testing::TestParamInfo<LimitCase>& info) { return std::string(info.param.name); });

TEST_F(SearchPaths, MXSupportFolderIsAddedToThePrinterStyleSheetPath)
{
    MxtString merged = kUntouched;
    EXPECT_TRUE(ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath(merged));
    EXPECT_EQ(text(merged), L"C:\\Zorb\\Plot Styles;D:\\MX\\Support");
    EXPECT_EQ(state().preferences.printerStyleSheetPath, L"C:\\Zorb\\Plot Styles;D:\\MX\\Support");
    EXPECT_THAT(hostCalls(), ElementsAreArray(reachingPreferencesFiles(
                                 {"HostPreferencesFiles.get_PrinterStyleSheetPath",
                                  "HostPreferencesFiles.put_PrinterStyleSheetPath"})));
    EXPECT_EQ(lastWrittenText(), L"C:\\Zorb\\Plot Styles;D:\\MX\\Support");
}

TEST_F(SearchPaths, PlotInterfaceRecordsWhatItAddedToTheSupportPath)
{
    MxtGlobalStorage::g_pZorbSupportPaths = new MxtString(L"from an earlier call");
    EXPECT_TRUE(CADPlotUtilities::addPathesToCADAppSupportPath(mxtStrings({L"D:\\MX\\Support"})));
    ASSERT_NE(MxtGlobalStorage::g_pZorbSupportPaths, nullptr);
    EXPECT_EQ(text(*MxtGlobalStorage::g_pZorbSupportPaths), L"C:\\Zorb\\Support;C:\\Zorb\\Fonts;D:\\MX\\Support");

    // Nothing to add is success too, and then nothing was added.
    EXPECT_TRUE(CADPlotUtilities::addPathesToCADAppSupportPath(mxtStrings({L"d:\\mx\\support"})));
    ASSERT_NE(MxtGlobalStorage::g_pZorbSupportPaths, nullptr);
    EXPECT_EQ(text(*MxtGlobalStorage::g_pZorbSupportPaths), L"");
}



}  // namespace

// The host's support path and printer style sheet path.
#include "CADPlotUtilities.h"
#include "ZORBAppUtilities.h"

#include "support/faults.h"
#include "support/host_test.h"
#include "support/mxt_text.h"

#include "MxtGlobalStorage"

#include <gmock/gmock.h>

using namespace module_testing;
using sim::FaultKind;

namespace {

const MxtString kUntouched(L"untouched");

class SearchPaths : public ModuleTest {
protected:
    SearchPaths()
    {
        state().preferences.supportPath = L"C:\\Zorb\\Support;C:\\Zorb\\Fonts";
        state().preferences.printerStyleSheetPath = L"C:\\Zorb\\Plot Styles";
        state().mxSupportFolder = L"D:\\MX\\Support";
        host().syncEnvironment();
    }

    ~SearchPaths() override
    {
        delete MxtGlobalStorage::g_pZorbSupportPaths;
        MxtGlobalStorage::g_pZorbSupportPaths = nullptr;
    }
};

TEST_F(SearchPaths, NoFoldersToAddSucceedWithoutAskingTheHost)
{
    armFault(faultOfKind(FaultKind::noFrameworkObject));
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
TEST_F(SearchPaths, MergedPathBelowTheLimitIsWrittenAndAtTheLimitRefused)
{
    const struct {
        std::wstring sim::PreferencesFiles::*path;
        std::size_t refusedLength;
        bool (*add)(MxtString& merged);
    } limits[] = {
        {&sim::PreferencesFiles::supportPath, 2048,
         [](MxtString& merged) {
             return ZORBAppUtilities::addPathesToCADAppSupportPath(mxtStrings({L"D:\\MX\\Support"}), merged);
         }},
        {&sim::PreferencesFiles::printerStyleSheetPath, 1050,
         ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath},
    };
    const std::wstring folder = L"D:\\MX\\Support";
    for (const auto& limit : limits) {
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
}

// The path written is recorded (the fault sweep sees a folder added); nothing to add is success
// too, and then the record is empty.
TEST_F(SearchPaths, PlotInterfaceRecordsThatNothingWasAdded)
{
    MxtGlobalStorage::g_pZorbSupportPaths = new MxtString(L"from an earlier call");
    EXPECT_TRUE(CADPlotUtilities::addPathesToCADAppSupportPath(mxtStrings({L"c:\\zorb\\FONTS"})));
    ASSERT_NE(MxtGlobalStorage::g_pZorbSupportPaths, nullptr);
    EXPECT_EQ(text(*MxtGlobalStorage::g_pZorbSupportPaths), L"");
}

}  // namespace

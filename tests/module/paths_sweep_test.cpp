// The fault sweep of the search paths and resource files.
#include "answering_operation.h"

#include "CADPlotUtilities.h"
#include "ZORBAppUtilities.h"

#include "support/mxt_text.h"

#include "MxtGlobalStorage"

using namespace module_testing;

namespace {

using FH = FailureHandling;

void supportPathWithMX(sim::PreferencesFiles& files)
{
    files.supportPath = kSupportPathWithMX;
}
void printerPathWithMX(sim::PreferencesFiles& files)
{
    files.printerStyleSheetPath = kPrinterPathWithMX;
}

// The support path that the plot interface's operation records, read and then withdrawn so that
// no run sees another's.
MxtString takeRecordedSupportPath()
{
    const MxtString recorded = MxtGlobalStorage::g_pZorbSupportPaths != nullptr
                                   ? *MxtGlobalStorage::g_pZorbSupportPaths
                                   : MxtString(L"(none)");
    delete MxtGlobalStorage::g_pZorbSupportPaths;
    MxtGlobalStorage::g_pZorbSupportPaths = nullptr;
    return recorded;
}

std::vector<SweptOperation> pathOperations()
{
    const std::wstring supportPathWithTwoFolders = kSupportPathWithMX + L";D:\\MX\\Fonts";
    return {
        answeringOperation(
            "preparePathes", FH::propagated,
            [](MxtString& merged) {
                _bstr_t path;
                ZORBAppUtilities::preparePathes(mxtStrings({L"C:\\ZORB\\FONTS", L"D:\\MX\\Support"}),
                                                _bstr_t(kSupportPath.c_str()), path);
                merged = path;
                return true;
            },
            {}, kSupportPathWithMX),
        answeringOperation(
            "getCADAppSupportPath", FH::caught,
            [](MxtString& path) {
                path = ZORBAppUtilities::getCADAppSupportPath();
                return !path.isEmpty();
            },
            reachingPreferencesFiles({"HostPreferencesFiles.get_SupportPath"}), kSupportPath, nullptr, L""),
        answeringOperation("getPlotStylePath", FH::caught, ZORBAppUtilities::getPlotStylePath,
                           reachingPreferencesFiles({"HostPreferencesFiles.get_PrinterStyleSheetPath"}),
                           kPrinterStyleSheetPath),
        answeringOperation(
            "ZORBAppUtilities::addPathesToCADAppSupportPath", FH::caught,
            [](MxtString& merged) {
                return ZORBAppUtilities::addPathesToCADAppSupportPath(
                    mxtStrings({L"D:\\MX\\Support", L"c:\\zorb\\fonts", L"D:\\MX\\Fonts"}), merged);
            },
            reachingPreferencesFiles(
                {"HostPreferencesFiles.get_SupportPath", "HostPreferencesFiles.put_SupportPath(VT_BSTR)"}),
            supportPathWithTwoFolders,
            [supportPathWithTwoFolders](sim::PreferencesFiles& files) {
                files.supportPath = supportPathWithTwoFolders;
            }),
        answeringOperation("ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath", FH::caught,
                           ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath,
                           reachingPreferencesFiles({"HostPreferencesFiles.get_PrinterStyleSheetPath",
                                                     "HostPreferencesFiles.put_PrinterStyleSheetPath"}),
                           kPrinterPathWithMX, printerPathWithMX),
        // The plot interface's operations have no handler of their own, but only forward to
        // operations that catch: nothing reaches their callers either.
        answeringOperation(
            "CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath", FH::caught,
            [](MxtString&) { return CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath(); },
            reachingPreferencesFiles({"HostPreferencesFiles.get_PrinterStyleSheetPath",
                                      "HostPreferencesFiles.put_PrinterStyleSheetPath"}),
            kUntouched, printerPathWithMX),
        // The support path it added is recorded; after a failure the earlier record stays.
        answeringOperation(
            "CADPlotUtilities::addPathesToCADAppSupportPath", FH::caught,
            [](MxtString& recorded) {
                MxtGlobalStorage::g_pZorbSupportPaths = new MxtString(L"earlier");
                const bool answer =
                    CADPlotUtilities::addPathesToCADAppSupportPath(mxtStrings({L"D:\\MX\\Support"}));
                recorded = takeRecordedSupportPath();
                return answer;
            },
            reachingPreferencesFiles(
                {"HostPreferencesFiles.get_SupportPath", "HostPreferencesFiles.put_SupportPath"}),
            kSupportPathWithMX, supportPathWithMX, L"earlier"),
        answeringOperation(
            "setTemplateDwgPath", FH::caught,
            [](MxtString&) { return ZORBAppUtilities::setTemplateDwgPath(MxtString(L"D:\\MX\\Templates")); },
            reachingPreferencesFiles({"HostPreferencesFiles.put_TemplateDrawingFolder"}), kUntouched,
            [](sim::PreferencesFiles& files) { files.templateDrawingFolder = L"D:\\MX\\Templates"; }),
        answeringOperation("getCadDrawingPath", FH::caught, ZORBAppUtilities::getCadDrawingPath,
                           reachingPreferencesFiles({"HostPreferencesFiles.get_DrawingPath"}),
                           L"D:\\Projects", nullptr, L""),
        // The registry and the search path are reached without automation objects.
        answeringOperation("getCadProductLocation", FH::propagated, ZORBAppUtilities::getCadProductLocation,
                           readingRegistry(), L"C:\\Program Files\\Zorb 2024"),
        answeringOperation(
            "getLinetypeFilePath", FH::propagated,
            [](MxtString& path) {
                return ZORBAppUtilities::getLinetypeFilePath(MxtString(L"LinetypeFile"), path);
            },
            readingRegistry(), L"zorbiso.lin"),
        answeringOperation(
            "getHatchFilePath", FH::propagated,
            [](MxtString& path) { return ZORBAppUtilities::getHatchFilePath(MxtString(L"HatchFile"), path); },
            readingRegistry({"sdk.zbedFindFile(VT_LPWSTR)", "sdk.zbHeapFree(VT_PTR)"}),
            L"C:\\Program Files\\Zorb 2024\\Support\\zorbiso.pat"),
    };
}

INSTANTIATE_TEST_SUITE_P(Paths, FaultSweep, ::testing::ValuesIn(pathOperations()),
                         [](const auto& info) { return sweptOperationName(info.param); });

}  // namespace

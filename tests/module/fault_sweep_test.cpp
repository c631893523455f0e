// Every operation of the module, run undisturbed and then failed at each host call, each withheld
// object, each step to the application and each automation string allocation: it makes the host
// calls it should, answers as its failure handling says and leaves nothing behind.
#include "CADPlotUtilities.h"
#include "ZORBAppUtilities.h"

#include "support/fault_sweep.h"
#include "support/mxt_text.h"

#include "MxtGlobalStorage"
#include "host/object_model.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <iostream>
#include <string>
#include <vector>

using namespace module_testing;

namespace {

const std::wstring kUntouched = L"untouched";
IDispatch* const kNotWritten = reinterpret_cast<IDispatch*>(0x1);

const std::wstring kSupportPath = L"C:\\Zorb\\Support;C:\\Zorb\\Fonts";
const std::wstring kPrinterStyleSheetPath = L"C:\\Zorb\\Plot Styles";
const std::wstring kTemplateFolder = L"C:\\Zorb\\Template";
const std::wstring kMXSupportFolder = L"D:\\MX\\Support";
const std::wstring kGeneralProfile = L"FixedProfile\\General";
const std::wstring kSupportPathWithMX = kSupportPath + L";D:\\MX\\Support";
const std::wstring kPrinterPathWithMX = kPrinterStyleSheetPath + L";" + kMXSupportFolder;

// Host calls in journal form. The query for the application's interface is no host call, nor is
// reading the registry below the root the host's services name.
const std::vector<std::string> kReachApplication = {"sdk.zbedGetZorbWinApp", "CWinApp.GetIDispatch"};

std::vector<std::string> followedBy(std::vector<std::string> calls, std::initializer_list<std::string> then)
{
    calls.insert(calls.end(), then);
    return calls;
}

std::vector<std::string> reachingPreferencesFiles(std::initializer_list<std::string> then)
{
    return followedBy(
        followedBy(kReachApplication, {"HostApplication.get_Preferences", "HostPreferences.get_Files"}),
        then);
}

std::vector<std::string> readingRegistry(std::initializer_list<std::string> then = {})
{
    return followedBy(
        {"sdk.zbdbHostApplicationServices", "ZbDbHostApplicationServices.getUserRegistryProductRootKey"},
        then);
}

sim::HostState arrangedHost()
{
    sim::HostState state = sim::defaultHostState();
    state.preferences.supportPath = kSupportPath;
    state.preferences.printerStyleSheetPath = kPrinterStyleSheetPath;
    state.preferences.templateDrawingFolder = kTemplateFolder;
    state.preferences.drawingPath = L"D:\\Projects";
    state.mxSupportFolder = kMXSupportFolder;
    state.registryRootKey = L"Software\\Zorb\\R24.0\\ZORB-7001:409";
    state.registryValues[L""][L"ZorbLocation"] = L"C:\\Program Files\\Zorb 2024";
    state.registryValues[kGeneralProfile][L"LinetypeFile"] = L"zorbiso.lin";
    state.registryValues[kGeneralProfile][L"HatchFile"] = L"zorbiso.pat";
    state.searchPathFiles[L"zorbiso.pat"] = L"C:\\Program Files\\Zorb 2024\\Support\\zorbiso.pat";
    return state;
}

// The file-location preferences after a run: as arranged, but for what `written` changes.
void expectPreferences(const sim::Host& host, const std::function<void(sim::PreferencesFiles&)>& written)
{
    sim::PreferencesFiles expected = arrangedHost().preferences;
    if (written)
        written(expected);
    const sim::PreferencesFiles& actual = host.state().preferences;
    EXPECT_EQ(actual.supportPath, expected.supportPath);
    EXPECT_EQ(actual.printerStyleSheetPath, expected.printerStyleSheetPath);
    EXPECT_EQ(actual.templateDrawingFolder, expected.templateDrawingFolder);
    EXPECT_EQ(actual.drawingPath, expected.drawingPath);
}

class FaultSweep : public ::testing::Test {
protected:
    ~FaultSweep() override { recordSupportPath(nullptr); }

    static void recordSupportPath(MxtString* recorded)
    {
        delete MxtGlobalStorage::g_pZorbSupportPaths;
        MxtGlobalStorage::g_pZorbSupportPaths = recorded;
    }

    // An operation that answers whether it succeeded and may fill in a text; `call` runs it on an
    // output that holds kUntouched. After success: true, `expected`, the preferences as `written`
    // changes them. After a failure: false, `textAfterFailure`, the preferences as arranged.
    SweptOperation answering(std::string name, FailureHandling handling, std::function<bool(MxtString&)> call,
                             std::vector<std::string> hostCalls, std::wstring expected,
                             std::function<void(sim::PreferencesFiles&)> written = nullptr,
                             std::wstring textAfterFailure = kUntouched)
    {
        SweptOperation operation;
        operation.name = std::move(name);
        operation.handling = handling;
        operation.initialState = arrangedHost;
        operation.hostCalls = std::move(hostCalls);
        operation.run = [this, call] {
            m_text = kUntouched.c_str();
            m_answer = call(m_text);
        };
        operation.expectSuccess = [this, expected, written](const sim::Host& host) {
            EXPECT_TRUE(m_answer);
            EXPECT_EQ(text(m_text), expected);
            expectPreferences(host, written);
        };
        operation.expectFailure = [this, textAfterFailure](const sim::Host& host) {
            EXPECT_FALSE(m_answer);
            EXPECT_EQ(text(m_text), textAfterFailure);
            expectPreferences(host, nullptr);
        };
        return operation;
    }

    std::vector<SweptOperation> operations();

    bool m_answer = false;
    MxtString m_text;
};

std::vector<SweptOperation> FaultSweep::operations()
{
    using FH = FailureHandling;
    const auto supportPathWithMX = [](sim::PreferencesFiles& files) {
        files.supportPath = kSupportPathWithMX;
    };
    const auto printerPathWithMX = [](sim::PreferencesFiles& files) {
        files.printerStyleSheetPath = kPrinterPathWithMX;
    };
    const std::wstring supportPathWithTwoFolders = kSupportPathWithMX + L";D:\\MX\\Fonts";
    return {
        // The text names what came instead of a dispatch: a host that has none must give null and
        // report no failure.
        answering(
            "getCADAppDispatch", FH::caught,
            [](MxtString& outcome) {
                IDispatch* dispatch = kNotWritten;
                const long status = ZORBAppUtilities::getCADAppDispatch(&dispatch);
                const bool got = dispatch != nullptr && dispatch != kNotWritten;
                if (got)
                    dispatch->Release();
                else
                    outcome = status != S_OK ? L"failed" : dispatch == nullptr ? L"null" : L"not written";
                return status == S_OK && got;
            },
            kReachApplication, kUntouched, nullptr, L"null"),
        answering(
            "getCadApplication", FH::caught,
            [](MxtString&) {
                const HostApplicationPtr application(
                    static_cast<HostApplication*>(ZORBAppUtilities::getCadApplication()), false);
                return static_cast<bool>(application);
            },
            kReachApplication, kUntouched),
        answering(
            "preparePathes", FH::propagated,
            [](MxtString& merged) {
                _bstr_t path;
                ZORBAppUtilities::preparePathes(mxtStrings({L"C:\\ZORB\\FONTS", L"D:\\MX\\Support"}),
                                                _bstr_t(kSupportPath.c_str()), path);
                merged = path;
                return true;
            },
            {}, kSupportPathWithMX),
        answering(
            "getCADAppSupportPath", FH::caught,
            [](MxtString& path) {
                path = ZORBAppUtilities::getCADAppSupportPath();
                return !path.isEmpty();
            },
            reachingPreferencesFiles({"HostPreferencesFiles.get_SupportPath"}), kSupportPath, nullptr, L""),
        answering("getPlotStylePath", FH::caught, ZORBAppUtilities::getPlotStylePath,
                  reachingPreferencesFiles({"HostPreferencesFiles.get_PrinterStyleSheetPath"}),
                  kPrinterStyleSheetPath),
        answering(
            "ZORBAppUtilities::addPathesToCADAppSupportPath", FH::caught,
            [](MxtString& merged) {
                return ZORBAppUtilities::addPathesToCADAppSupportPath(
                    mxtStrings({L"D:\\MX\\Support", L"c:\\zorb\\fonts", L"D:\\MX\\Fonts"}), merged);
            },
            reachingPreferencesFiles(
                {"HostPreferencesFiles.get_SupportPath", "HostPreferencesFiles.put_SupportPath"}),
            supportPathWithTwoFolders,
            [supportPathWithTwoFolders](sim::PreferencesFiles& files) {
                files.supportPath = supportPathWithTwoFolders;
            }),
        answering("ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath", FH::caught,
                  ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath,
                  reachingPreferencesFiles({"HostPreferencesFiles.get_PrinterStyleSheetPath",
                                            "HostPreferencesFiles.put_PrinterStyleSheetPath"}),
                  kPrinterPathWithMX, printerPathWithMX),
        // The plot interface's operations have no handler of their own, but only forward to
        // operations that catch: nothing reaches their callers either.
        answering(
            "CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath", FH::caught,
            [](MxtString&) { return CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath(); },
            reachingPreferencesFiles({"HostPreferencesFiles.get_PrinterStyleSheetPath",
                                      "HostPreferencesFiles.put_PrinterStyleSheetPath"}),
            kUntouched, printerPathWithMX),
        // The support path it added is recorded; after a failure the earlier record stays.
        answering(
            "CADPlotUtilities::addPathesToCADAppSupportPath", FH::caught,
            [](MxtString& recorded) {
                recordSupportPath(new MxtString(L"earlier"));
                const bool answer =
                    CADPlotUtilities::addPathesToCADAppSupportPath(mxtStrings({L"D:\\MX\\Support"}));
                recorded = MxtGlobalStorage::g_pZorbSupportPaths != nullptr
                               ? *MxtGlobalStorage::g_pZorbSupportPaths
                               : MxtString(L"(none)");
                return answer;
            },
            reachingPreferencesFiles(
                {"HostPreferencesFiles.get_SupportPath", "HostPreferencesFiles.put_SupportPath"}),
            kSupportPathWithMX, supportPathWithMX, L"earlier"),
        answering(
            "setTemplateDwgPath", FH::caught,
            [](MxtString&) { return ZORBAppUtilities::setTemplateDwgPath(MxtString(L"D:\\MX\\Templates")); },
            reachingPreferencesFiles({"HostPreferencesFiles.put_TemplateDrawingFolder"}), kUntouched,
            [](sim::PreferencesFiles& files) { files.templateDrawingFolder = L"D:\\MX\\Templates"; }),
        answering("getCadDrawingPath", FH::caught, ZORBAppUtilities::getCadDrawingPath,
                  reachingPreferencesFiles({"HostPreferencesFiles.get_DrawingPath"}), L"D:\\Projects",
                  nullptr, L""),
        // The registry and the search path are reached without automation objects.
        answering("getCadProductLocation", FH::propagated, ZORBAppUtilities::getCadProductLocation,
                  readingRegistry(), L"C:\\Program Files\\Zorb 2024"),
        answering(
            "getLinetypeFilePath", FH::propagated,
            [](MxtString& path) {
                return ZORBAppUtilities::getLinetypeFilePath(MxtString(L"LinetypeFile"), path);
            },
            readingRegistry(), L"zorbiso.lin"),
        answering(
            "getHatchFilePath", FH::propagated,
            [](MxtString& path) { return ZORBAppUtilities::getHatchFilePath(MxtString(L"HatchFile"), path); },
            readingRegistry({"sdk.zbedFindFile", "sdk.zbHeapFree"}),
            L"C:\\Program Files\\Zorb 2024\\Support\\zorbiso.pat"),
    };
}

TEST_F(FaultSweep, EveryOperationAnswersEachFailureAsItsHandlingSays)
{
    std::size_t faultSites = 0;
    for (const SweptOperation& operation : operations()) {
        const SweepReport report = sweepFaults(operation);
        std::cout << "[ sweep    ] " << operation.name << ": " << report.hostCalls << " host calls, "
                  << report.faultSites << " fault sites (" << report.faultsReached << " reached)\n";
        faultSites += report.faultSites;
    }
    std::cout << "[ sweep    ] " << faultSites << " fault sites in all\n";
    RecordProperty("faultSites", static_cast<int>(faultSites));
}

}  // namespace

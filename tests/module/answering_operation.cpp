#include "answering_operation.h"

#include "support/mxt_text.h"

#include <memory>

namespace module_testing {

const std::wstring kSupportPath = L"C:\\Zorb\\Support;C:\\Zorb\\Fonts";
const std::wstring kPrinterStyleSheetPath = L"C:\\Zorb\\Plot Styles";
const std::wstring kMXSupportFolder = L"D:\\MX\\Support";
const std::wstring kSupportPathWithMX = kSupportPath + L";D:\\MX\\Support";
const std::wstring kPrinterPathWithMX = kPrinterStyleSheetPath + L";" + kMXSupportFolder;
const std::wstring kUntouched = L"untouched";

namespace {

const std::wstring kGeneralProfile = L"FixedProfile\\General";

std::vector<std::string> followedBy(std::vector<std::string> calls, std::initializer_list<std::string> then)
{
    calls.insert(calls.end(), then);
    return calls;
}

// The file-location preferences after a run: as arranged, but for what `written` changes.
void expectPreferences(const sim::Host& host, const std::function<void(sim::PreferencesFiles&)>& written)
{
    sim::PreferencesFiles expected = arrangedHost().preferences;
    if (written)
        written(expected);
    EXPECT_TRUE(host.state().preferences == expected);
}

// What one run of an answering operation gave.
struct Answered {
    bool answer = false;
    MxtString text;
};

}  // namespace

sim::HostState arrangedHost()
{
    sim::HostState state = sim::defaultHostState();
    state.preferences.supportPath = kSupportPath;
    state.preferences.printerStyleSheetPath = kPrinterStyleSheetPath;
    state.preferences.templateDrawingFolder = L"C:\\Zorb\\Template";
    state.preferences.drawingPath = L"D:\\Projects";
    state.mxSupportFolder = kMXSupportFolder;
    state.registryRootKey = L"Software\\Zorb\\R24.0\\ZORB-7001:409";
    state.registryValues[L""][L"ZorbLocation"] = L"C:\\Program Files\\Zorb 2024";
    state.registryValues[kGeneralProfile][L"LinetypeFile"] = L"zorbiso.lin";
    state.registryValues[kGeneralProfile][L"HatchFile"] = L"zorbiso.pat";
    state.searchPathFiles[L"zorbiso.pat"] = L"C:\\Program Files\\Zorb 2024\\Support\\zorbiso.pat";
    return state;
}

std::vector<std::string> reachingApplication(std::initializer_list<std::string> then)
{
    return followedBy({"sdk.zbedGetZorbWinApp", "CWinApp.GetIDispatch"}, then);
}

std::vector<std::string> reachingPreferencesFiles(std::initializer_list<std::string> then)
{
    return followedBy(reachingApplication({"HostApplication.get_Preferences", "HostPreferences.get_Files"}),
                      then);
}

std::vector<std::string> readingRegistry(std::initializer_list<std::string> then)
{
    return followedBy(
        {"sdk.zbdbHostApplicationServices", "ZbDbHostApplicationServices.getUserRegistryProductRootKey"},
        then);
}

SweptOperation answeringOperation(std::string name, FailureHandling handling,
                                  std::function<bool(MxtString&)> call, std::vector<std::string> hostCalls,
                                  std::wstring expected, std::function<void(sim::PreferencesFiles&)> written,
                                  std::wstring textAfterFailure)
{
    const auto answered = std::make_shared<Answered>();
    SweptOperation operation;
    operation.name = std::move(name);
    operation.handling = handling;
    operation.initialState = arrangedHost;
    operation.hostCalls = std::move(hostCalls);
    operation.run = [answered, call] {
        answered->text = kUntouched.c_str();
        answered->answer = call(answered->text);
    };
    operation.expectSuccess = [answered, expected, written](const sim::Host& host) {
        EXPECT_TRUE(answered->answer);
        EXPECT_EQ(text(answered->text), expected);
        expectPreferences(host, written);
    };
    operation.expectFailure = [answered, textAfterFailure](const sim::Host&) {
        EXPECT_FALSE(answered->answer);
        EXPECT_EQ(text(answered->text), textAfterFailure);
    };
    return operation;
}

}  // namespace module_testing

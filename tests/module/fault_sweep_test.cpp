// Every operation of the module, failed at each host call, each withheld object, each step to the
// application and each automation string allocation: it answers as its failure handling says and
// leaves nothing behind.
#include "CADPlotUtilities.h"
#include "ZORBAppUtilities.h"

#include "support/fault_sweep.h"
#include "support/mxt_text.h"

#include "MxtGlobalStorage"
#include "host/object_model.h"

#include <gtest/gtest.h>

#include <iostream>
#include <vector>

using namespace module_testing;

namespace {

const MxtString kUntouched(L"untouched");
IDispatch* const kNotWritten = reinterpret_cast<IDispatch*>(0x1);

const std::wstring kSupportPath = L"C:\\Zorb\\Support;C:\\Zorb\\Fonts";
const std::wstring kPrinterStyleSheetPath = L"C:\\Zorb\\Plot Styles";
const std::wstring kTemplateFolder = L"C:\\Zorb\\Template";
const std::wstring kMXSupportFolder = L"D:\\MX\\Support";
const std::wstring kGeneralProfile = L"FixedProfile\\General";

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

// What the operations answer and give back, reset by each run.
struct Outputs {
    long status = 0;
    IDispatch* dispatch = nullptr;
    bool gotObject = false;
    bool answer = false;
    MxtString text;
    std::wstring merged;
    MxtString* recordedBefore = nullptr;
};

class FaultSweep : public ::testing::Test {
protected:
    ~FaultSweep() override
    {
        delete MxtGlobalStorage::g_pZorbSupportPaths;
        MxtGlobalStorage::g_pZorbSupportPaths = nullptr;
    }

    SweptOperation caught(std::string name, std::function<void()> run,
                          std::function<void(const sim::Host&)> expectSuccess,
                          std::function<void(const sim::Host&)> expectFailure)
    {
        SweptOperation operation;
        operation.name = std::move(name);
        operation.initialState = arrangedHost;
        operation.run = std::move(run);
        operation.expectSuccess = std::move(expectSuccess);
        operation.expectFailure = std::move(expectFailure);
        return operation;
    }

    SweptOperation propagated(std::string name, std::function<void()> run,
                              std::function<void(const sim::Host&)> expectSuccess,
                              std::function<void(const sim::Host&)> expectFailure = nullptr)
    {
        SweptOperation operation = caught(std::move(name), std::move(run), std::move(expectSuccess),
                                          std::move(expectFailure));
        operation.handling = FailureHandling::propagated;
        return operation;
    }

    // A fresh recorded support path, so that a run can tell whether it was replaced.
    void recordEarlierSupportPath()
    {
        delete MxtGlobalStorage::g_pZorbSupportPaths;
        MxtGlobalStorage::g_pZorbSupportPaths = new MxtString(L"earlier");
        out.recordedBefore = MxtGlobalStorage::g_pZorbSupportPaths;
    }

    void expectFailedAndUntouched() const
    {
        EXPECT_FALSE(out.answer);
        EXPECT_EQ(out.text, kUntouched);
    }

    static void expectPreferencesAsArranged(const sim::Host& host)
    {
        EXPECT_EQ(host.state().preferences.supportPath, kSupportPath);
        EXPECT_EQ(host.state().preferences.printerStyleSheetPath, kPrinterStyleSheetPath);
        EXPECT_EQ(host.state().preferences.templateDrawingFolder, kTemplateFolder);
    }

    std::vector<SweptOperation> operations();

    Outputs out;
};

std::vector<SweptOperation> FaultSweep::operations()
{
    const std::wstring supportPathAdded = kSupportPath + L";D:\\MX\\Support;D:\\MX\\Fonts";
    const std::wstring printerPathAdded = kPrinterStyleSheetPath + L";" + kMXSupportFolder;
    return {
        caught(
            "getCADAppDispatch",
            [this] {
                out = Outputs{};
                out.dispatch = kNotWritten;
                out.status = ZORBAppUtilities::getCADAppDispatch(&out.dispatch);
                out.gotObject = out.dispatch != nullptr && out.dispatch != kNotWritten;
                if (out.gotObject)
                    out.dispatch->Release();
            },
            [this](const sim::Host&) {
                EXPECT_EQ(out.status, S_OK);
                EXPECT_TRUE(out.gotObject);
            },
            // The host could not give a dispatch: null, and no failure reported.
            [this](const sim::Host&) {
                EXPECT_EQ(out.status, S_OK);
                EXPECT_EQ(out.dispatch, nullptr);
            }),
        caught(
            "getCadApplication",
            [this] {
                out = Outputs{};
                HostApplicationPtr application(static_cast<HostApplication*>(ZORBAppUtilities::getCadApplication()),
                                               false);
                out.gotObject = static_cast<bool>(application);
            },
            [this](const sim::Host&) { EXPECT_TRUE(out.gotObject); },
            [this](const sim::Host&) { EXPECT_FALSE(out.gotObject); }),
        propagated(
            "preparePathes",
            [this] {
                out = Outputs{};
                _bstr_t merged;
                ZORBAppUtilities::preparePathes(mxtStrings({L"C:\\ZORB\\FONTS", L"D:\\MX\\Support"}),
                                                _bstr_t(kSupportPath.c_str()), merged);
                out.merged = static_cast<const wchar_t*>(merged);
            },
            [this](const sim::Host&) { EXPECT_EQ(out.merged, kSupportPath + L";D:\\MX\\Support"); }),
        caught(
            "getCADAppSupportPath",
            [this] {
                out = Outputs{};
                out.text = ZORBAppUtilities::getCADAppSupportPath();
            },
            [this](const sim::Host&) { EXPECT_EQ(text(out.text), kSupportPath); },
            [this](const sim::Host&) { EXPECT_EQ(text(out.text), L""); }),
        caught(
            "getPlotStylePath",
            [this] {
                out = Outputs{};
                out.text = kUntouched;
                out.answer = ZORBAppUtilities::getPlotStylePath(out.text);
            },
            [this](const sim::Host&) {
                EXPECT_TRUE(out.answer);
                EXPECT_EQ(text(out.text), kPrinterStyleSheetPath);
            },
            [this](const sim::Host&) { expectFailedAndUntouched(); }),
        caught(
            "ZORBAppUtilities::addPathesToCADAppSupportPath",
            [this] {
                out = Outputs{};
                out.text = kUntouched;
                out.answer = ZORBAppUtilities::addPathesToCADAppSupportPath(
                    mxtStrings({L"D:\\MX\\Support", L"c:\\zorb\\fonts", L"D:\\MX\\Fonts"}), out.text);
            },
            [this, supportPathAdded](const sim::Host& host) {
                EXPECT_TRUE(out.answer);
                EXPECT_EQ(text(out.text), supportPathAdded);
                EXPECT_EQ(host.state().preferences.supportPath, supportPathAdded);
            },
            [this](const sim::Host& host) {
                expectFailedAndUntouched();
                expectPreferencesAsArranged(host);
            }),
        caught(
            "ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath",
            [this] {
                out = Outputs{};
                out.text = kUntouched;
                out.answer = ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath(out.text);
            },
            [this, printerPathAdded](const sim::Host& host) {
                EXPECT_TRUE(out.answer);
                EXPECT_EQ(text(out.text), printerPathAdded);
                EXPECT_EQ(host.state().preferences.printerStyleSheetPath, printerPathAdded);
            },
            [this](const sim::Host& host) {
                expectFailedAndUntouched();
                expectPreferencesAsArranged(host);
            }),
        // The plot interface's operations have no handler of their own, but only forward to
        // operations that catch: nothing reaches their callers either.
        caught(
            "CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath",
            [this] {
                out = Outputs{};
                out.answer = CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath();
            },
            [this, printerPathAdded](const sim::Host& host) {
                EXPECT_TRUE(out.answer);
                EXPECT_EQ(host.state().preferences.printerStyleSheetPath, printerPathAdded);
            },
            [this](const sim::Host& host) {
                EXPECT_FALSE(out.answer);
                expectPreferencesAsArranged(host);
            }),
        caught(
            "CADPlotUtilities::addPathesToCADAppSupportPath",
            [this] {
                out = Outputs{};
                recordEarlierSupportPath();
                out.answer = CADPlotUtilities::addPathesToCADAppSupportPath(mxtStrings({L"D:\\MX\\Support"}));
            },
            [this](const sim::Host& host) {
                EXPECT_TRUE(out.answer);
                ASSERT_NE(MxtGlobalStorage::g_pZorbSupportPaths, nullptr);
                EXPECT_EQ(text(*MxtGlobalStorage::g_pZorbSupportPaths), kSupportPath + L";D:\\MX\\Support");
                EXPECT_EQ(host.state().preferences.supportPath, kSupportPath + L";D:\\MX\\Support");
            },
            [this](const sim::Host& host) {
                EXPECT_FALSE(out.answer);
                EXPECT_EQ(MxtGlobalStorage::g_pZorbSupportPaths, out.recordedBefore);
                EXPECT_EQ(text(*out.recordedBefore), L"earlier");
                expectPreferencesAsArranged(host);
            }),
        caught(
            "setTemplateDwgPath",
            [this] {
                out = Outputs{};
                out.answer = ZORBAppUtilities::setTemplateDwgPath(MxtString(L"D:\\MX\\Templates"));
            },
            [this](const sim::Host& host) {
                EXPECT_TRUE(out.answer);
                EXPECT_EQ(host.state().preferences.templateDrawingFolder, L"D:\\MX\\Templates");
            },
            [this](const sim::Host& host) {
                EXPECT_FALSE(out.answer);
                expectPreferencesAsArranged(host);
            }),
        caught(
            "getCadDrawingPath",
            [this] {
                out = Outputs{};
                out.text = kUntouched;
                out.answer = ZORBAppUtilities::getCadDrawingPath(out.text);
            },
            [this](const sim::Host&) {
                EXPECT_TRUE(out.answer);
                EXPECT_EQ(text(out.text), L"D:\\Projects");
            },
            [this](const sim::Host&) {
                EXPECT_FALSE(out.answer);
                EXPECT_EQ(text(out.text), L"");
            }),
        propagated(
            "getCadProductLocation",
            [this] {
                out = Outputs{};
                out.text = kUntouched;
                out.answer = ZORBAppUtilities::getCadProductLocation(out.text);
            },
            [this](const sim::Host&) {
                EXPECT_TRUE(out.answer);
                EXPECT_EQ(text(out.text), L"C:\\Program Files\\Zorb 2024");
            },
            [this](const sim::Host&) { expectFailedAndUntouched(); }),
        propagated(
            "getLinetypeFilePath",
            [this] {
                out = Outputs{};
                out.text = kUntouched;
                out.answer = ZORBAppUtilities::getLinetypeFilePath(MxtString(L"LinetypeFile"), out.text);
            },
            [this](const sim::Host&) {
                EXPECT_TRUE(out.answer);
                EXPECT_EQ(text(out.text), L"zorbiso.lin");
            },
            [this](const sim::Host&) { expectFailedAndUntouched(); }),
        propagated(
            "getHatchFilePath",
            [this] {
                out = Outputs{};
                out.text = kUntouched;
                out.answer = ZORBAppUtilities::getHatchFilePath(MxtString(L"HatchFile"), out.text);
            },
            [this](const sim::Host&) {
                EXPECT_TRUE(out.answer);
                EXPECT_EQ(text(out.text), L"C:\\Program Files\\Zorb 2024\\Support\\zorbiso.pat");
            },
            [this](const sim::Host&) { expectFailedAndUntouched(); }),
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

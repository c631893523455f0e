// What the journal records of each call, and how it prints it.
#include "sim_test.h"

using namespace sim_testing;

namespace {

class JournalTest : public SimTest {
protected:
    const sim::JournalEntry& last() { return host().journal().entries().back(); }
};

}  // namespace

TEST_F(JournalTest, ArgumentsKeepTheVariantTypeTheyCrossedAs)
{
    HostDocumentsPtr documents = application()->GetDocuments();
    for (VARTYPE type : {VT_I2, VT_I4, VT_INT}) {
        documents->Item(indexOf(type, 0));
        ASSERT_EQ(last().arguments.size(), 1u);
        EXPECT_EQ(last().arguments[0].type, type);
        EXPECT_EQ(last().arguments[0].value, "0");
    }

    HostDocumentPtr document = documents->Item(indexOf(VT_INT, 0));
    document->GetPlot()->PlotToDevice(_variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR));
    EXPECT_EQ(last().arguments[0].type, VT_ERROR);
    EXPECT_EQ(last().arguments[0].value, "DISP_E_PARAMNOTFOUND");

    HostToolbarPtr standard = group(L"ZORB")->GetToolbars()->Item(indexOf(VT_I4, 0));
    standard->PutVisible(VARIANT_FALSE);
    EXPECT_EQ(last().arguments[0].type, VT_BOOL);
    EXPECT_EQ(last().arguments[0].value, "false");
    standard->Dock(1);
    EXPECT_EQ(last().arguments[0].type, VT_I4);
    EXPECT_EQ(last().object, "HostToolbar 'ZORB'/'TB_STANDARD'[0]");

    // A reference to an array shows the array it points at.
    _variant_t corner = pointOf(3, 4);
    VARIANT reference;
    V_VT(&reference) = VT_BYREF | VT_ARRAY | VT_R8;
    V_ARRAYREF(&reference) = &V_ARRAY(&corner);
    EXPECT_EQ(application()->raw_ZoomWindow(reference, reference), S_OK);
    EXPECT_EQ(last().arguments[0].type, VT_BYREF | VT_ARRAY | VT_R8);
    EXPECT_EQ(last().arguments[0].value, "[3, 4]");
}

TEST_F(JournalTest, ALineShowsMethodArgumentsObjectAndStatus)
{
    HostPlotPtr plot = application()->GetActiveDocument()->GetPlot();
    plot->SetLayoutsToPlot(stringList({L"Layout1", L"Model"}));
    EXPECT_EQ(sim::formatJournalLine(last()),
              "HostPlot.SetLayoutsToPlot(VT_ARRAY|VT_BSTR ['Layout1', 'Model']) on HostPlot "
              "'C:\\Projects\\Warehouse 12\\Drawings\\GA-001.dwg' -> S_OK");

    failureOf([] { group(L"ZORB")->GetMenus()->Item(_variant_t(L"&Nothing")); });
    EXPECT_EQ(sim::formatJournalLine(last()),
              "HostPopupMenus.Item(VT_BSTR '&Nothing') on HostPopupMenus 'ZORB' -> DISP_E_BADINDEX");

    resbuf value;
    zbedGetVar(L"DWGCHECK", &value);
    EXPECT_EQ(sim::formatJournalLine(last()), "sdk.zbedGetVar(VT_LPWSTR 'DWGCHECK') on sdk -> S_OK");

    // A null text is no text at all, and shows so; an empty one is quoted.
    HostPreferencesFilesPtr files = application()->GetPreferences()->GetFiles();
    files->PutDrawingPath(_bstr_t());
    EXPECT_TRUE(last().arguments[0].isNull);
    EXPECT_EQ(sim::formatJournalLine(last()), "HostPreferencesFiles.put_DrawingPath(VT_BSTR null) on HostPreferencesFiles -> S_OK");
    files->PutDrawingPath(_bstr_t(L""));
    EXPECT_FALSE(last().arguments[0].isNull);
    EXPECT_EQ(sim::formatJournalLine(last()), "HostPreferencesFiles.put_DrawingPath(VT_BSTR '') on HostPreferencesFiles -> S_OK");
    zbedGetVar(nullptr, &value);
    EXPECT_EQ(sim::formatJournalLine(last()), "sdk.zbedGetVar(VT_LPWSTR null) on sdk -> E_FAIL");
    VARIANT nullText;
    V_VT(&nullText) = VT_BSTR;
    V_BSTR(&nullText) = nullptr;
    HostDocument* none = nullptr;
    EXPECT_EQ(application()->GetDocuments()->raw_Item(nullText, &none), DISP_E_BADINDEX);
    EXPECT_TRUE(last().arguments[0].isNull);
    EXPECT_EQ(sim::formatJournalLine(last()).substr(0, 32), "HostDocuments.Item(VT_BSTR null)");
}

TEST_F(JournalTest, ItemsAndSubmenusAreNamedByTheirPlace)
{
    HostPopupMenuPtr main = loadMx()->GetMenus()->Item(_variant_t(L"M&X"));
    HostPopupMenuPtr connections = main->Item(indexOf(VT_I4, 4))->GetSubMenu();
    connections->Item(indexOf(VT_I4, 2))->GetLabel();
    EXPECT_EQ(last().object, "HostPopupMenuItem 'MX'/'PM_MX_MAIN'/'C&onnections'[2]");
    EXPECT_EQ(last().method, "HostPopupMenuItem.get_Label");
}

TEST_F(JournalTest, AJournalSwitchedOffRecordsNothing)
{
    host().journal().clear();
    host().journal().setEnabled(false);
    application()->GetMenuGroups()->GetCount();
    EXPECT_TRUE(host().journal().entries().empty());
    host().journal().setEnabled(true);
    application();
    EXPECT_EQ(host().journal().entries().size(), 2u);
}

// Releases are recorded only when asked, in order with the calls, under the object's name.
TEST_F(JournalTest, ReleasesAreRecordedWhenAsked)
{
    HostMenuGroupsPtr groups = application()->GetMenuGroups();
    host().journal().clear();
    groups->Item(indexOf(VT_I4, 0))->GetName();
    EXPECT_EQ(hostCalls(), (std::vector<std::string>{"HostMenuGroups.Item", "HostMenuGroup.get_Name"}));

    host().journal().setRecordingReleases(true);
    host().journal().clear();
    groups->Item(indexOf(VT_I4, 0))->GetName();
    groups = nullptr;
    EXPECT_EQ(hostCalls(), (std::vector<std::string>{"HostMenuGroups.Item", "HostMenuGroup.get_Name",
                                                     "HostMenuGroup.Release", "HostMenuGroups.Release"}));
    EXPECT_TRUE(sim::isRelease(last()));
    EXPECT_EQ(sim::formatJournalLine(last()), "HostMenuGroups.Release() on HostMenuGroups -> S_OK");
}

TEST(JournalNames, VariantTypesAndStatusesPrintAsThePlatformNamesThem)
{
    EXPECT_EQ(sim::variantTypeName(VT_ARRAY | VT_BSTR), "VT_ARRAY|VT_BSTR");
    EXPECT_EQ(sim::variantTypeName(VT_BYREF | VT_VARIANT), "VT_BYREF|VT_VARIANT");
    EXPECT_EQ(sim::variantTypeName(VT_INT), "VT_INT");
    EXPECT_EQ(sim::statusName(DISP_E_BADINDEX), "DISP_E_BADINDEX");
    EXPECT_EQ(sim::statusName(static_cast<HRESULT>(0x80040205)), "0x80040205");
}

// Answer faults: a call that succeeds with a raw value no host state gives, or with a success
// status other than S_OK; and faults that could not act, refused where they are armed.
#include "sim_test.h"

#include "sim/state_json.h"

#include <stdexcept>

using namespace sim_testing;
using module_testing::answering;
using module_testing::hostValue;
using module_testing::nullAnswer;
using module_testing::rawNumber;

namespace {

class Answers : public SimTest {};

HostPopupMenuPtr snapMenu()
{
    return loadMx()->GetMenus()->Item(indexOf(VT_I4, 0));
}

}  // namespace

TEST_F(Answers, YesNoValuesKeepTheirBitPatternAndNumbersNeedNotBeInTheHostsRange)
{
    HostPopupMenuPtr snap = snapMenu();
    HostPopupMenuItemPtr first = snap->Item(indexOf(VT_I4, 0));
    host().armFault(answering("HostPopupMenu.get_OnMenuBar", rawNumber(1)));
    host().armFault(answering("HostPopupMenuItem.get_Enabled", rawNumber(0xFFFF)));
    host().armFault(answering("HostPopupMenuItem.get_Type", rawNumber(7)));

    VARIANT_BOOL onMenuBar = VARIANT_FALSE;
    EXPECT_EQ(snap->get_OnMenuBar(&onMenuBar), S_OK);
    EXPECT_EQ(onMenuBar, 1);
    VARIANT_BOOL enabled = VARIANT_FALSE;
    EXPECT_EQ(first->get_Enabled(&enabled), S_OK);
    EXPECT_EQ(enabled, VARIANT_TRUE);  // 0xFFFF is all bits set
    LONG type = 0;
    EXPECT_EQ(first->get_Type(&type), S_OK);
    EXPECT_EQ(type, 7);
    EXPECT_EQ(host().journal().entries().back().status, S_OK);
}

TEST_F(Answers, TextsCanBeNullAndTheNthCallAloneIsAnswered)
{
    HostPopupMenuPtr snap = snapMenu();
    host().armFault(answering("HostPopupMenu.get_TagString", nullAnswer(), 2));
    BSTR tag = nullptr;
    EXPECT_EQ(snap->get_TagString(&tag), S_OK);
    EXPECT_EQ(_bstr_t(tag, false), _bstr_t(L"PM_0001"));
    EXPECT_EQ(snap->get_TagString(&tag), S_OK);
    EXPECT_EQ(tag, nullptr);
    EXPECT_EQ(snap->GetTagString(), _bstr_t(L"PM_0001"));
}

TEST_F(Answers, ASuccessStatusOtherThanSOkComesWithTheHostsOwnValue)
{
    HostMenuGroupsPtr groups = application()->GetMenuGroups();
    host().armFault(answering("HostMenuGroups.get_Count", hostValue(), 0, S_FALSE));
    LONG count = -1;
    EXPECT_EQ(groups->get_Count(&count), S_FALSE);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(host().journal().entries().back().status, S_FALSE);
}

TEST_F(Answers, FindFileCanSucceedWithoutAFoundPathAndGetVarWithAnyValue)
{
    host().armFault(answering("sdk.zbedFindFile", nullAnswer()));
    host().armFault(answering("sdk.zbedGetVar", rawNumber(-2)));
    const long buffersBefore = host().buffersHeld();
    ZbString found;
    EXPECT_EQ(zbedFindFile(L"zorb.pat", found), kZbNormal);
    EXPECT_EQ(found.buffer, nullptr);
    EXPECT_EQ(host().buffersHeld(), buffersBefore);
    // Nothing was found, and nothing is answered for a file the host cannot find.
    EXPECT_EQ(zbedFindFile(L"nowhere.pat", found), kZbError);

    resbuf value{};
    EXPECT_EQ(zbedGetVar(L"DWGCHECK", &value), kZbNormal);
    EXPECT_EQ(value.resval.rint, -2);
    EXPECT_EQ(state().systemVariables.at(L"DWGCHECK"), 1);
}

TEST_F(Answers, TheJournalTellsWhichCallsGaveAnObject)
{
    HostMenuGroupsPtr groups = application()->GetMenuGroups();
    groups->GetCount();
    groups->Item(indexOf(VT_I4, 0));
    host().armFault(module_testing::withheldObject("HostMenuGroups.Item"));
    groups->Item(indexOf(VT_I4, 0));
    std::vector<bool> gaveObject;
    for (const sim::JournalEntry& entry : host().journal().entries())
        gaveObject.push_back(entry.gaveObject);
    // zbedGetZorbWinApp, GetIDispatch, get_MenuGroups, get_Count, Item, Item withheld.
    EXPECT_EQ(gaveObject, (std::vector<bool>{true, true, true, false, true, false}));
}

TEST_F(Answers, AFaultThatCouldNotActIsRefusedWhenArmedOrRead)
{
    struct Case {
        const char* why;
        sim::Fault fault;
    };
    const Case cases[] = {
        {"a count gives no object", module_testing::withheldObject("HostMenuGroups.get_Count")},
        {"a found path is no object", module_testing::withheldObject("sdk.zbedFindFile")},
        {"a count is never null", answering("HostMenuGroups.get_Count", nullAnswer())},
        {"a name is no number", answering("HostMenuGroup.get_Name", rawNumber(1))},
        {"a yes/no has 16 bits", answering("HostToolbar.get_Visible", rawNumber(0x10000))},
        {"an answer succeeds", answering("HostToolbar.get_Visible", rawNumber(1), 0, E_FAIL)},
        {"the host's own value with S_OK changes nothing",
         answering("HostMenuGroups.get_Count", hostValue())},
        {"an SDK function has no status", answering("sdk.zbedFindFile", nullAnswer(), 0, S_FALSE)},
        {"no such method", module_testing::failingCall("HostMenuGroups.Remove")},
        {"the dispatch fault names its own call",
         [] {
             sim::Fault fault = module_testing::faultOfKind(sim::FaultKind::noDispatch);
             fault.method = "HostMenuGroups.Item";
             return fault;
         }()},
    };
    for (const Case& wrong : cases)
        EXPECT_THROW(host().armFault(wrong.fault), std::invalid_argument) << wrong.why;
    EXPECT_TRUE(state().faults.empty());

    try {
        sim::faultsFromJson(nlohmann::json::parse(
            R"([{"kind": "answer", "method": "HostToolbar.get_Visible", "answer": 1},
                {"kind": "nullObject", "method": "HostToolbar.get_Visible"}])"));
        ADD_FAILURE() << "a withheld yes/no was read";
    }
    catch (const sim::StateError& error) {
        EXPECT_STREQ(error.what(), "/1: HostToolbar.get_Visible gives no object to withhold");
    }
}

TEST_F(Answers, VariantCopiesFailWhereTheRuntimeAllowsIt)
{
    const sim::Fault fault = [] {
        sim::Fault copyFails = module_testing::faultOfKind(sim::FaultKind::failVariantCopy, 2);
        copyFails.status = DISP_E_OVERFLOW;
        return copyFails;
    }();
    if (!sim::canFailRuntimeCalls()) {
        EXPECT_THROW(host().armFault(fault), std::invalid_argument);
        return;
    }
    host().armFault(fault);
    _variant_t source(L"text");
    _variant_t first;
    EXPECT_EQ(VariantCopy(&first, &source), S_OK);
    VARIANT second;
    VariantInit(&second);
    EXPECT_EQ(VariantCopy(&second, &source), DISP_E_OVERFLOW);
    EXPECT_EQ(V_VT(&second), VT_EMPTY);
    // The wrapper's copy raises the copy's status.
    host().armFault(fault);
    EXPECT_EQ(failureOf([&] { _variant_t copied(first), again(copied); }).Error(), DISP_E_OVERFLOW);
    EXPECT_EQ(_variant_t(source), source);
}

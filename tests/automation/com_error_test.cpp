// _com_error: the message formed from the platform's message table or from the code, and the
// error information _com_issue_errorex attaches.
#include <gtest/gtest.h>

#include "automation.h"
#include "automation_failure.h"
#include "test_text.h"
#include "test_widget.h"

TEST(ComErrorMessage, CodesThePlatformHasNoTextForAreNumbered)
{
    // The dispatch range starts after 0x80040200, whose number would be 0.
    const struct {
        unsigned long code;
        WORD number;
        const wchar_t* message;
    } cases[] = {{0x80040205u, 5, L"IDispatch error #5"},
                 {0x80040200u, 0, L"Unknown error 0x80040200"},
                 {0xA0001234u, 0, L"Unknown error 0xA0001234"}};
    for (const auto& each : cases) {
        const HRESULT code = static_cast<HRESULT>(each.code);
        ASSERT_EQ(platformMessage(code), L"") << std::hex << each.code;
        const _com_error failure(code);
        EXPECT_EQ(failure.WCode(), each.number);
        EXPECT_STREQ(failure.ErrorMessage(), each.message);
    }
}

TEST(ComErrorMessage, AKnownCodeGivesThePlatformTextWithoutItsLineBreak)
{
    for (HRESULT code : {E_FAIL, E_OUTOFMEMORY, E_INVALIDARG, E_ACCESSDENIED}) {
        const std::wstring platform = platformMessage(code);
        ASSERT_GE(platform.size(), 2u) << std::hex << code;
        ASSERT_EQ(platform.substr(platform.size() - 2), L"\r\n");
        EXPECT_EQ(std::wstring(_com_error(code).ErrorMessage()), platform.substr(0, platform.size() - 2));
    }
}

TEST(ComErrorMessage, IsFormedOnceAndNotShared)
{
    const _com_error failure(E_FAIL);
    const TCHAR* message = failure.ErrorMessage();
    EXPECT_EQ(failure.ErrorMessage(), message);
    const _com_error copy = failure;
    EXPECT_NE(copy.ErrorMessage(), message);
    EXPECT_STREQ(copy.ErrorMessage(), message);
}

class ComIssueErrorEx : public ::testing::Test {
protected:
    void TearDown() override
    {
        IErrorInfo* left = nullptr;
        if (GetErrorInfo(0, &left) == S_OK)
            left->Release();
        EXPECT_EQ(widget.references(), 0u);
    }

    TestWidget widget;
};

TEST_F(ComIssueErrorEx, AttachesTheRecordOfAnInterfaceTheObjectVouchesFor)
{
    const HRESULT status = widget.Fail(DISP_E_BADINDEX, const_cast<LPOLESTR>(L"No item 7"));
    const _com_error failure =
        failureOf([&] { _com_issue_errorex(status, static_cast<ITestWidget*>(&widget), __uuidof(ITestWidget)); });

    EXPECT_EQ(failure.Error(), DISP_E_BADINDEX);
    EXPECT_EQ(textOf(failure.Description()), L"No item 7");
    EXPECT_EQ(textOf(failure.Source()), L"TestWidget");
    EXPECT_TRUE(IsEqualGUID(failure.GUID_(), __uuidof(ITestWidget)));
    IErrorInfoPtr info(failure.ErrorInfo(), false);
    EXPECT_NE(info.GetInterfacePtr(), nullptr);

    // The record was taken from the thread.
    IErrorInfo* left = nullptr;
    EXPECT_EQ(GetErrorInfo(0, &left), S_FALSE);
}

TEST_F(ComIssueErrorEx, LeavesTheRecordForAnInterfaceTheObjectDoesNotVouchFor)
{
    const HRESULT status = widget.Fail(E_FAIL, const_cast<LPOLESTR>(L"unrelated"));
    const _com_error failure =
        failureOf([&] { _com_issue_errorex(status, static_cast<ITestWidget*>(&widget), IID_IDispatch); });

    EXPECT_EQ(failure.Error(), E_FAIL);
    EXPECT_EQ(failure.ErrorInfo(), nullptr);
    EXPECT_EQ(failure.Description().length(), 0u);

    IErrorInfo* left = nullptr;
    ASSERT_EQ(GetErrorInfo(0, &left), S_OK);
    IErrorInfoPtr record(left, false);
    BSTR description = nullptr;
    record->GetDescription(&description);
    EXPECT_EQ(textOf(description), L"unrelated");
    SysFreeString(description);
}

TEST_F(ComIssueErrorEx, WithoutAnObjectRaisesTheCodeAlone)
{
    widget.Fail(E_FAIL, const_cast<LPOLESTR>(L"pending"));
    for (const _com_error& failure : {failureOf([] { _com_issue_errorex(E_ABORT, nullptr, IID_IDispatch); }),
                                      failureOf([] { _com_issue_error(E_ABORT); })}) {
        EXPECT_EQ(failure.Error(), E_ABORT);
        EXPECT_EQ(failure.ErrorInfo(), nullptr);
        EXPECT_EQ(failure.Description().length(), 0u);
        EXPECT_EQ(failure.Source().length(), 0u);
    }
}

TEST(ErrorInfo, TheThreadKeepsOneRecordUntilItIsTaken)
{
    ICreateErrorInfo* created = nullptr;
    ASSERT_EQ(CreateErrorInfo(&created), S_OK);
    ICreateErrorInfoPtr record(created, false);
    record->SetDescription(const_cast<LPOLESTR>(L"first"));
    IErrorInfoPtr info(record);
    ASSERT_NE(info.GetInterfacePtr(), nullptr);
    ASSERT_EQ(SetErrorInfo(0, info), S_OK);

    IErrorInfo* taken = nullptr;
    ASSERT_EQ(GetErrorInfo(0, &taken), S_OK);
    EXPECT_EQ(taken, info.GetInterfacePtr());
    taken->Release();
    EXPECT_EQ(GetErrorInfo(0, &taken), S_FALSE);

    ASSERT_EQ(SetErrorInfo(0, info), S_OK);
    ASSERT_EQ(SetErrorInfo(0, nullptr), S_OK);  // clears the slot
    EXPECT_EQ(GetErrorInfo(0, &taken), S_FALSE);
}

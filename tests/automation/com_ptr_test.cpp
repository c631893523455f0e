// _com_ptr_t: one reference per pointer, conversion between interfaces by QueryInterface, and the
// failures it raises.
#include <gtest/gtest.h>

#include "automation.h"
#include "automation_failure.h"
#include "test_widget.h"

namespace {

class ComPtr : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(widget.references(), 0u) << "a reference was leaked"; }

    TestWidget widget;
    ITestWidget* raw = &widget;
};

}  // namespace

TEST_F(ComPtr, HoldsOneReferenceAndReleasesItWhenItGoes)
{
    {
        ITestWidgetPtr first(raw);
        EXPECT_EQ(widget.references(), 1u);
        ITestWidgetPtr second = first;
        EXPECT_EQ(widget.references(), 2u);
        second = first;  // the same object: no change
        ITestWidgetPtr& same = second;
        second = same;
        EXPECT_EQ(widget.references(), 2u);
        second = nullptr;
        EXPECT_EQ(widget.references(), 1u);
    }
    EXPECT_EQ(widget.references(), 0u);
}

TEST_F(ComPtr, AdoptsAReferenceWhenToldTo)
{
    raw->AddRef();
    {
        ITestWidgetPtr adopted(raw, false);
        EXPECT_EQ(widget.references(), 1u);
    }
    EXPECT_EQ(widget.references(), 0u);

    raw->AddRef();
    ITestWidgetPtr attached;
    attached.Attach(raw);
    ITestWidget* detached = attached.Detach();
    EXPECT_EQ(attached.GetInterfacePtr(), nullptr);
    EXPECT_EQ(widget.references(), 1u);
    detached->Release();
}

TEST_F(ComPtr, ConvertsBetweenInterfacesByQueryInterfaceAndComparesByIdentity)
{
    IUnknownPtr unknown(raw);
    ITestWidgetPtr typed(unknown);
    EXPECT_EQ(widget.references(), 2u);
    EXPECT_EQ(typed.GetInterfacePtr(), raw);
    EXPECT_TRUE(typed == unknown);
    EXPECT_TRUE(typed == raw);

    IDispatchPtr dispatch;
    dispatch = typed;
    EXPECT_TRUE(dispatch == typed);
    EXPECT_EQ(widget.references(), 3u);

    TestWidget otherWidget;
    ITestWidgetPtr other(static_cast<ITestWidget*>(&otherWidget));
    EXPECT_TRUE(typed != other);
}

TEST_F(ComPtr, ARefusedQueryGivesNullAndOtherFailuresRaise)
{
    ITestGadgetPtr gadget(raw);
    EXPECT_FALSE(gadget);
    EXPECT_TRUE(!gadget);
    EXPECT_EQ(widget.references(), 0u);

    TestWidget refusing(E_UNEXPECTED);
    IUnknownPtr broken(static_cast<ITestWidget*>(&refusing));
    EXPECT_EQ(failureOf([&] { ITestGadgetPtr never(broken); }).Error(), E_UNEXPECTED);
}

TEST_F(ComPtr, NullRaisesEPointerWhereAnObjectIsNeeded)
{
    ITestWidgetPtr none;
    EXPECT_EQ(failureOf([&] { none->AddRef(); }).Error(), E_POINTER);
    EXPECT_EQ(failureOf([&] { none.Release(); }).Error(), E_POINTER);
    EXPECT_EQ(failureOf([&] { none.AddRef(); }).Error(), E_POINTER);
    EXPECT_TRUE(none == nullptr);
    EXPECT_FALSE(ITestWidgetPtr(raw) == nullptr);
}

TEST_F(ComPtr, AddressOfReleasesAndReceivesANewReference)
{
    ITestWidgetPtr holder(raw);
    ITestWidget** slot = &holder;
    EXPECT_EQ(widget.references(), 0u);
    EXPECT_EQ(*slot, nullptr);
    ASSERT_EQ(raw->QueryInterface(__uuidof(ITestWidget), reinterpret_cast<void**>(slot)), S_OK);
    EXPECT_EQ(holder.GetInterfacePtr(), raw);
    EXPECT_EQ(widget.references(), 1u);
    holder.Release();
    EXPECT_EQ(widget.references(), 0u);
}

TEST_F(ComPtr, TakesTheObjectOfAVariant)
{
    const _variant_t holder(static_cast<IDispatch*>(raw));
    ITestWidgetPtr fromVariant(holder);
    EXPECT_EQ(fromVariant.GetInterfacePtr(), raw);
    EXPECT_EQ(widget.references(), 2u);

    EXPECT_EQ(failureOf([] { ITestWidgetPtr fromNumber(_variant_t(5L)); }).Error(), DISP_E_TYPEMISMATCH);
}

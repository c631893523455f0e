// _com_ptr_t: one reference per pointer, conversion between interfaces by QueryInterface, and the
// failures it raises.
#include <gtest/gtest.h>

#include "automation.h"
#include "test_widget.h"

namespace {

class ComPtr : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(widget->Release(), 0u) << "a reference was leaked"; }

    TestWidget* widget = new TestWidget;
    ITestWidget* raw = widget;
};

template <class Action>
HRESULT statusOf(Action action)
{
    try {
        action();
    }
    catch (const _com_error& failure) {
        return failure.Error();
    }
    return S_OK;
}

}  // namespace

TEST_F(ComPtr, HoldsOneReferenceAndReleasesItWhenItGoes)
{
    {
        ITestWidgetPtr first(raw);
        EXPECT_EQ(widget->references(), 2u);
        ITestWidgetPtr second = first;
        EXPECT_EQ(widget->references(), 3u);
        second = first;  // the same object: no change
        EXPECT_EQ(widget->references(), 3u);
        ITestWidgetPtr& same = second;
        second = same;
        EXPECT_EQ(widget->references(), 3u);
        second = nullptr;
        EXPECT_EQ(widget->references(), 2u);
    }
    EXPECT_EQ(widget->references(), 1u);
}

TEST_F(ComPtr, AdoptsAReferenceWhenToldTo)
{
    raw->AddRef();
    {
        ITestWidgetPtr adopted(raw, false);
        EXPECT_EQ(widget->references(), 2u);
    }
    EXPECT_EQ(widget->references(), 1u);

    raw->AddRef();
    ITestWidgetPtr attached;
    attached.Attach(raw);
    EXPECT_EQ(widget->references(), 2u);
    ITestWidget* detached = attached.Detach();
    EXPECT_EQ(attached.GetInterfacePtr(), nullptr);
    EXPECT_EQ(widget->references(), 2u);
    detached->Release();
}

TEST_F(ComPtr, ConvertsBetweenInterfacesByQueryInterface)
{
    IUnknownPtr unknown(raw);
    ITestWidgetPtr typed(unknown);
    EXPECT_EQ(widget->references(), 3u);
    EXPECT_EQ(typed.GetInterfacePtr(), raw);
    EXPECT_TRUE(typed == unknown);

    IDispatchPtr dispatch;
    dispatch = typed;
    EXPECT_TRUE(dispatch);
    EXPECT_EQ(widget->references(), 4u);
}

TEST_F(ComPtr, ARefusedQueryGivesNullAndOtherFailuresRaise)
{
    ITestGadgetPtr gadget(raw);
    EXPECT_FALSE(gadget);
    EXPECT_TRUE(!gadget);
    EXPECT_EQ(widget->references(), 1u);

    TestWidget* broken = new TestWidget(E_UNEXPECTED);
    IUnknownPtr brokenUnknown(static_cast<ITestWidget*>(broken), false);
    EXPECT_EQ(statusOf([&] { ITestGadgetPtr never(brokenUnknown); }), E_UNEXPECTED);
}

TEST_F(ComPtr, NullRaisesEPointerWhereAnObjectIsNeeded)
{
    ITestWidgetPtr none;
    EXPECT_EQ(statusOf([&] { none->AddRef(); }), E_POINTER);
    EXPECT_EQ(statusOf([&] { none.Release(); }), E_POINTER);
    EXPECT_EQ(statusOf([&] { none.AddRef(); }), E_POINTER);
    EXPECT_TRUE(none == nullptr);
    EXPECT_EQ(ITestWidgetPtr(raw) == nullptr, false);
}

TEST_F(ComPtr, AddressOfReleasesAndReceivesANewReference)
{
    ITestWidgetPtr holder(raw);
    EXPECT_EQ(widget->references(), 2u);
    ITestWidget** slot = &holder;
    EXPECT_EQ(widget->references(), 1u);
    EXPECT_EQ(*slot, nullptr);
    ASSERT_EQ(raw->QueryInterface(__uuidof(ITestWidget), reinterpret_cast<void**>(slot)), S_OK);
    EXPECT_EQ(holder.GetInterfacePtr(), raw);
    EXPECT_EQ(widget->references(), 2u);
    holder.Release();
    EXPECT_EQ(widget->references(), 1u);
}

TEST_F(ComPtr, IdentityDecidesEquality)
{
    TestWidget* other = new TestWidget;
    ITestWidgetPtr otherPtr(static_cast<ITestWidget*>(other), false);
    ITestWidgetPtr mine(raw);
    IDispatchPtr mineAsDispatch(mine);
    EXPECT_TRUE(mine == mineAsDispatch);
    EXPECT_TRUE(mine != otherPtr);
    EXPECT_TRUE(mine == raw);
}

TEST_F(ComPtr, TakesTheObjectOfAVariant)
{
    const _variant_t holder(static_cast<IDispatch*>(raw));
    ITestWidgetPtr fromVariant(holder);
    EXPECT_EQ(fromVariant.GetInterfacePtr(), raw);
    EXPECT_EQ(widget->references(), 3u);

    EXPECT_EQ(statusOf([] { ITestWidgetPtr fromNumber(_variant_t(5L)); }), DISP_E_TYPEMISMATCH);
}

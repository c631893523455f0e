// Interface identifiers: the platform's values, and __uuidof on types, pointers and expressions.
#include <gtest/gtest.h>

#include "automation.h"
#include "test_widget.h"

TEST(Guid, ThePlatformInterfacesHaveTheirWellKnownIdentifiers)
{
    const GUID unknown = {0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
    const GUID dispatch = {0x00020400, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
    const GUID errorInfo = {0x1CF2B120, 0x547D, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
    const GUID createErrorInfo = {0x22F03340, 0x547D, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
    const GUID supportErrorInfo = {0xDF0B3D60, 0x548F, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};

    EXPECT_TRUE(IsEqualGUID(IID_IUnknown, unknown));
    EXPECT_TRUE(IsEqualGUID(IID_IDispatch, dispatch));
    EXPECT_TRUE(IsEqualGUID(IID_IErrorInfo, errorInfo));
    EXPECT_TRUE(IsEqualGUID(IID_ICreateErrorInfo, createErrorInfo));
    EXPECT_TRUE(IsEqualGUID(IID_ISupportErrorInfo, supportErrorInfo));
    EXPECT_TRUE(__uuidof(IDispatch) == dispatch);
    EXPECT_TRUE(__uuidof(ISupportErrorInfo) == supportErrorInfo);
    EXPECT_FALSE(IID_IUnknown == IID_IDispatch);
}

TEST(Guid, UuidofFindsTheIdentifierThroughPointersAndExpressions)
{
    const GUID widget = {0x02710e5d, 0x9ea5, 0x4353, {0x9f, 0xfb, 0xc7, 0xf5, 0x04, 0xab, 0xe0, 0xc4}};
    ITestWidget* pointer = nullptr;
    EXPECT_TRUE(__uuidof(ITestWidget) == widget);
    EXPECT_TRUE(__uuidof(ITestWidget*) == widget);
    EXPECT_TRUE(__uuidof(pointer) == widget);
    EXPECT_TRUE(__uuidof(*pointer) == widget);
    EXPECT_TRUE(ITestWidgetPtr::GetIID() == widget);
    EXPECT_FALSE(__uuidof(ITestGadget) == widget);
}

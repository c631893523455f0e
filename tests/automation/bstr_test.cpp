#include "automation.h"

#include <gtest/gtest.h>

TEST(Bstr, LengthPrefixCountsCharactersNotTerminator)
{
    BSTR text = SysAllocString(L"abc");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(SysStringLen(text), 3u);
    EXPECT_EQ(reinterpret_cast<const UINT*>(text)[-1], 3u * sizeof(wchar_t));
    SysFreeString(text);
}

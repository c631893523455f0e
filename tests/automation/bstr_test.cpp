// Length-prefixed strings: the prefix and terminator, null against empty, reallocation.
#include <cstring>

#include <gtest/gtest.h>

#include "automation.h"
#include "test_text.h"

TEST(Bstr, PrefixHoldsTheByteCountAndATerminatorFollows)
{
    BSTR text = SysAllocString(L"abc");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(SysStringLen(text), 3u);
    EXPECT_EQ(SysStringByteLen(text), 3u * sizeof(wchar_t));
    EXPECT_EQ(reinterpret_cast<const std::uint32_t*>(text)[-1], 3u * sizeof(wchar_t));
    EXPECT_EQ(text[3], L'\0');
    SysFreeString(text);
}

TEST(Bstr, LengthCountsEmbeddedNulls)
{
    BSTR text = SysAllocStringLen(L"a\0b", 3);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(SysStringLen(text), 3u);
    EXPECT_EQ(textOf(text), std::wstring(L"a\0b", 3));
    EXPECT_EQ(text[3], L'\0');
    SysFreeString(text);
}

TEST(Bstr, WithoutSourceTheBufferHasTheRequestedLengthAndIsTerminated)
{
    BSTR text = SysAllocStringLen(nullptr, 4);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(SysStringLen(text), 4u);
    EXPECT_EQ(text[4], L'\0');
    SysFreeString(text);
}

TEST(Bstr, ByteLengthStringsKeepAnOddCount)
{
    BSTR text = SysAllocStringByteLen("abc", 3);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(SysStringByteLen(text), 3u);
    EXPECT_EQ(std::memcmp(text, "abc", 4), 0);  // the bytes, then a terminating zero
    SysFreeString(text);
}

TEST(Bstr, NullIsTheEmptyStringButNotAnAllocatedOne)
{
    EXPECT_EQ(SysStringLen(nullptr), 0u);
    EXPECT_EQ(SysStringByteLen(nullptr), 0u);
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    SysFreeString(nullptr);

    BSTR empty = SysAllocString(L"");
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(SysStringLen(empty), 0u);
    EXPECT_EQ(empty[0], L'\0');
    SysFreeString(empty);
}

TEST(Bstr, ReallocationReplacesTheText)
{
    BSTR text = SysAllocString(L"hello");
    ASSERT_TRUE(SysReAllocString(&text, L"a longer text"));
    EXPECT_EQ(textOf(text), L"a longer text");

    // The source may lie inside the string being replaced.
    ASSERT_TRUE(SysReAllocString(&text, text + 2));
    EXPECT_EQ(textOf(text), L"longer text");

    // Without a source, as many old characters are kept as fit.
    ASSERT_TRUE(SysReAllocStringLen(&text, nullptr, 3));
    EXPECT_EQ(SysStringLen(text), 3u);
    EXPECT_EQ(std::wstring(text, 3), L"lon");
    SysFreeString(text);

    EXPECT_FALSE(SysReAllocString(nullptr, L"x"));
}

// Length-prefixed strings: the prefix and terminator, null against empty, reallocation.
#include <cstring>

#include <gtest/gtest.h>

#include "automation.h"
#include "test_text.h"

TEST(Bstr, PrefixHoldsTheByteCountAndATerminatorFollows)
{
    const OLECHAR terminator = L'\0';
    const struct {
        BSTR text;
        const void* content;  // null: left as allocated
        UINT bytes;
    } cases[] = {{SysAllocString(L"abc"), L"abc", 3 * sizeof(OLECHAR)},
                 {SysAllocStringLen(L"a\0b", 3), L"a\0b", 3 * sizeof(OLECHAR)},  // embedded nulls count
                 {SysAllocStringLen(nullptr, 4), nullptr, 4 * sizeof(OLECHAR)},
                 {SysAllocStringByteLen("abc", 3), "abc", 3}};  // an odd count is kept
    for (const auto& each : cases) {
        ASSERT_NE(each.text, nullptr);
        const char* bytes = reinterpret_cast<const char*>(each.text);
        EXPECT_EQ(reinterpret_cast<const std::uint32_t*>(each.text)[-1], each.bytes);
        EXPECT_EQ(SysStringByteLen(each.text), each.bytes);
        EXPECT_EQ(SysStringLen(each.text), each.bytes / sizeof(OLECHAR));
        if (each.content != nullptr) {
            EXPECT_EQ(std::memcmp(bytes, each.content, each.bytes), 0);
        }
        EXPECT_EQ(std::memcmp(bytes + each.bytes, &terminator, sizeof terminator), 0) << "no terminator";
        SysFreeString(each.text);
    }
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

// _bstr_t: shared text, assignment, null against empty, comparison and concatenation.
#include <cstring>

#include <gtest/gtest.h>

#include "automation.h"
#include "test_text.h"

namespace {

const wchar_t* pointerOf(const _bstr_t& text) { return static_cast<const wchar_t*>(text); }

}  // namespace

TEST(BstrT, CopiesShareOneStringUntilOneIsAssigned)
{
    _bstr_t original(L"shared");
    _bstr_t copy = original;
    _bstr_t assigned;
    assigned = copy;
    EXPECT_EQ(pointerOf(copy), pointerOf(original));
    EXPECT_EQ(pointerOf(assigned), pointerOf(original));

    copy = L"changed";
    EXPECT_EQ(textOf(original), L"shared");
    EXPECT_EQ(textOf(copy), L"changed");
    EXPECT_EQ(pointerOf(assigned), pointerOf(original));
}

TEST(BstrT, AssignmentToItselfKeepsTheText)
{
    _bstr_t text(L"kept");
    _bstr_t& same = text;
    text = same;
    EXPECT_EQ(textOf(text), L"kept");

    // Assigning its own characters is recognised and changes nothing.
    const wchar_t* before = pointerOf(text);
    text = static_cast<const wchar_t*>(text);
    EXPECT_EQ(pointerOf(text), before);
    EXPECT_EQ(textOf(text), L"kept");
}

TEST(BstrT, NothingNullAndEmptyAreThreeDifferentStates)
{
    const _bstr_t nothing;
    const _bstr_t null(static_cast<const wchar_t*>(nullptr));
    const _bstr_t empty(L"");

    EXPECT_EQ(pointerOf(nothing), nullptr);
    EXPECT_EQ(pointerOf(null), nullptr);
    ASSERT_NE(pointerOf(empty), nullptr);
    EXPECT_EQ(nothing.length(), 0u);
    EXPECT_EQ(null.length(), 0u);
    EXPECT_EQ(empty.length(), 0u);

    EXPECT_TRUE(!nothing);
    EXPECT_TRUE(!null);
    EXPECT_FALSE(!empty);

    // The platform orders "no string" before a null one, and both before any text.
    EXPECT_TRUE(nothing < null);
    EXPECT_TRUE(null < empty);
    EXPECT_TRUE(null == _bstr_t(static_cast<const wchar_t*>(nullptr)));
}

TEST(BstrT, ComparesByCharactersThenByLength)
{
    EXPECT_TRUE(_bstr_t(L"abc") == _bstr_t(L"abc"));
    EXPECT_TRUE(_bstr_t(L"abc") < _bstr_t(L"abd"));
    EXPECT_TRUE(_bstr_t(L"ab") < _bstr_t(L"abc"));
    EXPECT_TRUE(_bstr_t(L"b") > _bstr_t(L"abc"));
    EXPECT_TRUE(_bstr_t(L"abc") != _bstr_t(L"ABC"));
    EXPECT_TRUE(_bstr_t(L"abc") >= _bstr_t(L"abc"));
    EXPECT_TRUE(_bstr_t(L"abc") <= _bstr_t(L"abd"));
}

TEST(BstrT, ConcatenationMakesANewStringAndLeavesCopiesAlone)
{
    _bstr_t path(L"C:\\MX");
    const _bstr_t before = path;
    path += L"\\Support";
    EXPECT_EQ(textOf(path), L"C:\\MX\\Support");
    EXPECT_EQ(textOf(before), L"C:\\MX");

    EXPECT_EQ(textOf(L"[" + path + L"]"), L"[C:\\MX\\Support]");
    EXPECT_EQ(textOf(_bstr_t() + _bstr_t(L"x") + _bstr_t()), L"x");
    EXPECT_EQ(textOf(_bstr_t() + _bstr_t()), L"");
}

TEST(BstrT, HandsStringsToTheCallerAndTakesThemOver)
{
    _bstr_t text(L"handed");
    BSTR copy = text.copy();
    EXPECT_NE(copy, pointerOf(text));
    EXPECT_EQ(textOf(copy), L"handed");
    SysFreeString(copy);
    EXPECT_EQ(text.copy(false), pointerOf(text));

    BSTR detached = text.Detach();
    EXPECT_EQ(textOf(detached), L"handed");
    EXPECT_EQ(pointerOf(text), nullptr);
    SysFreeString(detached);

    // Taking a string over leaves the copies that shared the old one alone.
    text = L"old";
    const _bstr_t other = text;
    text.Attach(SysAllocString(L"attached"));
    EXPECT_EQ(textOf(text), L"attached");
    EXPECT_EQ(textOf(other), L"old");

    *text.GetAddress() = SysAllocString(L"received");
    EXPECT_EQ(textOf(text), L"received");

    _bstr_t fresh;
    fresh.GetBSTR() = SysAllocString(L"through GetBSTR");
    EXPECT_EQ(textOf(fresh), L"through GetBSTR");

    _bstr_t assigned;
    BSTR source = SysAllocString(L"assigned");
    assigned.Assign(source);
    EXPECT_NE(pointerOf(assigned), source);
    SysFreeString(source);
    EXPECT_EQ(textOf(assigned), L"assigned");
}

TEST(BstrT, ConvertsFromNarrowTextAndVariants)
{
    const _bstr_t fromNarrow("Plot 1");
    EXPECT_EQ(textOf(fromNarrow), L"Plot 1");
    EXPECT_STREQ(static_cast<const char*>(_bstr_t(L"Layout 2")), "Layout 2");
    EXPECT_EQ(static_cast<const char*>(_bstr_t()), nullptr);

    EXPECT_EQ(textOf(_bstr_t(_variant_t(L"text"))), L"text");
    EXPECT_EQ(textOf(_bstr_t(_variant_t(42L))), L"42");
    EXPECT_THROW(static_cast<void>(_bstr_t(vtMissing)), _com_error);
}

#ifndef _WIN32
// The portable build's narrow encoding is UTF-8 (the platform's is the ANSI code page).
TEST(BstrT, NarrowTextIsUtf8)
{
    const _bstr_t text("Gr\xC3\xB6\xC3\x9F" "e \xE2\x82\xAC \xF0\x9F\x93\x90");
    EXPECT_EQ(textOf(text), L"Gr\u00F6\u00DFe \u20AC \U0001F4D0");
    EXPECT_STREQ(static_cast<const char*>(text), "Gr\xC3\xB6\xC3\x9F" "e \xE2\x82\xAC \xF0\x9F\x93\x90");

    // Bytes that are no UTF-8 become replacement characters.
    EXPECT_EQ(textOf(_bstr_t("a\xFF" "b\xC3")), L"a\uFFFDb\uFFFD");
    EXPECT_EQ(textOf(_bstr_t("\xC0\xAF")), L"\uFFFD");  // overlong
}
#endif

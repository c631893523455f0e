// The portable runtime's test hooks: strings alive, and string allocations that fail on demand,
// followed through the wrappers that must turn them into E_OUTOFMEMORY without leaking.
#include <functional>

#include <gtest/gtest.h>

#include "automation.h"
#include "automation_failure.h"
#include "test_text.h"

#if AUTOMATION_HAS_TEST_HOOKS

using automation_testing::failStringAllocation;
using automation_testing::liveStrings;

namespace {

class StringHooks : public ::testing::Test {
protected:
    void TearDown() override
    {
        failStringAllocation(0);
        EXPECT_EQ(liveStrings(), m_before) << "strings were leaked";
    }

    const unsigned long m_before = liveStrings();
};

}  // namespace

TEST_F(StringHooks, CountStringsUntilTheyAreFreed)
{
    BSTR text = SysAllocString(L"counted");
    EXPECT_EQ(liveStrings(), m_before + 1);
    {
        _bstr_t owner(text, false);
        _bstr_t shared = owner;  // copies share the one string
        EXPECT_EQ(liveStrings(), m_before + 1);
        _variant_t copy(shared);
        EXPECT_EQ(liveStrings(), m_before + 2);
    }
    EXPECT_EQ(liveStrings(), m_before);
}

TEST_F(StringHooks, TheNthAllocationFailsOnce)
{
    failStringAllocation(2);
    BSTR first = SysAllocString(L"first");
    BSTR second = SysAllocString(L"second");
    BSTR third = SysAllocString(L"third");
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(second, nullptr);
    EXPECT_NE(third, nullptr);
    SysFreeString(first);
    SysFreeString(third);

    failStringAllocation(1);
    failStringAllocation(0);  // disarmed before it fell
    BSTR kept = SysAllocString(L"kept");
    EXPECT_NE(kept, nullptr);
    SysFreeString(kept);
}

TEST_F(StringHooks, WrappersRaiseOutOfMemory)
{
    const _bstr_t left(L"left");
    const _bstr_t right(L"right");
    _variant_t number(42L);
    const std::function<void()> allocations[] = {
        [] { _bstr_t text(L"wide"); },
        [] { _bstr_t text("narrow"); },
        [] { _variant_t text(L"variant"); },
        [&] { _bstr_t joined = left + right; },
        [&] { SysFreeString(left.copy()); },
        [&] { number.ChangeType(VT_BSTR); },
    };
    for (const auto& allocate : allocations) {
        failStringAllocation(1);
        EXPECT_EQ(failureOf(allocate).Error(), E_OUTOFMEMORY);
    }
    EXPECT_EQ(V_VT(&number), VT_I4);

    // A failed assignment or copy leaves the target empty, not broken.
    _bstr_t target(L"before");
    failStringAllocation(1);
    EXPECT_EQ(failureOf([&] { target = L"after"; }).Error(), E_OUTOFMEMORY);
    EXPECT_EQ(target.length(), 0u);
    _variant_t source(L"source");
    _variant_t destination(L"destination");
    failStringAllocation(1);
    EXPECT_EQ(VariantCopy(&destination, &source), E_OUTOFMEMORY);
    EXPECT_EQ(V_VT(&destination), VT_EMPTY);
}

TEST_F(StringHooks, ArraysKeepTheirElementsWhenACopyFails)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 0, 3);
    for (LONG index = 0; index < 3; ++index) {
        _bstr_t text(L"element");
        SafeArrayPutElement(array, &index, text.GetBSTR());
    }
    LONG index = 1;
    _bstr_t replacement(L"replacement");
    failStringAllocation(1);
    EXPECT_EQ(SafeArrayPutElement(array, &index, replacement.GetBSTR()), E_OUTOFMEMORY);
    BSTR kept = nullptr;
    SafeArrayGetElement(array, &index, &kept);
    EXPECT_EQ(textOf(kept), L"element");
    SysFreeString(kept);

    // A copy that fails half-way frees what it had copied.
    SAFEARRAY* copy = nullptr;
    failStringAllocation(3);
    EXPECT_EQ(SafeArrayCopy(array, &copy), E_OUTOFMEMORY);
    EXPECT_EQ(copy, nullptr);
    SafeArrayDestroy(array);
}

#endif

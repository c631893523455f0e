// BSTR allocation, and the accounting that the test hooks read and arm.
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <limits>

#include "automation.h"

namespace {

using LengthPrefix = std::uint32_t;  // the byte count stored before the characters

constexpr std::size_t maximumBytes =
    std::numeric_limits<LengthPrefix>::max() - sizeof(LengthPrefix) - sizeof(OLECHAR);

std::atomic<unsigned long> liveCount{0};
std::atomic<unsigned long> failureCountdown{0};

// True when the armed failure falls on this allocation; each allocation moves the count on.
bool failureDue()
{
    unsigned long remaining = failureCountdown.load();
    while (remaining != 0) {
        if (failureCountdown.compare_exchange_weak(remaining, remaining - 1))
            return remaining == 1;
    }
    return false;
}

LengthPrefix* prefixOf(BSTR string) { return reinterpret_cast<LengthPrefix*>(string) - 1; }

// A string of `bytes` bytes followed by a terminator; its bytes copied from `source` when that is
// not null, else left as they are.
BSTR allocate(const void* source, std::size_t bytes)
{
    if (bytes > maximumBytes || failureDue())
        return nullptr;
    auto* prefix = static_cast<LengthPrefix*>(std::malloc(sizeof(LengthPrefix) + bytes + sizeof(OLECHAR)));
    if (prefix == nullptr)
        return nullptr;
    *prefix = static_cast<LengthPrefix>(bytes);
    char* characters = reinterpret_cast<char*>(prefix + 1);
    if (source != nullptr)
        std::memcpy(characters, source, bytes);
    std::memset(characters + bytes, 0, sizeof(OLECHAR));
    ++liveCount;
    return reinterpret_cast<BSTR>(characters);
}

}  // namespace

BSTR SysAllocString(const OLECHAR* text)
{
    return text == nullptr ? nullptr : allocate(text, std::wcslen(text) * sizeof(OLECHAR));
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT length)
{
    return allocate(text, std::size_t{length} * sizeof(OLECHAR));
}

BSTR SysAllocStringByteLen(LPCSTR bytes, UINT length) { return allocate(bytes, length); }

INT SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length)
{
    if (string == nullptr)
        return FALSE;
    BSTR replacement = allocate(nullptr, std::size_t{length} * sizeof(OLECHAR));
    if (replacement == nullptr)
        return FALSE;
    // Without a text the old characters are kept as far as they reach.
    const OLECHAR* from = text != nullptr ? text : *string;
    const UINT copied = text != nullptr ? length : std::min(length, SysStringLen(*string));
    if (from != nullptr)
        std::memcpy(replacement, from, copied * sizeof(OLECHAR));
    SysFreeString(*string);
    *string = replacement;
    return TRUE;
}

INT SysReAllocString(BSTR* string, const OLECHAR* text)
{
    if (text == nullptr)  // the platform keeps the string as it is
        return string != nullptr;
    return SysReAllocStringLen(string, text, static_cast<UINT>(std::wcslen(text)));
}

void SysFreeString(BSTR string)
{
    if (string == nullptr)
        return;
    --liveCount;
    std::free(prefixOf(string));
}

UINT SysStringByteLen(BSTR string) { return string == nullptr ? 0 : *prefixOf(string); }

UINT SysStringLen(BSTR string) { return SysStringByteLen(string) / sizeof(OLECHAR); }

namespace automation_testing {

void failStringAllocation(unsigned long nth) { failureCountdown = nth; }

unsigned long liveStrings() { return liveCount; }

}  // namespace automation_testing

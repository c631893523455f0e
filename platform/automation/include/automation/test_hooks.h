// Test hooks of the portable runtime: string allocation and variant copy failures on demand and a
// count of the strings alive, so that E_OUTOFMEMORY and failed-copy paths can be driven and
// leaked strings found. The platform
// has no such hooks; test code checks AUTOMATION_HAS_TEST_HOOKS.
#pragma once

#ifndef _WIN32

#include "automation/export.h"
#include "automation/hresult.h"

#define AUTOMATION_HAS_TEST_HOOKS 1

namespace automation_testing {

// Makes the nth string allocation from now on (1: the next one) fail as if memory were short; the
// count then disarms itself. 0 disarms it at once. Every BSTR allocation counts: SysAllocString*,
// SysReAllocString*, and the copies and conversions made by variants, arrays and wrappers.
AUTOMATION_API void failStringAllocation(unsigned long nth);

// Makes the nth VariantCopy call from now on (1: the next one) fail with `status`, leaving its
// destination untouched; the count then disarms itself. 0 disarms it at once.
AUTOMATION_API void failVariantCopy(unsigned long nth, HRESULT status);

// BSTRs allocated and not yet freed, in the whole process.
AUTOMATION_API unsigned long liveStrings();

}  // namespace automation_testing

#endif

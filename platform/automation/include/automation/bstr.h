// BSTR: the length-prefixed wide string of automation. The 32-bit count of bytes sits just before
// the characters and a terminator follows them, so a BSTR also reads as a C string; a null BSTR is
// the empty string to every function here.
#pragma once

#include "automation/export.h"
#include "automation/win_types.h"

typedef OLECHAR* BSTR;

// A copy of the terminated string `text`; null when `text` is null or memory is short.
AUTOMATION_API BSTR SysAllocString(const OLECHAR* text);
// `length` characters copied from `text`, or left uninitialised (but terminated) when `text` is
// null; null when memory is short.
AUTOMATION_API BSTR SysAllocStringLen(const OLECHAR* text, UINT length);
// The same by bytes: `length` bytes from `bytes`, or uninitialised when `bytes` is null.
AUTOMATION_API BSTR SysAllocStringByteLen(LPCSTR bytes, UINT length);
// Replace *string by a copy of `text` (which may lie inside *string); FALSE, and *string
// unchanged, when memory is short. A null `text` leaves *string as it is.
AUTOMATION_API INT SysReAllocString(BSTR* string, const OLECHAR* text);
// The same with `length` characters; a null `text` keeps as many of the old ones as fit.
AUTOMATION_API INT SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length);
AUTOMATION_API void SysFreeString(BSTR string);
// Characters, without the terminator.
AUTOMATION_API UINT SysStringLen(BSTR string);
AUTOMATION_API UINT SysStringByteLen(BSTR string);

// Raising the automation failure, and the narrow-string conversions of the compiler's COM support.
#pragma once

#include "automation/bstr.h"
#include "automation/export.h"
#include "automation/guid.h"
#include "automation/hresult.h"

struct IUnknown;

// Throws _com_error(status). Not marked noreturn, as on the platform, so both builds warn alike.
AUTOMATION_API void _com_issue_error(HRESULT status);
// Throws _com_error(status) carrying the calling thread's error information when `object` says,
// through ISupportErrorInfo, that it leaves it for interface `iid`.
AUTOMATION_API void _com_issue_errorex(HRESULT status, IUnknown* object, REFIID iid);

namespace _com_util {

inline void CheckError(HRESULT status)
{
    if (FAILED(status))
        _com_issue_error(status);
}

// UTF-8 here (the platform uses the ANSI code page); invalid sequences become U+FFFD. A null
// argument gives null; short memory raises E_OUTOFMEMORY.
AUTOMATION_API BSTR ConvertStringToBSTR(const char* text);
// The result is the caller's, to free with delete[].
AUTOMATION_API char* ConvertBSTRToString(BSTR text);

}  // namespace _com_util

// The few system services automation code relies on: the local heap that message buffers live
// in, the thread's last error, and the system message table behind FormatMessageW.
#pragma once

#include <cstdarg>

#include "automation/export.h"
#include "automation/hresult.h"

typedef void* HLOCAL;

#define LMEM_FIXED 0x0000
#define LMEM_ZEROINIT 0x0040
#define LPTR (LMEM_FIXED | LMEM_ZEROINIT)

// Null when the block cannot be had.
AUTOMATION_API HLOCAL LocalAlloc(UINT flags, std::size_t bytes);
// Null on success, as on the platform; null is accepted.
AUTOMATION_API HLOCAL LocalFree(HLOCAL block);

// The task allocator that out-parameters of automation calls are allocated with (CUSTDATA).
AUTOMATION_API LPVOID CoTaskMemAlloc(std::size_t bytes);
AUTOMATION_API void CoTaskMemFree(LPVOID block);

AUTOMATION_API DWORD GetLastError();
AUTOMATION_API void SetLastError(DWORD error);

#define FORMAT_MESSAGE_ALLOCATE_BUFFER 0x00000100
#define FORMAT_MESSAGE_IGNORE_INSERTS 0x00000200
#define FORMAT_MESSAGE_FROM_STRING 0x00000400
#define FORMAT_MESSAGE_FROM_HMODULE 0x00000800
#define FORMAT_MESSAGE_FROM_SYSTEM 0x00001000
#define FORMAT_MESSAGE_ARGUMENT_ARRAY 0x00002000
#define FORMAT_MESSAGE_MAX_WIDTH_MASK 0x000000FF

// Looks `messageId` up in the system message table (a status code, or a Win32 error number) and
// gives its text, which ends in "\r\n" as the platform's texts do. With
// FORMAT_MESSAGE_ALLOCATE_BUFFER `buffer` is really a wchar_t** that receives a LocalAlloc'd copy
// (free it with LocalFree); otherwise the text is written into `buffer` of `size` characters.
// Returns the text's length without the terminator, or 0 with the thread's last error set
// (ERROR_MR_MID_NOT_FOUND for an unknown code). Only system messages are kept: other sources fail
// with ERROR_INVALID_PARAMETER. The table's texts contain no inserts, so arguments are not read.
AUTOMATION_API DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD languageId,
                                    LPWSTR buffer, DWORD size, va_list* arguments);
#define FormatMessage FormatMessageW

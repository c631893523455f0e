// Status codes: HRESULT, its macros, and the codes automation calls report, with the platform's
// values. Win32 error numbers appear as far as status codes are formed from them.
#pragma once

#include "automation/win_types.h"

typedef std::int32_t HRESULT;

#define SUCCEEDED(hr) (((HRESULT)(hr)) >= 0)
#define FAILED(hr) (((HRESULT)(hr)) < 0)

#define SEVERITY_SUCCESS 0
#define SEVERITY_ERROR 1
#define FACILITY_NULL 0
#define FACILITY_DISPATCH 2
#define FACILITY_ITF 4
#define FACILITY_WIN32 7

#define MAKE_HRESULT(severity, facility, code) \
    ((HRESULT)(((std::uint32_t)(severity) << 31) | ((std::uint32_t)(facility) << 16) | ((std::uint32_t)(code))))
#define HRESULT_CODE(hr) ((hr) & 0xFFFF)
#define HRESULT_FACILITY(hr) (((hr) >> 16) & 0x1FFF)
#define HRESULT_SEVERITY(hr) (((hr) >> 31) & 0x1)

// Win32 error numbers, and their status-code form.
#define ERROR_SUCCESS 0L
#define ERROR_INVALID_FUNCTION 1L
#define ERROR_FILE_NOT_FOUND 2L
#define ERROR_PATH_NOT_FOUND 3L
#define ERROR_ACCESS_DENIED 5L
#define ERROR_INVALID_HANDLE 6L
#define ERROR_NOT_ENOUGH_MEMORY 8L
#define ERROR_OUTOFMEMORY 14L
#define ERROR_INVALID_PARAMETER 87L
#define ERROR_INSUFFICIENT_BUFFER 122L
#define ERROR_MR_MID_NOT_FOUND 317L
#define ERROR_RESOURCE_LANG_NOT_FOUND 1815L

constexpr HRESULT HRESULT_FROM_WIN32(unsigned long error)
{
    return static_cast<HRESULT>(error) <= 0
               ? static_cast<HRESULT>(error)
               : static_cast<HRESULT>((error & 0x0000FFFF) | (FACILITY_WIN32 << 16) | 0x80000000u);
}

#define S_OK ((HRESULT)0)
#define S_FALSE ((HRESULT)1)
#define NOERROR S_OK

#define E_UNEXPECTED ((HRESULT)0x8000FFFFu)
#define E_NOTIMPL ((HRESULT)0x80004001u)
#define E_NOINTERFACE ((HRESULT)0x80004002u)
#define E_POINTER ((HRESULT)0x80004003u)
#define E_ABORT ((HRESULT)0x80004004u)
#define E_FAIL ((HRESULT)0x80004005u)
#define E_ACCESSDENIED ((HRESULT)0x80070005u)
#define E_HANDLE ((HRESULT)0x80070006u)
#define E_OUTOFMEMORY ((HRESULT)0x8007000Eu)
#define E_INVALIDARG ((HRESULT)0x80070057u)

#define DISP_E_UNKNOWNINTERFACE ((HRESULT)0x80020001u)
#define DISP_E_MEMBERNOTFOUND ((HRESULT)0x80020003u)
#define DISP_E_PARAMNOTFOUND ((HRESULT)0x80020004u)
#define DISP_E_TYPEMISMATCH ((HRESULT)0x80020005u)
#define DISP_E_UNKNOWNNAME ((HRESULT)0x80020006u)
#define DISP_E_NONAMEDARGS ((HRESULT)0x80020007u)
#define DISP_E_BADVARTYPE ((HRESULT)0x80020008u)
#define DISP_E_EXCEPTION ((HRESULT)0x80020009u)
#define DISP_E_OVERFLOW ((HRESULT)0x8002000Au)
#define DISP_E_BADINDEX ((HRESULT)0x8002000Bu)
#define DISP_E_UNKNOWNLCID ((HRESULT)0x8002000Cu)
#define DISP_E_ARRAYISLOCKED ((HRESULT)0x8002000Du)
#define DISP_E_BADPARAMCOUNT ((HRESULT)0x8002000Eu)
#define DISP_E_PARAMNOTOPTIONAL ((HRESULT)0x8002000Fu)
#define DISP_E_BADCALLEE ((HRESULT)0x80020010u)
#define DISP_E_NOTACOLLECTION ((HRESULT)0x80020011u)
#define DISP_E_DIVBYZERO ((HRESULT)0x80020012u)
#define TYPE_E_ELEMENTNOTFOUND ((HRESULT)0x8002802Bu)

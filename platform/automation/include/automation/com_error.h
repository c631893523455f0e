// _com_error: the automation failure. It carries the status code and, when the failing object left
// it, the error information record, and forms its message on first request exactly as the
// platform's does.
//
// Like the platform's it derives from nothing: a catch of std::exception does not see it.
#pragma once

#include "automation/bstr_t.h"
#include "automation/error_info.h"
#include "automation/export.h"
#include "automation/hresult.h"

class AUTOMATION_API _com_error {
public:
    // Takes `perrinfo`'s reference over, or adds one when `fAddRef`.
    _com_error(HRESULT hr, IErrorInfo* perrinfo = nullptr, bool fAddRef = false) noexcept;
    _com_error(const _com_error& that) noexcept;
    virtual ~_com_error();
    _com_error& operator=(const _com_error& that) noexcept;

    HRESULT Error() const noexcept;
    // The code's number among the IDispatch errors (0x80040201 to 0x8004FFFF), else 0.
    WORD WCode() const noexcept;
    // The record with a reference for the caller, or null.
    IErrorInfo* ErrorInfo() const noexcept;
    _bstr_t Description() const;
    DWORD HelpContext() const noexcept;
    _bstr_t HelpFile() const;
    _bstr_t Source() const;
    GUID GUID_() const noexcept;
    // The system's text for the code without its line break; "IDispatch error #n" or
    // "Unknown error 0x...", or null when even that cannot be allocated. Kept until destruction.
    const TCHAR* ErrorMessage() const noexcept;

    static HRESULT WCodeToHRESULT(WORD wCode) noexcept;
    static WORD HRESULTToWCode(HRESULT hr) noexcept;

private:
    static constexpr HRESULT WCODE_HRESULT_FIRST = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x200);
    static constexpr HRESULT WCODE_HRESULT_LAST = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF + 1, 0) - 1;

    void Dtor() noexcept;
    void Ctor(const _com_error& that) noexcept;

    HRESULT m_hresult;
    IErrorInfo* m_perrinfo;
    mutable TCHAR* m_pszMsg;
};

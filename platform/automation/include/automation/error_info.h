// Error information: the per-thread record a failing object leaves for its caller, the interfaces
// that read and build it, and ISupportErrorInfo, through which an object says for which of its
// interfaces it leaves one.
#pragma once

#include "automation/bstr.h"
#include "automation/export.h"
#include "automation/unknown.h"

struct IErrorInfo : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetGUID(GUID* guid) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSource(BSTR* source) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDescription(BSTR* description) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR* helpFile) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD* helpContext) = 0;
};

struct ICreateErrorInfo : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SetGUID(REFGUID guid) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetSource(LPOLESTR source) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetDescription(LPOLESTR description) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetHelpFile(LPOLESTR helpFile) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetHelpContext(DWORD helpContext) = 0;
};

struct ISupportErrorInfo : IUnknown {
    // S_OK when the object leaves error information for failures of interface `iid`.
    virtual HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) = 0;
};

AUTOMATION_DECLARE_UUID(IErrorInfo, 0x1CF2B120, 0x547D, 0x101B, 0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19)
AUTOMATION_DECLARE_UUID(ICreateErrorInfo, 0x22F03340, 0x547D, 0x101B, 0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19)
AUTOMATION_DECLARE_UUID(ISupportErrorInfo, 0xDF0B3D60, 0x548F, 0x101B, 0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19)
inline constexpr const IID& IID_IErrorInfo = __uuidof(IErrorInfo);
inline constexpr const IID& IID_ICreateErrorInfo = __uuidof(ICreateErrorInfo);
inline constexpr const IID& IID_ISupportErrorInfo = __uuidof(ISupportErrorInfo);

// Replaces the calling thread's record (null clears it); the thread keeps one reference.
AUTOMATION_API HRESULT SetErrorInfo(ULONG reserved, IErrorInfo* info);
// Hands the calling thread's record over to the caller and clears it; S_FALSE and null when
// there is none.
AUTOMATION_API HRESULT GetErrorInfo(ULONG reserved, IErrorInfo** info);
// A new, empty record to fill in; query it for IErrorInfo to set it. Texts never set (or set to
// null) are given back as null BSTRs, as the platform gives them.
AUTOMATION_API HRESULT CreateErrorInfo(ICreateErrorInfo** info);

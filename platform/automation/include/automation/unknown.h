// IUnknown: reference counting and interface discovery, the base of every automation interface.
#pragma once

#include "automation/guid.h"
#include "automation/hresult.h"

struct IUnknown {
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;

    template <class Q>
    HRESULT STDMETHODCALLTYPE QueryInterface(Q** object)
    {
        return QueryInterface(__uuidof(Q), reinterpret_cast<void**>(object));
    }
};
typedef IUnknown* LPUNKNOWN;

AUTOMATION_DECLARE_UUID(IUnknown, 0x00000000, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46)
inline constexpr const IID& IID_IUnknown = __uuidof(IUnknown);

// IEnumVARIANT: the enumeration a collection gives through its _NewEnum member (DISPID_NEWENUM),
// which For Each in scripts and C++ walks.
#pragma once

#include "automation/unknown.h"
#include "automation/variant.h"

#define DISPID_NEWENUM (-4)

struct IEnumVARIANT : IUnknown {
    // Gives up to `count` items into `items` (each a variant the caller clears) and their number in
    // `fetched` (which may be null when `count` is 1): S_OK for all of them, S_FALSE for fewer.
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* items, ULONG* fetched) = 0;
    // Passes over `count` items: S_FALSE when fewer were left.
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    // A second enumeration that starts where this one stands.
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) = 0;
};
typedef IEnumVARIANT* LPENUMVARIANT;

AUTOMATION_DECLARE_UUID(IEnumVARIANT, 0x00020404, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
                        0x46)
inline constexpr const IID& IID_IEnumVARIANT = __uuidof(IEnumVARIANT);

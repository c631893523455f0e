// The IDispatch members of a test object that serves no type information and no names: they answer
// E_NOTIMPL, as the platform's own objects without type information do. Objects called through their
// vtable only take EarlyBoundOnly, whose Invoke refuses too, so a test notices any late binding.
#pragma once

#include "automation.h"

template <class Interface> class UntypedDispatch : public Interface {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
};

template <class Interface> class EarlyBoundOnly : public UntypedDispatch<Interface> {
public:
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        return E_NOTIMPL;
    }
};

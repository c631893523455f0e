// A host-object stand-in that counts the references its callers hold. The test owns it (it is
// never deleted through Release), so the count can be read after every reference is gone.
#pragma once

#include "automation.h"

struct ICounted : public IDispatch {
};
AUTOMATION_DECLARE_UUID(ICounted, 0x6d1c3a52, 0x0b7e, 0x4c1f, 0x9a, 0x31, 0x52, 0x8e, 0x04, 0xd7, 0x6b, 0x19)
_COM_SMARTPTR_TYPEDEF(ICounted, __uuidof(ICounted));

class CountedObject : public ICounted {
public:
    CountedObject() = default;
    CountedObject(const CountedObject&) = delete;
    CountedObject& operator=(const CountedObject&) = delete;

    ULONG references() const { return m_references; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (object == nullptr)
            return E_POINTER;
        if (iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) || iid == __uuidof(ICounted)) {
            *object = static_cast<ICounted*>(this);
            AddRef();
            return S_OK;
        }
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_references; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        return E_NOTIMPL;
    }

private:
    ULONG m_references = 0;
};

// The IDispatch the platform makes of any instance and its type information, and the dispatcher's
// two entry points that objects with IDispatch implementations of their own call.
#include "automation.h"
#include "automation/com_object.h"

namespace {

class StandardDispatch final : public automation::ComObject<StandardDispatch, IDispatch> {
public:
    StandardDispatch(void* instance, ITypeInfo* typeInfo) : m_instance(instance), m_typeInfo(typeInfo) {}

    void* interfaceFor(REFIID iid)
    {
        return iid == IID_IUnknown || iid == IID_IDispatch ? static_cast<IDispatch*>(this) : nullptr;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override
    {
        if (count == nullptr)
            return E_INVALIDARG;
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** typeInfo) override
    {
        if (typeInfo == nullptr)
            return E_INVALIDARG;
        *typeInfo = nullptr;
        if (index != 0)
            return DISP_E_BADINDEX;
        *typeInfo = m_typeInfo;
        m_typeInfo->AddRef();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override
    {
        if (reserved != IID_NULL)
            return E_INVALIDARG;
        return DispGetIDsOfNames(m_typeInfo, names, count, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argumentError) override
    {
        if (reserved != IID_NULL)
            return E_INVALIDARG;
        return DispInvoke(m_instance, m_typeInfo, member, flags, parameters, result, exception,
                          argumentError);
    }

private:
    friend ComObject;  // only the last Release deletes it
    ~StandardDispatch() = default;

    void* m_instance;
    const ITypeInfoPtr m_typeInfo;
};

}  // namespace

HRESULT CreateStdDispatch(IUnknown*, void* instance, ITypeInfo* typeInfo, IUnknown** dispatch)
{
    if (instance == nullptr || typeInfo == nullptr || dispatch == nullptr)
        return E_INVALIDARG;
    *dispatch = static_cast<IDispatch*>(new StandardDispatch(instance, typeInfo));
    return S_OK;
}

HRESULT DispGetIDsOfNames(ITypeInfo* typeInfo, LPOLESTR* names, UINT count, DISPID* ids)
{
    if (typeInfo == nullptr)
        return E_INVALIDARG;
    return typeInfo->GetIDsOfNames(names, count, ids);
}

HRESULT DispInvoke(void* instance, ITypeInfo* typeInfo, DISPID member, WORD flags, DISPPARAMS* parameters,
                   VARIANT* result, EXCEPINFO* exception, UINT* argumentError)
{
    if (typeInfo == nullptr)
        return E_INVALIDARG;
    return typeInfo->Invoke(instance, member, flags, parameters, result, exception, argumentError);
}

// _com_ptr_t: the owning smart pointer of an interface, with _COM_SMARTPTR_TYPEDEF giving
// `InterfacePtr`. It holds one reference and releases it when it goes, including when a failure
// unwinds the caller. Construction or assignment from a pointer of another interface queries for
// this one: a refused query leaves it null, any other failure raises.
//
// As on the platform: Release(), AddRef(), operator-> and operator* raise E_POINTER on a null
// pointer; operator& releases what is held and gives the address to receive a new reference into.
#pragma once

#include <functional>

#include "automation/com_util.h"
#include "automation/dispatch.h"
#include "automation/error_info.h"
#include "automation/unknown.h"
#include "automation/variant_t.h"

// Supplies a smart pointer's interface type and its identifier.
template <typename InterfaceType, const IID& (*iidGetter)()>
class _com_IIID_getter {
public:
    typedef InterfaceType Interface;
    static const IID& GetIID() noexcept { return iidGetter(); }
};

template <typename _IIID>
class _com_ptr_t {
public:
    typedef _IIID ThisIIID;
    typedef typename _IIID::Interface Interface;

    static const IID& GetIID() noexcept { return ThisIIID::GetIID(); }

    _com_ptr_t() noexcept : m_pInterface(nullptr) {}
    _com_ptr_t(decltype(nullptr)) noexcept : m_pInterface(nullptr) {}
    // Only 0 is accepted, as a null pointer; anything else raises E_POINTER.
    _com_ptr_t(int null) : m_pInterface(nullptr) { raiseUnlessNull(null); }
    _com_ptr_t(const _com_ptr_t& cp) noexcept : m_pInterface(cp.m_pInterface) { _AddRef(); }
    _com_ptr_t(Interface* pInterface) noexcept : m_pInterface(pInterface) { _AddRef(); }
    // Adopts the caller's reference when !fAddRef.
    _com_ptr_t(Interface* pInterface, bool fAddRef) noexcept : m_pInterface(pInterface)
    {
        if (fAddRef)
            _AddRef();
    }
    template <typename _OtherIID>
    _com_ptr_t(const _com_ptr_t<_OtherIID>& p) : m_pInterface(nullptr)
    {
        raiseUnlessQueried(_QueryInterface(p.GetInterfacePtr()));
    }
    template <typename _InterfaceType>
    _com_ptr_t(_InterfaceType* p) : m_pInterface(nullptr)
    {
        raiseUnlessQueried(_QueryInterface(p));
    }
    _com_ptr_t(const _variant_t& varSrc) : m_pInterface(nullptr)
    {
        raiseUnlessQueried(QueryStdInterfaces(varSrc));
    }
    ~_com_ptr_t() { _Release(); }

    template <typename _OtherIID>
    _com_ptr_t& operator=(const _com_ptr_t<_OtherIID>& p)
    {
        raiseUnlessQueried(_QueryInterface(p.GetInterfacePtr()));
        return *this;
    }
    template <typename _InterfaceType>
    _com_ptr_t& operator=(_InterfaceType* p)
    {
        raiseUnlessQueried(_QueryInterface(p));
        return *this;
    }
    _com_ptr_t& operator=(Interface* pInterface) noexcept
    {
        if (m_pInterface != pInterface) {
            Interface* old = m_pInterface;
            m_pInterface = pInterface;
            _AddRef();
            if (old != nullptr)
                old->Release();
        }
        return *this;
    }
    _com_ptr_t& operator=(const _com_ptr_t& cp) noexcept { return operator=(cp.m_pInterface); }
    _com_ptr_t& operator=(decltype(nullptr)) noexcept { return operator=(static_cast<Interface*>(nullptr)); }
    _com_ptr_t& operator=(int null)
    {
        raiseUnlessNull(null);
        return operator=(static_cast<Interface*>(nullptr));
    }
    _com_ptr_t& operator=(long null)  // NULL is a long here
    {
        raiseUnlessNull(null);
        return operator=(static_cast<Interface*>(nullptr));
    }
    _com_ptr_t& operator=(const _variant_t& varSrc)
    {
        raiseUnlessQueried(QueryStdInterfaces(varSrc));
        return *this;
    }

    // Adopts the caller's reference.
    void Attach(Interface* pInterface) noexcept
    {
        _Release();
        m_pInterface = pInterface;
    }
    void Attach(Interface* pInterface, bool fAddRef)
    {
        _Release();
        m_pInterface = pInterface;
        if (fAddRef) {
            if (pInterface == nullptr)
                _com_issue_error(E_POINTER);
            else
                pInterface->AddRef();
        }
    }
    // Hands the reference over to the caller.
    Interface* Detach() noexcept
    {
        Interface* const old = m_pInterface;
        m_pInterface = nullptr;
        return old;
    }

    operator Interface*() const noexcept { return m_pInterface; }
    operator Interface&() const { return *checked(); }
    Interface& operator*() const { return *checked(); }
    Interface** operator&() noexcept
    {
        _Release();
        m_pInterface = nullptr;
        return &m_pInterface;
    }
    Interface* operator->() const { return checked(); }
    operator bool() const noexcept { return m_pInterface != nullptr; }

    // Equality is identity: both sides are asked for IUnknown, as COM defines it.
    template <typename _OtherIID>
    bool operator==(const _com_ptr_t<_OtherIID>& p) const
    {
        return _CompareUnknown(p.GetInterfacePtr()) == 0;
    }
    template <typename _InterfaceType>
    bool operator==(_InterfaceType* p) const
    {
        return _CompareUnknown(p) == 0;
    }
    bool operator==(Interface* p) const { return m_pInterface == p || _CompareUnknown(p) == 0; }
    bool operator==(const _com_ptr_t& p) const { return operator==(p.m_pInterface); }
    bool operator==(decltype(nullptr)) const noexcept { return m_pInterface == nullptr; }
    bool operator==(int null) const
    {
        raiseUnlessNull(null);
        return m_pInterface == nullptr;
    }
    bool operator==(long null) const
    {
        raiseUnlessNull(null);
        return m_pInterface == nullptr;
    }
    template <typename Other>
    bool operator!=(const Other& p) const
    {
        return !operator==(p);
    }
    template <typename _InterfaceType>
    bool operator!=(_InterfaceType* p) const
    {
        return !operator==(p);
    }
    bool operator!=(decltype(nullptr)) const noexcept { return m_pInterface != nullptr; }

    // Releases the reference; raises E_POINTER when there is none.
    void Release()
    {
        checked()->Release();
        m_pInterface = nullptr;
    }
    void AddRef() { checked()->AddRef(); }
    Interface* GetInterfacePtr() const noexcept { return m_pInterface; }
    Interface*& GetInterfacePtr() noexcept { return m_pInterface; }

    template <typename _InterfaceType>
    HRESULT QueryInterface(const IID& iid, _InterfaceType*& p) noexcept
    {
        if (m_pInterface != nullptr)
            return m_pInterface->QueryInterface(iid, reinterpret_cast<void**>(&p));
        return E_POINTER;
    }
    template <typename _InterfaceType>
    HRESULT QueryInterface(const IID& iid, _InterfaceType** p) noexcept
    {
        return QueryInterface(iid, *p);
    }

private:
    Interface* m_pInterface;

    static void raiseUnlessNull(long null)
    {
        if (null != 0)
            _com_issue_error(E_POINTER);
    }
    static void raiseUnlessQueried(HRESULT hr)
    {
        if (FAILED(hr) && hr != E_NOINTERFACE)
            _com_issue_error(hr);
    }
    Interface* checked() const
    {
        if (m_pInterface == nullptr)
            _com_issue_error(E_POINTER);
        return m_pInterface;
    }
    void _Release() noexcept
    {
        if (m_pInterface != nullptr)
            m_pInterface->Release();
    }
    void _AddRef() noexcept
    {
        if (m_pInterface != nullptr)
            m_pInterface->AddRef();
    }
    // Replaces what is held by `p`'s answer to a query for this interface; a null `p` gives null
    // and E_NOINTERFACE.
    template <typename _InterfacePtr>
    HRESULT _QueryInterface(_InterfacePtr p) noexcept
    {
        if (p == nullptr) {
            operator=(static_cast<Interface*>(nullptr));
            return E_NOINTERFACE;
        }
        Interface* queried = nullptr;
        const HRESULT hr = p->QueryInterface(GetIID(), reinterpret_cast<void**>(&queried));
        Attach(SUCCEEDED(hr) ? queried : nullptr);
        return hr;
    }
    template <typename _InterfacePtr>
    static IUnknown* identity(_InterfacePtr p)
    {
        if (p == nullptr)
            return nullptr;
        IUnknown* unknown = nullptr;
        const HRESULT hr = p->QueryInterface(__uuidof(IUnknown), reinterpret_cast<void**>(&unknown));
        if (FAILED(hr))
            _com_issue_error(hr);
        unknown->Release();  // only the address is compared
        return unknown;
    }
    template <typename _InterfacePtr>
    int _CompareUnknown(_InterfacePtr p) const
    {
        std::less<IUnknown*> before;
        IUnknown* const mine = identity(m_pInterface);
        IUnknown* const theirs = identity(p);
        return before(mine, theirs) ? -1 : before(theirs, mine) ? 1 : 0;
    }
    // A variant holding an interface: VT_DISPATCH, VT_UNKNOWN, or what converts to one of them.
    HRESULT QueryStdInterfaces(const _variant_t& varSrc) noexcept
    {
        if (V_VT(&varSrc) == VT_DISPATCH)
            return _QueryInterface(V_DISPATCH(&varSrc));
        if (V_VT(&varSrc) == VT_UNKNOWN)
            return _QueryInterface(V_UNKNOWN(&varSrc));
        VARIANT converted;
        VariantInit(&converted);
        VARIANT* source = const_cast<VARIANT*>(static_cast<const VARIANT*>(&varSrc));
        HRESULT hr = VariantChangeType(&converted, source, 0, VT_DISPATCH);
        if (SUCCEEDED(hr))
            hr = _QueryInterface(V_DISPATCH(&converted));
        if (hr == E_NOINTERFACE) {
            VariantClear(&converted);
            hr = VariantChangeType(&converted, source, 0, VT_UNKNOWN);
            if (SUCCEEDED(hr))
                hr = _QueryInterface(V_UNKNOWN(&converted));
        }
        VariantClear(&converted);
        return hr;
    }
};

template <typename _IIID>
bool operator==(int null, const _com_ptr_t<_IIID>& p)
{
    return p == null;
}
template <typename _Interface, typename _IIID>
bool operator==(_Interface* i, const _com_ptr_t<_IIID>& p)
{
    return p == i;
}
template <typename _IIID>
bool operator!=(int null, const _com_ptr_t<_IIID>& p)
{
    return !(p == null);
}
template <typename _Interface, typename _IIID>
bool operator!=(_Interface* i, const _com_ptr_t<_IIID>& p)
{
    return !(p == i);
}

// `Interface`Ptr for an interface and its identifier.
#define _COM_SMARTPTR_TYPEDEF(Interface, aIID)                            \
    inline const IID& automation_iid_of_##Interface() { return aIID; } \
    typedef _com_ptr_t<_com_IIID_getter<Interface, automation_iid_of_##Interface>> Interface##Ptr

// The platform's smart pointers of its own interfaces.
_COM_SMARTPTR_TYPEDEF(IUnknown, __uuidof(IUnknown));
_COM_SMARTPTR_TYPEDEF(IDispatch, __uuidof(IDispatch));
_COM_SMARTPTR_TYPEDEF(IErrorInfo, __uuidof(IErrorInfo));
_COM_SMARTPTR_TYPEDEF(ICreateErrorInfo, __uuidof(ICreateErrorInfo));
_COM_SMARTPTR_TYPEDEF(ISupportErrorInfo, __uuidof(ISupportErrorInfo));
_COM_SMARTPTR_TYPEDEF(ITypeInfo, __uuidof(ITypeInfo));
_COM_SMARTPTR_TYPEDEF(ITypeInfo2, __uuidof(ITypeInfo2));
_COM_SMARTPTR_TYPEDEF(ITypeComp, __uuidof(ITypeComp));
_COM_SMARTPTR_TYPEDEF(ITypeLib, __uuidof(ITypeLib));
_COM_SMARTPTR_TYPEDEF(IEnumVARIANT, __uuidof(IEnumVARIANT));

// Late binding of the simulator's automation objects: their IDispatch, served from the host's
// type library through the automation runtime's own dispatcher, so that a call by name reaches the
// same typed method, with the same journal entry, faults and answers, as a call through the
// vtable.
#pragma once

#include "host/host_core.h"

#include "automation.h"

namespace sim::detail {

HRESULT giveTypeInfoCount(UINT* count);
HRESULT giveTypeInfo(const IID& interfaceId, UINT index, ITypeInfo** typeInfo);
// The platform's dispatcher answers for the names, except for a null name or id array, which it
// would read; those are refused here with E_INVALIDARG, as is a reserved id other than IID_NULL
// (DISP_E_UNKNOWNINTERFACE).
HRESULT findDispatchIds(const IID& interfaceId, REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids);

// Serves a call on `object`, the interface pointer whose vtable the interface's type information
// describes, through the platform's dispatcher, which answers for everything but a reserved id
// other than IID_NULL (DISP_E_UNKNOWNINTERFACE) and the argument puArgErr names when an argument
// does not convert (DISP_E_TYPEMISMATCH), which this adds. While the call lasts, `core` (if any)
// knows it as late-bound (Call::lateBound), with the variant types its arguments arrived as; the
// arguments a property get passes on to the default member of the object it gives are that
// member's, not the property's.
HRESULT invokeByDispatchId(HostCore* core, void* object, const IID& interfaceId, DISPID member,
                           REFIID reserved, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* exception, UINT* argumentError);

// The IDispatch of an object whose interface the host's type library describes: calls by name
// reach the object's own typed members.
template <class Interface> class DispatchedByName : public Interface {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return giveTypeInfoCount(count); }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** typeInfo) override
    {
        return giveTypeInfo(__uuidof(Interface), index, typeInfo);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override
    {
        return findDispatchIds(__uuidof(Interface), reserved, names, count, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argumentError) override
    {
        return invokeByDispatchId(lateBoundHost(), static_cast<Interface*>(this), __uuidof(Interface), member,
                                  reserved, flags, parameters, result, exception, argumentError);
    }

protected:
    ~DispatchedByName() = default;
    // The host whose journal records the late-bound calls this object serves; none by default.
    virtual HostCore* lateBoundHost() const { return nullptr; }
};

}  // namespace sim::detail

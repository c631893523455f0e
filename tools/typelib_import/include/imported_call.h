// What the wrappers of every imported type library share: the one way a failed status becomes the
// automation failure, and the forms in which arguments cross and results come back.
#pragma once

#include "automation.h"

// The non-virtual wrappers of an imported interface turn a failed status into the automation
// failure carrying the status, the object and the identifier of the interface the call was made
// on, so that the object's error information can be attached.
namespace imported_call {

// Variants cross as the caller's own value, shallowly: a wrapper makes no copy and clears nothing.
inline const VARIANT& argument(const _variant_t& value)
{
    return value;
}

template <class Interface> inline void raiseOnFailure(HRESULT status, Interface* object)
{
    if (FAILED(status))
        _com_issue_errorex(status, object, __uuidof(Interface));
}

template <class Interface, class Method, class... Args>
inline void invoke(Interface* object, Method method, Args... args)
{
    raiseOnFailure((object->*method)(args...), object);
}

template <class Value, class Interface, class Getter, class... Args>
inline Value value(Interface* object, Getter getter, Args... args)
{
    Value result{};
    raiseOnFailure((object->*getter)(args..., &result), object);
    return result;
}

template <class Interface, class Getter, class... Args>
inline _bstr_t text(Interface* object, Getter getter, Args... args)
{
    BSTR result = nullptr;
    raiseOnFailure((object->*getter)(args..., &result), object);
    return _bstr_t(result, false);
}

// The returned reference belongs to the smart pointer.
template <class ObjectPtr, class Interface, class Getter, class... Args>
inline ObjectPtr object(Interface* object, Getter getter, Args... args)
{
    typename ObjectPtr::Interface* result = nullptr;
    raiseOnFailure((object->*getter)(args..., &result), object);
    return ObjectPtr(result, false);
}

}  // namespace imported_call

// The dispatcher: ITypeInfo::Invoke of a loaded interface, once the member is found.
#pragma once

#include "type_library_model.h"

namespace automation::detail {

// Calls `function` (whose types `context` resolves) on `instance`, the interface pointer whose
// vtable holds it at vtable slot function.vtableOffset / `pointerSize`, in the way `flags`
// allows, with the arguments of `parameters`, as the platform's dispatcher does:
// - a property put takes its value named DISPID_PROPERTYPUT, as the first named argument;
// - each declared parameter takes the named argument of its position (the last one also the
//   value named DISPID_PROPERTYPUT), else the next positional one; arguments left over are not
//   used, and an optional parameter without one gets the missing-argument variant;
// - an argument is coerced to its parameter's variant type (call_types.h; VARIANT parameters
//   take it as given), and the coercion's failure is the call's, puArgErr left alone;
// - the [out, retval] parameter's value replaces *result without releasing what was there, its
//   type's empty value when the member failed without giving one; a member without one leaves
//   *result alone;
// - the member's failure is DISP_E_EXCEPTION, with its status and what the thread's error
//   information says (which this takes) written into *exception, its other fields left alone;
// - a property get whose one parameter is its result, given arguments, passes them on to the
//   default member (DISPID_VALUE) of the object it gives, answering as that call does, or
//   DISP_E_NOTACOLLECTION when it gives no object.
HRESULT invokeFunction(ITypeInfo* context, const FunctionModel& function, WORD pointerSize, void* instance,
                       WORD flags, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* exception,
                       UINT* argumentError);

}  // namespace automation::detail

// The dispatcher of a described interface: ITypeInfo::Invoke of its type information.
#pragma once

#include "automation/type_description.h"

namespace automation::detail {

// Calls member `id` of `instance` (an interface pointer of `described`) in one of the ways
// `flags` allows, with the arguments of `parameters`, as the platform's dispatcher does:
// - a property put takes its value named DISPID_PROPERTYPUT, as the first named argument;
// - each declared parameter takes the named argument of its position (the last one also the
//   value named DISPID_PROPERTYPUT), else the next positional one; arguments left over are not
//   used, and an optional parameter without one gets the missing-argument variant;
// - an argument is coerced to its parameter's type (VARIANT parameters take it as given), and the
//   coercion's failure is the call's, puArgErr left alone;
// - what the member gives replaces *result without releasing what was there; a member that gives
//   nothing leaves *result alone, and one that fails gives its type's empty value;
// - the member's failure is DISP_E_EXCEPTION, with its status and what the thread's error
//   information says (which this takes) written into *exception, its other fields left alone;
// - a property get that takes no parameters but is given arguments passes them on to the default
//   member (DISPID_VALUE) of the object it gives, answering as that call does, or
//   DISP_E_NOTACOLLECTION when it gives no object.
HRESULT invokeDescribed(const DescribedInterface& described, void* instance, MEMBERID id, WORD flags,
                        DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception, UINT* argumentError);

}  // namespace automation::detail

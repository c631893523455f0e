// The variant types a late-bound call passes the parameters and results of a loaded function as.
#pragma once

#include "automation.h"

namespace automation::detail {

// The variant type a value declared as `type` is passed as, its references resolved through
// `context`, as the platform's dispatcher maps them: VT_HRESULT as VT_ERROR, VT_INT and VT_UINT
// as VT_I4 and VT_UI4, an enumeration as VT_I4, an alias as the type it names, a safe array as
// VT_ARRAY of its element's type, a pointer as VT_BYREF of what it points at (one level only),
// and a pointer to an interface as VT_DISPATCH (an interface clients can dispatch on) or
// VT_UNKNOWN, with VT_BYREF for a pointer to such a pointer. DISP_E_BADVARTYPE for a type no
// variant passes (VT_VOID, VT_PTR to a pointer, a C array, a C string).
HRESULT variantTypeOf(ITypeInfo* context, const TYPEDESC& type, VARTYPE& variantType);

}  // namespace automation::detail

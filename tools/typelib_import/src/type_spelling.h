// Types spelled as C++ and as variant types.
#pragma once

#include "library_model.h"

#include <string>

namespace typelib_import {

// The C++ type of a raw method's parameter ("long", "BSTR*", "HostMenuGroup**", "IUnknown**").
// Throws ImportError for a variant type that has no C++ spelling here.
std::string cppType(const Type& type);

// The variant type a value of this type crosses late binding as: an interface as VT_DISPATCH, an
// enumeration as VT_I4. Throws ImportError where none fits.
VARTYPE variantTypeOf(const Type& type);

// "VT_BSTR" ...: the name of a variant type variantTypeOf gives, or VT_EMPTY.
std::string variantTypeName(VARTYPE type);

}  // namespace typelib_import

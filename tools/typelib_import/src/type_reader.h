// Types and default values as the platform's type information describes them.
#pragma once

#include "library_model.h"

#include <string>

namespace typelib_import {

// A parameter's or alias's type; `where` names the member for an error. A referenced type is
// looked up through the owner, whichever library it comes from.
Type readType(ITypeInfo* owner, const TYPEDESC& description, const std::string& where);

DefaultValue readDefaultValue(const VARIANT& value, const std::string& where);

}  // namespace typelib_import

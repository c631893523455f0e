// What late binding needs of an interface's DISPIDs, which widl does not hold to.
#pragma once

#include "library_model.h"

namespace typelib_import {

// Throws ImportError, naming the interface and the DISPID, when one DISPID names two members
// other than a property's get and put: a caller by name or id would reach only one of them, and
// the type information names every member of one DISPID alike, so that even the imported header
// would misname them. (widl gives a property's put the DISPID of its get, whatever the IDL says.)
void checkDispatchIds(const Interface& declared);

}  // namespace typelib_import

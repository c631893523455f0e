// The descriptions type information hands out (FUNCDESC, VARDESC, TYPEATTR): each a block of its
// own, with copies of its type chains and default values, so that the caller may keep it until it
// gives it back through any type information's Release... of this runtime.
#pragma once

#include "type_library_model.h"

namespace automation::detail {

// A FUNCDESC of `function` as the interface declares it.
FUNCDESC* describeFunction(const FunctionModel& function);

// Turns `function` into what a dispinterface shows: FUNC_DISPATCH, and a member that gives an
// HRESULT with a last [retval] parameter gives that parameter's type instead (one without gives
// VT_VOID). E_UNEXPECTED when the [retval] parameter is not a pointer.
HRESULT presentAsDispatch(FUNCDESC* function);

// Adds `offset` to every VT_USERDEFINED reference of `function`'s result and parameters, so that a
// member inherited into a dispinterface names types by references its dispinterface resolves.
void offsetReferences(FUNCDESC* function, HREFTYPE offset);

VARDESC* describeVariable(const VariableModel& variable);

// A TYPEATTR with every field zero but those of `alias`, copied; the caller fills the rest.
TYPEATTR* newTypeAttributes(const TYPEDESC& alias);

void releaseFunction(FUNCDESC* function);
void releaseVariable(VARDESC* variable);
void releaseTypeAttributes(TYPEATTR* attributes);

}  // namespace automation::detail

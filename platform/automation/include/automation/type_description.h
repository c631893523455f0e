// Type information from a description compiled into the program, where the platform would load a
// type library: each interface's members with their DISPIDs, parameters and a function that calls
// the member through the interface's vtable (a code generator writes these from the IDL that the
// platform's type library is compiled from, so both describe the same interfaces).
#pragma once

#include "automation/type_info.h"

// Calls the member on `instance` (the interface pointer) with `arguments` in declared order,
// already of their declared types, and stores what it gives in `result` (VT_EMPTY for nothing).
typedef HRESULT (*DescribedCall)(void* instance, VARIANT* arguments, VARIANT* result);

struct DescribedParameter {
    const wchar_t* name;
    VARTYPE type;  // VT_VARIANT passes the argument as given; VT_USERDEFINED an enumeration (VT_I4)
    USHORT flags;  // PARAMFLAG_FIN, with PARAMFLAG_FOPT for an optional one
};

struct DescribedMember {
    const wchar_t* name;
    MEMBERID id;
    INVOKEKIND kind;
    const DescribedParameter* parameters;
    SHORT parameterCount;
    VARTYPE resultType;  // VT_EMPTY when the member gives nothing
    DescribedCall call;
    WORD flags;  // FUNCFLAG_FRESTRICTED, FUNCFLAG_FHIDDEN
    const wchar_t* resultName;  // of the [out, retval] parameter, which names find after the others; or null
};

struct DescribedInterface {
    const IID* iid;
    const wchar_t* name;
    const DescribedMember* members;
    UINT memberCount;
};

// The dispatch type information of `described` (TKIND_DISPATCH of a dual interface, its own
// members only), with a reference for the caller. `described` must outlive every reference.
AUTOMATION_API HRESULT CreateDescribedTypeInfo(const DescribedInterface* described, ITypeInfo** typeInfo);

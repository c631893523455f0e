// What the type information and the dispatcher of a described interface share: its members found
// by DISPID and way of calling, or by name without regard to case, and the members every dual
// interface inherits from IUnknown and IDispatch.
#pragma once

#include "automation/type_description.h"

namespace automation::detail {

// Names as the platform compares them: equal without regard to case.
bool sameName(const wchar_t* a, const wchar_t* b);

// The first member, in declared order, of DISPID `id` that answers one of the ways of calling in
// `flags`; null when none does.
const DescribedMember* findMember(const DescribedInterface& described, MEMBERID id, WORD flags);

// The first member, in declared order, called `name`; null when none is.
const DescribedMember* memberNamed(const DescribedInterface& described, const wchar_t* name);

// The members of IUnknown and IDispatch under the platform's names and DISPIDs, with their
// parameters' names. They are found by name, but no late-bound call reaches them (the platform
// marks them restricted), so they describe no call.
const DescribedInterface& inheritedDispatchMembers();

}  // namespace automation::detail

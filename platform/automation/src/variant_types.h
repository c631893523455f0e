// What the runtime knows of each variant type: how a value of it is kept, and which types a
// variant or an array element may have. One table, used by variants, arrays and conversions.
#pragma once

#include "automation.h"

namespace automation_detail {

enum class Storage {
    Value,      // plain bits, copied as they are
    String,     // an owned BSTR
    Interface,  // an owned reference
    Variant,    // an owned VARIANT (array elements only)
};

struct TypeTraits {
    std::size_t size;  // of one value, as an array element; 0 when the runtime does not keep the type
    Storage storage;
};

// The traits of a basic type (no VT_ARRAY or VT_BYREF bits).
TypeTraits traitsOf(VARTYPE basicType);

// Whether a variant may hold `type` here: VT_EMPTY, VT_NULL, a kept basic type, an array of one,
// or a reference to one or to a VARIANT.
bool variantMayHold(VARTYPE type);

// The value `source` refers to, as a variant of its own (sharing, not owning, its contents);
// DISP_E_TYPEMISMATCH for a null reference or a reference to a reference.
HRESULT dereferenced(const VARIANT& source, VARIANT& value);

}  // namespace automation_detail

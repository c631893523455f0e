// Positions as the host's interface documents them: a menu, a menu group, the menu bar or a
// toolbar takes a VT_I4 variant, a document a VT_INT variant. Positions are made here by name,
// never left to the type of a loop counter.
#pragma once

#include "automation.h"

namespace external_utilities {

// A caller's position goes to the host whole, never narrowed here: where long is wider than the
// host's 32 bits, a value beyond them is the host's to refuse, as toolbar placements are.
inline _variant_t menuPosition(long position)
{
    return _variant_t(position, VT_I4);
}

inline _variant_t toolbarPosition(long position)
{
    return menuPosition(position);
}

// Only the walk over the documents makes these, below the host's own 32-bit count.
inline _variant_t documentPosition(long position)
{
    _variant_t variant;
    V_VT(&variant) = VT_INT;
    V_INT(&variant) = static_cast<INT>(position);
    return variant;
}

// A position variant copied for the call, as the host's own callers copy theirs: a failed copy
// raises its status.
inline _variant_t copiedPosition(const _variant_t& position)
{
    return _variant_t(position);
}

}  // namespace external_utilities

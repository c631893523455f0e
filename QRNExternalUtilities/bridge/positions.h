// Positions as the host's interface documents them: a menu, a menu group, the menu bar or a
// toolbar takes a VT_I4 variant, a document a VT_INT variant. Positions are made here by name,
// never left to the type of a loop counter.
#pragma once

#include "automation.h"

#include <cstdint>

namespace external_utilities {

inline _variant_t menuPosition(std::int32_t position)
{
    return _variant_t(static_cast<long>(position), VT_I4);
}

inline _variant_t toolbarPosition(std::int32_t position)
{
    return menuPosition(position);
}

inline _variant_t documentPosition(std::int32_t position)
{
    _variant_t variant;
    V_VT(&variant) = VT_INT;
    V_INT(&variant) = position;
    return variant;
}

// A position variant copied for the call, as the host's own callers copy theirs: a failed copy
// raises its status.
inline _variant_t copiedPosition(const _variant_t& position)
{
    return _variant_t(position);
}

}  // namespace external_utilities

// Yes/no values as the host's automation Boolean carries them: 16 bits, true being all bits set.
// Operations test an answer for exactly true, exactly false, or any bit, each as it says.
#pragma once

#include "automation.h"

namespace external_utilities {

inline bool isExactlyTrue(VARIANT_BOOL flag)
{
    return static_cast<unsigned short>(flag) == 0xFFFF;
}
inline bool isExactlyFalse(VARIANT_BOOL flag)
{
    return flag == 0;
}

}  // namespace external_utilities

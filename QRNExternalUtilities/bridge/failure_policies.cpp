#include "bridge/failure_policies.h"

namespace external_utilities {

void dropFailureMessage(const _com_error& failure)
{
    static_cast<void>(failure.ErrorMessage());
}

}  // namespace external_utilities

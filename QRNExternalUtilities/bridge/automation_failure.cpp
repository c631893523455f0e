#include "bridge/automation_failure.h"

namespace external_utilities {

void dropFailureMessage(const _com_error& failure)
{
    static_cast<void>(failure.ErrorMessage());
}

}  // namespace external_utilities

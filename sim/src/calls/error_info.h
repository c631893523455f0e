// The error information a failing host object leaves for its caller.
#pragma once

#include "automation.h"

#include <string>

namespace sim::detail {

void setErrorInformation(const IID& iid, const std::wstring& source, const std::wstring& description);

}  // namespace sim::detail

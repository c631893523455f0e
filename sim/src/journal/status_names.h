// The names of the status codes the simulated host reports, both ways: the journal prints them
// and JSON states accept them.
#pragma once

#include "automation.h"

#include <optional>
#include <string>

namespace sim {

// "E_FAIL", "DISP_E_BADINDEX" ..., or "0x80040205" for a code without a name here.
std::string nameOfStatus(HRESULT status);
// A name of the table or a hexadecimal "0x..." code; null when it is neither.
std::optional<HRESULT> statusFromName(const std::string& name);

}  // namespace sim

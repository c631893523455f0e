// Whether a fault can act on what it names. A fault that could not (a withheld object of a call
// that gives none, a null answer of a number, an unknown method) is refused where it is armed:
// by Host::armFault and by the JSON reader, with the fault's JSON path.
#pragma once

#include "sim/faults.h"

#include <optional>
#include <string>

namespace sim::detail {

// Why `fault` cannot act, or nothing when it can.
std::optional<std::string> whyFaultCannotAct(const Fault& fault);

}  // namespace sim::detail

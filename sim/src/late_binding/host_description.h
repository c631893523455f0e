// The host's interfaces as the portable runtime dispatches them, written at build time from the
// host's IDL (scripts/host_idl.py describe) for builds whose runtime loads no type library.
#pragma once

#include "host/object_model.h"

#include <cstddef>

namespace sim::detail {

extern const DescribedInterface kHostInterfaces[];
extern const size_t kHostInterfaceCount;

}  // namespace sim::detail

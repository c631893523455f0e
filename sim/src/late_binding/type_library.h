// The host's type library, as the simulated host serves it to late-bound callers.
#pragma once

#include "automation.h"

#include <string>

namespace sim::detail {

// The type information of one interface of the host's library (for a dual interface, its
// dispatch description, as GetTypeInfoOfGuid gives it), with a reference for the caller. On
// Windows the library is the resource of the simulator's DLL, loaded through the platform on first
// demand and kept for the life of the process; elsewhere the portable runtime serves the same
// description, compiled in. Fails with the runtime's status when there is none.
HRESULT hostTypeInfo(const IID& iid, ITypeInfo** typeInfo);

#ifdef _WIN32
// The simulator's own DLL, whose resource holds the library; empty when it cannot be found.
std::wstring simulatorModulePath();
#endif

}  // namespace sim::detail

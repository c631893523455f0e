// The host's type library, as the simulated host serves it to late-bound callers.
#pragma once

#include "automation.h"

#include <string>

namespace sim::detail {

// The type information of one interface of the host's library (for a dual interface, its
// dispatch description, as GetTypeInfoOfGuid gives it), with a reference for the caller. The
// library is loaded on first demand and kept for the life of the process: on Windows from the
// simulator's DLL, whose resource holds it, elsewhere from ZorbHost.tlb in the folder of the
// simulator's library. Fails with the loader's status when it cannot be loaded
// (TYPE_E_CANTLOADLIBRARY for a missing file).
HRESULT hostTypeInfo(const IID& iid, ITypeInfo** typeInfo);

#ifdef _WIN32
// The simulator's own DLL, whose resource holds the library; empty when it cannot be found.
std::wstring simulatorModulePath();
#endif

}  // namespace sim::detail

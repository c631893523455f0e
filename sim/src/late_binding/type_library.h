// The host's type library, as the simulated host serves it to late-bound callers.
#pragma once

#include "automation.h"

#include <string>

namespace sim::detail {

// The type information of one interface the simulated host serves, of the host's library or of
// the simulator's own (for a dual interface, its dispatch description, as GetTypeInfoOfGuid gives
// it), with a reference for the caller. On Windows the libraries are resources of the simulator's
// DLL, loaded through the platform on first demand and kept for the life of the process; elsewhere
// the portable runtime serves the host's description, compiled in. Fails with the runtime's status
// when there is none.
HRESULT hostTypeInfo(const IID& iid, ITypeInfo** typeInfo);

#ifdef _WIN32
// The type library resources of the simulator's DLL, numbered as its resource script numbers them.
enum class ServedLibrary { host = 1, simulator = 2 };

// The simulator's own DLL, whose resources hold the libraries; empty when it cannot be found.
std::wstring simulatorModulePath();

// The path by which LoadTypeLibEx finds `library` in the DLL; empty when the DLL cannot be found.
std::wstring servedLibraryPath(ServedLibrary library);
#endif

}  // namespace sim::detail

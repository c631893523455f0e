// The type libraries the simulated host serves to late-bound callers: the host's, and the
// simulator's own (its control and its classes), which imports the host's.
#pragma once

#include "automation.h"

#include <string>

namespace sim::detail {

// The served libraries, numbered as the windows DLL's resource script numbers them.
enum class ServedLibrary { host = 1, simulator = 2 };

// The path by which LoadTypeLibEx finds `library`: on Windows a resource of the simulator's DLL,
// elsewhere ZorbHost.tlb or ZorbSimulator.tlb in the folder of the simulator's library. Empty when
// the simulator's own file cannot be found.
std::wstring servedLibraryPath(ServedLibrary library);

// The type information of one interface the simulated host serves, of the host's library or of
// the simulator's own (for a dual interface, its dispatch description, as GetTypeInfoOfGuid gives
// it), with a reference for the caller. Each library is loaded on first demand and kept for the
// life of the process. Fails with the loader's status when a library cannot be loaded
// (TYPE_E_CANTLOADLIBRARY for a missing file).
HRESULT hostTypeInfo(const IID& iid, ITypeInfo** typeInfo);

#ifdef _WIN32
// The simulator's own DLL, whose resources hold the libraries; empty when it cannot be found.
std::wstring simulatorModulePath();
#endif

}  // namespace sim::detail

// Compiled as a source of the module would be: the simulated host's headers must be out of its
// reach, so this must not compile.
#include "sim/host.h"

// Host state files: reading one (scenarios' "host", `zorbsim state --host`, `zorbsim view --host`).
// The final state of a run (--dump-state) is written as an output file (output_file.h).
#pragma once

#include "sim/model.h"

#include <string>

namespace zorbsim {

// Unreadable, malformed or invalid files throw an InputError naming the file and the place in it.
sim::HostState readStateFile(const std::string& path);

}  // namespace zorbsim

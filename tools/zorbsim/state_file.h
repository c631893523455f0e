// Host state files: reading one (scenarios' "host", `zorbsim state --host`) and writing the final
// state (--dump-state).
#pragma once

#include "sim/model.h"

#include <nlohmann/json.hpp>

#include <string>

namespace zorbsim {

// Unreadable, malformed or invalid files throw an InputError naming the file and the place in it.
sim::HostState readStateFile(const std::string& path);

// Written to a temporary file beside `path` and renamed over it, so that `path` holds either its
// old content or the whole new state. A failure throws an InputError naming the file.
void writeStateFile(const std::string& path, const nlohmann::json& state);

}  // namespace zorbsim

// Host state files: reading one (scenarios' "host", `zorbsim state --host`) and writing the final
// state (--dump-state).
#pragma once

#include "sim/model.h"

#include <nlohmann/json.hpp>

#include <stdexcept>
#include <string>

namespace zorbsim {

// Unreadable, malformed or invalid files throw an InputError naming the file and the place in it.
sim::HostState readStateFile(const std::string& path);

// Whether `path` may take a dump, checked before a run so that a bad one runs nothing: it names a
// regular file or none, in an existing folder. Throws an InputError saying why not.
void checkDumpTarget(const std::string& path);

// Writing the dump failed after the run; the message names the file and the reason.
class DumpError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Written to a temporary file of its own beside `path` (created exclusively, so two runs never
// share one) and renamed over it, so that `path` holds either its old content or the whole new
// state; the temporary file is removed on every failure. Throws a DumpError.
void writeStateFile(const std::string& path, const nlohmann::json& state);

}  // namespace zorbsim

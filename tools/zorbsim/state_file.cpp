#include "state_file.h"

#include "input_error.h"

#include "sim/state_json.h"

namespace zorbsim {

sim::HostState readStateFile(const std::string& path)
{
    try {
        return sim::loadStateFile(path);
    }
    catch (const sim::StateError& error) {
        throw InputError(error.what());  // it names the file and the place in it
    }
}

}  // namespace zorbsim

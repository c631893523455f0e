#include "state_file.h"

#include "input_error.h"

#include "sim/state_json.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

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

void writeStateFile(const std::string& path, const nlohmann::json& state)
{
    const std::filesystem::path target(path);
    const std::filesystem::path temporary = target.string() + ".partial";
    {
        std::ofstream file(temporary, std::ios::binary | std::ios::trunc);
        if (!file)
            throw InputError(path + ": cannot write the host state (" + std::strerror(errno) + ")");
        file << state.dump(2) << "\n";
        file.close();
        if (!file) {
            std::error_code ignored;
            std::filesystem::remove(temporary, ignored);
            throw InputError(path + ": cannot write the host state");
        }
    }
    std::error_code error;
    std::filesystem::rename(temporary, target, error);
    if (error) {
        std::error_code ignored;
        std::filesystem::remove(temporary, ignored);
        throw InputError(path + ": cannot write the host state (" + error.message() + ")");
    }
}

}  // namespace zorbsim

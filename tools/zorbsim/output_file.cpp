#include "output_file.h"

#include "input_error.h"

#include <fcntl.h>
#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <system_error>

namespace zorbsim {
namespace {

#ifndef O_BINARY
constexpr int O_BINARY = 0;
#endif

namespace fs = std::filesystem;

// Why the target cannot be written, or empty when it can.
std::string whyNotWritable(const OutputTarget& target)
{
    const std::string& path = target.path;
    if (path.empty())
        return target.option + " needs a file name";
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path, error);
    // A link, a device or a folder there would be replaced or followed: only files are written.
    if (status.type() != fs::file_type::not_found && status.type() != fs::file_type::regular)
        return path + ": not a regular file, so " + target.option + " does not replace it";
    // One slip of the tab key must not cost the scenario: an input is never written over.
    for (const InputFile& input : target.inputs) {
        if (fs::equivalent(path, input.path, error))
            return path + ": " + input.role + ", so " + target.option + " does not write over it";
    }
    const fs::path folder = fs::path(path).parent_path();
    if (!folder.empty() && !fs::is_directory(folder, error))
        return path + ": the folder " + folder.string() + " does not exist";
    return {};
}

// A file that only this run can have made, beside the target so that the rename stays on one
// file system.
int createTemporaryBeside(const std::string& path, std::string& name)
{
    std::random_device entropy;
    for (int attempt = 0; attempt < 16; ++attempt) {
        name = path + "." + std::to_string(entropy()) + ".partial";
        const int file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_BINARY, 0644);
        if (file >= 0 || errno != EEXIST)
            return file;
    }
    return -1;
}

bool writeAll(int file, const std::string& text)
{
    for (size_t written = 0; written < text.size();) {
        const auto piece = ::write(file, text.data() + written, static_cast<unsigned>(text.size() - written));
        if (piece <= 0)
            return false;
        written += static_cast<size_t>(piece);
    }
    return true;
}

[[noreturn]] void failWrite(const OutputTarget& target, const std::string& reason)
{
    throw OutputError(target.path + ": cannot write " + target.contents + ": " + reason);
}

}  // namespace

void checkOutputTarget(const OutputTarget& target)
{
    if (const std::string reason = whyNotWritable(target); !reason.empty())
        throw InputError(reason);
}

void writeOutputFile(const OutputTarget& target, const std::string& text)
{
    // Again after the run: the target may have been replaced meanwhile.
    if (const std::string reason = whyNotWritable(target); !reason.empty())
        throw OutputError(reason);
    std::string temporary;
    const int file = createTemporaryBeside(target.path, temporary);
    if (file < 0)
        failWrite(target, std::strerror(errno));
    const bool written = writeAll(file, text);
    const int writeError = errno;
    const bool closed = ::close(file) == 0;
    if (!written || !closed) {
        const int error = written ? errno : writeError;
        std::remove(temporary.c_str());
        failWrite(target, std::strerror(error));
    }
    std::error_code renamed;
    fs::rename(temporary, target.path, renamed);
    if (renamed) {
        std::remove(temporary.c_str());
        failWrite(target, renamed.message());
    }
}

}  // namespace zorbsim

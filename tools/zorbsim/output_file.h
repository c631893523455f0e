// Files zorbsim writes (--dump-state, --html, view's -o): a target is checked before anything runs,
// so that a bad one runs nothing, and is then written whole or not at all.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace zorbsim {

// Writing a file failed after the run; the message names the file, what it was to hold and the
// reason.
class OutputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A file the command reads: what it is ("the scenario being run"), for messages.
struct InputFile {
    std::string path;
    std::string role;
};

// Where one of zorbsim's outputs goes: the option that named it, the path, and what it holds ("the
// host state"), for messages; and the command's inputs, which it must never replace.
struct OutputTarget {
    std::string option;
    std::string path;
    std::string contents;
    std::vector<InputFile> inputs;
};

// Whether the target may be written: it names a regular file or none, in an existing folder, and
// none of the inputs under any spelling. Throws an InputError saying why not.
void checkOutputTarget(const OutputTarget& target);

// Written to a temporary file of its own beside the target (created exclusively, so two runs never
// share one) and renamed over it, so that the target holds either its old content or the whole
// new text; the temporary file is removed on every failure. Throws an OutputError.
void writeOutputFile(const OutputTarget& target, const std::string& text);

}  // namespace zorbsim

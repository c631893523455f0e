// Writes an output byte for byte: "\n" line ends on every build.
#pragma once

#include <string>

namespace typelib_import {

// Throws ImportError when the file cannot be written.
void writeOutput(const std::string& path, const std::string& contents);

}  // namespace typelib_import

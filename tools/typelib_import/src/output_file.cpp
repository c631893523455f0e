#include "output_file.h"

#include "import_error.h"

#include <fstream>

namespace typelib_import {

void writeOutput(const std::string& path, const std::string& contents)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << contents;
    out.close();
    if (!out)
        throw ImportError("cannot write " + path);
}

}  // namespace typelib_import

// typelib_import <header|members|reference> <library.tlb> <output> [--namespace NAME]
//
// Writes, from one compiled type library, the C++ header of its interfaces, the header of its
// members' journal names for the simulated host, or its Markdown reference.
#include "import_error.h"
#include "library_reader.h"
#include "output_file.h"
#include "writers.h"

#include <cstring>
#include <iostream>

namespace {

constexpr const char* kUsage =
    "usage: typelib_import <header|members|reference> <library.tlb> <output> [--namespace NAME]\n"
    "  header     the C++ header of the library's interfaces, enumerations and classes\n"
    "  members    each member's journal name and the variant type it gives; --namespace names\n"
    "             the namespace that holds them (members unless given)\n"
    "  reference  a Markdown reference of the library for script writers\n";

int usage()
{
    std::cerr << kUsage;
    return 2;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 4 && argc != 6)
        return usage();
    const std::string output = argv[1];
    std::string space = "members";
    if (argc == 6) {
        if (output != "members" || std::strcmp(argv[4], "--namespace") != 0)
            return usage();
        space = argv[5];
    }
    if (output != "header" && output != "members" && output != "reference")
        return usage();
    try {
        const typelib_import::Library library =
            typelib_import::readLibrary(static_cast<const wchar_t*>(_bstr_t(argv[2])));
        const std::string text = output == "header"    ? typelib_import::writeHeader(library)
                                 : output == "members" ? typelib_import::writeMembers(library, space)
                                                       : typelib_import::writeReference(library);
        typelib_import::writeOutput(argv[3], text);
    }
    catch (const typelib_import::ImportError& error) {
        std::cerr << "typelib_import: " << argv[2] << ": " << error.what() << "\n";
        return 1;
    }
    return 0;
}

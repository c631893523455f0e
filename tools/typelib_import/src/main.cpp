// typelib_import <header|members|reference> <library.tlb> <output> [--namespace NAME] [--include HEADER]...
//
// Writes, from one compiled type library, the C++ header of its interfaces, the header of its
// members' journal names for the simulated host, or its Markdown reference.
#include "import_error.h"
#include "library_reader.h"
#include "output_file.h"
#include "writers.h"

#include <cstring>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr const char* kUsage =
    "usage: typelib_import <header|members|reference> <library.tlb> <output> [options]\n"
    "  header     the C++ header of the library's interfaces, enumerations and classes; each\n"
    "             --include HEADER names the header of a library it imports types from\n"
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
    if (argc < 4 || argc % 2 != 0)
        return usage();
    const std::string output = argv[1];
    if (output != "header" && output != "members" && output != "reference")
        return usage();
    std::string space = "members";
    std::vector<std::string> includes;
    for (int at = 4; at < argc; at += 2) {
        if (output == "members" && std::strcmp(argv[at], "--namespace") == 0)
            space = argv[at + 1];
        else if (output == "header" && std::strcmp(argv[at], "--include") == 0)
            includes.emplace_back(argv[at + 1]);
        else
            return usage();
    }
    try {
        const typelib_import::Library library =
            typelib_import::readLibrary(static_cast<const wchar_t*>(_bstr_t(argv[2])));
        const std::string text = output == "header"    ? typelib_import::writeHeader(library, includes)
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

#include "writers.h"

#include "function_shape.h"
#include "type_spelling.h"

#include <locale>
#include <sstream>

namespace typelib_import {
namespace {

std::string givenVariantTypeName(const Function& function)
{
    const std::optional<Type> given = givenType(function);
    return variantTypeName(given ? variantTypeOf(*given) : VARTYPE(VT_EMPTY));
}

}  // namespace

std::string writeMembers(const Library& library, const std::string& space)
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << "// The members of the type library " << library.name
        << " by the names a journal of calls shows them, with the variant type each gives:\n"
        << "// written by typelib_import from the compiled library; do not edit.\n"
        << "#pragma once\n\n#include \"automation.h\"\n\nnamespace " << space << " {\n\n"
        << "struct Member {\n    const char* name;\n    VARTYPE gives;  // VT_EMPTY for a status only\n};\n";
    for (const Interface& declared : library.interfaces) {
        out << "\nnamespace " << declared.name << " {\n";
        for (const Function& function : declared.functions)
            out << "inline constexpr Member " << callName(function) << "{\"" << declared.name << "."
                << callName(function) << "\", " << givenVariantTypeName(function) << "};\n";
        out << "}  // namespace " << declared.name << "\n";
    }
    out << "\n// Every member above, in the library's order.\ninline constexpr Member all[] = {\n";
    for (const Interface& declared : library.interfaces)
        for (const Function& function : declared.functions)
            out << "    " << declared.name << "::" << callName(function) << ",\n";
    out << "};\n\n}  // namespace " << space << "\n";
    return out.str();
}

}  // namespace typelib_import

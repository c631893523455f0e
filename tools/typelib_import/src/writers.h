// The three outputs of an imported library, each as the complete text of its file.
#pragma once

#include "library_model.h"

#include <string>
#include <vector>

namespace typelib_import {

// The C++ header of the library: its identifiers, smart pointers, enumerations and, for each
// interface, the raw virtual methods in vtable order and the throwing wrappers of imported_call.h.
// `includes` are the headers of the libraries it imports types from, included by these names.
std::string writeHeader(const Library& library, const std::vector<std::string>& includes);

// Each member's journal name ("Interface.get_Name", "Interface.Method") and the variant type it
// gives, as constants in namespace `space`, one nested namespace per interface, and `all` of them.
std::string writeMembers(const Library& library, const std::string& space);

// A Markdown reference of the library for script writers.
std::string writeReference(const Library& library);

}  // namespace typelib_import

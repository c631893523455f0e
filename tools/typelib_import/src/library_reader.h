// Reads a compiled type library through the platform's type information only (LoadTypeLibEx,
// ITypeLib, ITypeInfo), never its file format, so that the importer answers as clients of the
// platform see the library.
#pragma once

#include "library_model.h"

#include <string>

namespace typelib_import {

// Throws ImportError when the library does not load, or holds what the writers cannot express
// (a dispatch-only interface, a record, a union, a module, an array type, a default value that is
// neither a number nor a text) or what late binding could not tell apart (checkDispatchIds).
Library readLibrary(const std::wstring& path);

}  // namespace typelib_import

// Reads a type library file of the format widl writes ("MSFT") into a LibraryModel.
#pragma once

#include "type_library_model.h"

#include <cstddef>

namespace automation::detail {

// Fills `library` from the `size` bytes at `data`: S_OK, or TYPE_E_CANTLOADLIBRARY for bytes that
// are not such a file, or one cut short, or one whose offsets, counts or type chains lead outside
// it or around in a circle. Nothing is read outside the bytes given.
HRESULT readTypeLibrary(const unsigned char* data, std::size_t size, LibraryModel& library);

}  // namespace automation::detail

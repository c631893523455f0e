#include "import_error.h"

#include "text.h"

namespace typelib_import {

void check(HRESULT status, const char* call)
{
    if (FAILED(status))
        throw ImportError(std::string(call) + " failed with " +
                          hex(static_cast<unsigned long>(status) & 0xFFFFFFFFul, 8));
}

}  // namespace typelib_import

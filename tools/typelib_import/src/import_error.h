// A library the importer cannot read or cannot express: the message names the type and member.
#pragma once

#include "automation.h"

#include <stdexcept>
#include <string>

namespace typelib_import {

class ImportError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Throws ImportError naming the platform call that failed and its status.
void check(HRESULT status, const char* call);

}  // namespace typelib_import

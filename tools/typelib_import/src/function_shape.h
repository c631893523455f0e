// How a function of an imported interface looks to C++ and to scripts: its raw and wrapper names,
// the parameters a caller passes and what it gives back.
#pragma once

#include "library_model.h"

#include <optional>
#include <string>
#include <vector>

namespace typelib_import {

// "get_Name", "put_Name", "putref_Name" or "raw_Name": the raw virtual method.
std::string rawName(const Function& function);
// "GetName", "PutName", "PutRefName" or "Name": the throwing wrapper.
std::string wrapperName(const Function& function);
// "get_Name", "put_Name", "putref_Name" or "Name": the name a journal of the calls shows.
std::string callName(const Function& function);

bool isRetval(const Parameter& parameter);
// The parameters a caller passes: all but a [retval].
std::vector<const Parameter*> callerParameters(const Function& function);
// The type a [retval] points at; none for a function that gives only its status.
std::optional<Type> givenType(const Function& function);

}  // namespace typelib_import

#include "dispatch_ids.h"

#include "import_error.h"

namespace typelib_import {
namespace {

bool accessorsOfOneProperty(const Function& a, const Function& b)
{
    return a.invocation != Invocation::method && b.invocation != Invocation::method &&
           a.invocation != b.invocation;
}

}  // namespace

void checkDispatchIds(const Interface& declared)
{
    const std::vector<Function>& functions = declared.functions;
    for (std::size_t i = 0; i < functions.size(); ++i) {
        for (std::size_t j = i + 1; j < functions.size(); ++j) {
            const Function& a = functions[i];
            const Function& b = functions[j];
            if (a.id == b.id && !accessorsOfOneProperty(a, b))
                throw ImportError(declared.name + ": DISPID " + std::to_string(a.id) + " names two members");
        }
    }
}

}  // namespace typelib_import

// What the core library records while one module call runs, beside the call's own outcome: the
// contract reports it raised.
#pragma once

#include "MxtAssert"

#include <vector>

namespace zorbsim {

// Made just before a call, it clears the assertion log; asked just after, it tells what the call
// added to it.
class CoreLibraryWatch {
public:
    CoreLibraryWatch();

    // Oldest first.
    std::vector<MxtAssert::Report> assertionReports() const;
};

}  // namespace zorbsim

// What the core library records while one module call runs, beside the call's own outcome: the
// contract reports it raised and the support path the module left in MxtGlobalStorage.
#pragma once

#include "MxtAssert"
#include "MxtString"

#include <optional>
#include <string>
#include <vector>

namespace zorbsim {

// The value of MxtGlobalStorage::g_pZorbSupportPaths after a call that changed it.
struct SupportPathsChange {
    std::optional<std::string> text;  // none: the call left the pointer null
};

// Made just before a call, it clears the assertion log and notes the support path global; asked
// just after, it tells which reports the call raised and whether it changed the global.
class CoreLibraryWatch {
public:
    CoreLibraryWatch();

    // Oldest first.
    std::vector<MxtAssert::Report> assertionReports() const;
    // None when the call left both the pointer and its text as they were.
    std::optional<SupportPathsChange> supportPathsChange() const;

private:
    // Only compared with the pointer after the call: the module may have deleted the string since.
    const MxtString* m_supportPaths;
    std::optional<std::string> m_supportPathsText;
};

}  // namespace zorbsim

#include "MxtGlobalStorage"

MxtString* MxtGlobalStorage::g_pZorbSupportPaths = nullptr;

namespace {

// Deletes the last support path when the library is unloaded; until then its users replace it.
struct SupportPathsReclaimer {
    ~SupportPathsReclaimer()
    {
        delete MxtGlobalStorage::g_pZorbSupportPaths;
        MxtGlobalStorage::g_pZorbSupportPaths = nullptr;
    }
} supportPathsReclaimer;

}  // namespace

#include "core_library_watch.h"

namespace zorbsim {

CoreLibraryWatch::CoreLibraryWatch()
{
    MxtAssert::clearReports();
}

std::vector<MxtAssert::Report> CoreLibraryWatch::assertionReports() const
{
    return MxtAssert::reports();
}

}  // namespace zorbsim

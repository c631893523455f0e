// The path operations of the core library's plot interface.
#include "CADPlotUtilities.h"

#include "MxtGlobalStorage"
#include "ZORBAppUtilities.h"

bool CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath()
{
    MxtString merged;
    return ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath(merged);
}

bool CADPlotUtilities::addPathesToCADAppSupportPath(const MxtArray<MxtString>& folders)
{
    MxtString merged;
    const bool succeeded = ZORBAppUtilities::addPathesToCADAppSupportPath(folders, merged);
    if (succeeded) {
        // What this call added, not the whole path: "" when every folder was already there.
        MxtString* const added = new MxtString(merged);
        delete MxtGlobalStorage::g_pZorbSupportPaths;
        MxtGlobalStorage::g_pZorbSupportPaths = added;
    }
    return succeeded;
}

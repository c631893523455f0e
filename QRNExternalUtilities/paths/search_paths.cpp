// The host's support path and printer style sheet path.
#include "ZORBAppUtilities.h"

#include "MXSettings"
#include "paths/host_preferences.h"

using namespace external_utilities;

namespace {

// Merged paths of these lengths or more are refused. The host's limits for the two paths differ.
constexpr unsigned int kSupportPathRefusedLength = 2048;
constexpr unsigned int kPrinterStyleSheetPathRefusedLength = 1050;

using PathWriter = void (HostPreferencesFiles::*)(const _bstr_t&);

// Merges `folders` into the path the host holds now and writes the result back, once and as a
// whole, when it changed and stays below the limit; `merged` then receives it. A path that did
// not change is success without a write and leaves `merged` as it was.
bool mergeIntoHostPath(HostPreferencesFiles& files, PathWriter write, unsigned int refusedLength,
                       const MxtArray<MxtString>& folders, const _bstr_t& current, MxtString& merged)
{
    _bstr_t result;
    ZORBAppUtilities::preparePathes(folders, current, result);
    if (result == current)
        return true;
    if (result.length() >= refusedLength)
        return false;
    (files.*write)(result);
    merged = result;
    return true;
}

}  // namespace

MxtString ZORBAppUtilities::getCADAppSupportPath()
{
    MxtString supportPath;
    useHostPreferencesFiles([&](HostPreferencesFiles& files) { supportPath = files.GetSupportPath(); });
    return supportPath;
}

bool ZORBAppUtilities::getPlotStylePath(MxtString& path)
{
    bool found = false;
    useHostPreferencesFiles([&](HostPreferencesFiles& files) {
        path = files.GetPrinterStyleSheetPath();
        found = true;
    });
    return found;
}

bool ZORBAppUtilities::addPathesToCADAppSupportPath(const MxtArray<MxtString>& folders, MxtString& merged)
{
    if (folders.getLength() == 0)
        return true;
    bool succeeded = false;
    useHostPreferencesFiles([&](HostPreferencesFiles& files) {
        succeeded = mergeIntoHostPath(files, &HostPreferencesFiles::PutSupportPath, kSupportPathRefusedLength,
                                      folders, files.GetSupportPath(), merged);
    });
    return succeeded;
}

bool ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath(MxtString& merged)
{
    bool succeeded = false;
    useHostPreferencesFiles([&](HostPreferencesFiles& files) {
        const _bstr_t current = files.GetPrinterStyleSheetPath();
        MxtArray<MxtString> mxFolders;
        mxFolders.setLength(1);
        mxFolders[0] = MXSettings::getInstance()->getPathSupport();
        succeeded = mergeIntoHostPath(files, &HostPreferencesFiles::PutPrinterStyleSheetPath,
                                      kPrinterStyleSheetPathRefusedLength, mxFolders, current, merged);
    });
    return succeeded;
}

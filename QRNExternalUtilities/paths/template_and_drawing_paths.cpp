// The host's template drawing folder and drawing path.
#include "ZORBAppUtilities.h"

#include "paths/host_preferences.h"

using namespace external_utilities;

bool ZORBAppUtilities::setTemplateDwgPath(const MxtString& path)
{
    bool written = false;
    useHostPreferencesFiles([&](HostPreferencesFiles& files) {
        files.PutTemplateDrawingFolder(path.getStringW());
        written = true;
    });
    return written;
}

bool ZORBAppUtilities::getCadDrawingPath(MxtString& path)
{
    path = MxtString();
    bool found = false;
    useHostPreferencesFiles([&](HostPreferencesFiles& files) {
        path = files.GetDrawingPath();
        found = true;
    });
    return found;
}

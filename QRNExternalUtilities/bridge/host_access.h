// How every operation reaches the running host: the application object, or the file-location
// preferences below it. Both are obtained afresh on each call and owned by the caller.
#pragma once

#include "host/object_model.h"

namespace external_utilities {

// The host application's typed interface, or null when the host has no framework object, the
// framework object has no automation face, or it refuses the interface. Raises nothing.
HostApplicationPtr getHostApplication();

// One object read from the host application, which is let go before the object is used; null when
// there is no application. `read` raises as the host calls it makes do.
template <class ObjectPtr, class Read> ObjectPtr readFromApplication(Read read)
{
    const HostApplicationPtr application = getHostApplication();
    return application ? read(*application) : ObjectPtr();
}

// The host's file-location preferences, or null when the host gives none. Raises the automation
// failure when a host call fails, and E_POINTER when there is no application or no preferences.
HostPreferencesFilesPtr getHostPreferencesFiles();

}  // namespace external_utilities

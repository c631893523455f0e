// The path operations the core library's plot interface reaches.
#pragma once

#include "QRNExternalUtilitiesApi.h"

#include "MxtArray"
#include "MxtString"

class QRNEXTERNALUTILITIES_API CADPlotUtilities {
public:
    // Only a namespace of statics; see ZORBAppUtilities for why the assignments are exported.
    CADPlotUtilities() = default;
    CADPlotUtilities(const CADPlotUtilities&) = default;
    CADPlotUtilities(CADPlotUtilities&&) = default;
    CADPlotUtilities& operator=(const CADPlotUtilities&);
    CADPlotUtilities& operator=(CADPlotUtilities&&);

    // Adds the MX support folder to the host's printer style sheet path.
    static bool addMXPathToCADPrinterStyleSheetPath();
    // Adds the folders to the host's support path and, on success, records in
    // MxtGlobalStorage::g_pZorbSupportPaths what this call wrote ("" when nothing had to be added).
    static bool addPathesToCADAppSupportPath(const MxtArray<MxtString>& folders);
};

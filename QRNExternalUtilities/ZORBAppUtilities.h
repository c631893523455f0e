// The MX product's one way to the running host: search paths, resource files and the host's
// automation root. Every operation finds what it needs afresh and keeps nothing between calls.
#pragma once

#include "QRNExternalUtilitiesApi.h"

#include "MxtArray"
#include "MxtString"
#include "automation.h"

#include <cstdint>

class QRNEXTERNALUTILITIES_API ZORBAppUtilities {
public:
    // One item to add to a menu.
    struct ZORBMenuItem {
        std::int32_t index = 0;  // the position in the menu, passed to the host unchanged
        MxtString label;         // the text shown
        MxtString macro;         // the command string the host runs
    };

    // The class is only a namespace of statics; the assignments copy nothing and are exported
    // because code built against the class expects to find them in the module.
    ZORBAppUtilities() = default;
    ZORBAppUtilities(const ZORBAppUtilities&) = default;
    ZORBAppUtilities(ZORBAppUtilities&&) = default;
    ZORBAppUtilities& operator=(const ZORBAppUtilities&);
    ZORBAppUtilities& operator=(ZORBAppUtilities&&);

    // The host application's IDispatch with a reference for the caller. Returns 0 and stores null
    // when the host has no framework object or no automation face; E_FAIL when an automation
    // failure intervened; E_POINTER when `dispatch` itself is null.
    static long getCADAppDispatch(IDispatch** dispatch);
    // The host application's typed interface with a reference for the caller, or null.
    static void* getCadApplication();

    // Appends each folder, after ";", unless the current path already contains it (without regard
    // to case). `merged` may be `current` itself. Raises _com_error(E_OUTOFMEMORY).
    static void preparePathes(const MxtArray<MxtString>& folders, const _bstr_t& current, _bstr_t& merged);

    // The host's support path, or "" when it cannot be read.
    static MxtString getCADAppSupportPath();
    // Adds the folders to the host's support path; `merged` receives the new path when one was
    // written. False when the host could not be asked or the path would reach 2048 characters.
    static bool addPathesToCADAppSupportPath(const MxtArray<MxtString>& folders, MxtString& merged);
    // The host's printer style sheet path; `path` is left as it was when false is returned.
    static bool getPlotStylePath(MxtString& path);
    // Adds the MX support folder to the printer style sheet path (limit: below 1050 characters).
    static bool addMXPathToCADPrinterStyleSheetPath(MxtString& merged);

    static bool setTemplateDwgPath(const MxtString& path);
    // `path` is cleared first.
    static bool getCadDrawingPath(MxtString& path);
    // The host's installation folder, from its per-user registry settings.
    static bool getCadProductLocation(MxtString& location);
    // The linetype file the host records under `valueName`, as recorded.
    static bool getLinetypeFilePath(const MxtString& valueName, MxtString& path);
    // The hatch pattern file the host records under `valueName`, found on the host's search path;
    // `path` is left as it was when false is returned.
    static bool getHatchFilePath(const MxtString& valueName, MxtString& path);
};

// The MX product's one way to the running host: search paths, resource files, menus and the host's
// automation root. Every operation finds what it needs afresh and keeps nothing between calls.
//
// Failure handling is fixed per operation and said with each: "catches the automation failure"
// (the failure shows only as the failure value), "catches everything", or "raises _com_error" (the
// host's failure reaches the caller, who must be prepared to catch it). After a caught failure the
// thread's last error (GetLastError) is unspecified: forming the failure's message may set it.
#pragma once

#include "QRNExternalUtilitiesApi.h"

#include "MxtArray"
#include "MxtString"
#include "automation.h"
#include "host/plot_settings.h"

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

    // --- Host access ---

    // The host application's IDispatch with a reference for the caller. Returns 0, having stored
    // the IDispatch, or null when the host has no framework object or no automation face; E_POINTER,
    // storing nothing, when `dispatch` itself is null. No other status comes back: nothing on the
    // way asks the host anything that can fail.
    static long getCADAppDispatch(IDispatch** dispatch);
    // The host application's typed interface with a reference for the caller, or null. Catches
    // nothing and raises nothing.
    static void* getCadApplication();

    // --- Search paths and resource files ---

    // Appends each folder, after ";", unless the current path already contains it (without regard
    // to case). `merged` may be `current` itself. Raises _com_error (E_OUTOFMEMORY).
    static void preparePathes(const MxtArray<MxtString>& folders, const _bstr_t& current, _bstr_t& merged);

    // The host's support path, or "" when it cannot be read. Catches the automation failure.
    static MxtString getCADAppSupportPath();
    // Adds the folders to the host's support path; `merged` receives the new path when one was
    // written. False when the host could not be asked or the path would reach 2048 characters.
    // Catches the automation failure.
    static bool addPathesToCADAppSupportPath(const MxtArray<MxtString>& folders, MxtString& merged);
    // The host's printer style sheet path; `path` is left as it was when false is returned.
    // Catches the automation failure.
    static bool getPlotStylePath(MxtString& path);
    // Adds the MX support folder to the printer style sheet path (limit: below 1050 characters).
    // Catches the automation failure.
    static bool addMXPathToCADPrinterStyleSheetPath(MxtString& merged);

    // Catches the automation failure.
    static bool setTemplateDwgPath(const MxtString& path);
    // `path` is cleared first. Catches the automation failure.
    static bool getCadDrawingPath(MxtString& path);
    // The host's installation folder, from its per-user registry settings. Raises _com_error.
    static bool getCadProductLocation(MxtString& location);
    // The linetype file the host records under `valueName`, as recorded. Raises _com_error.
    static bool getLinetypeFilePath(const MxtString& valueName, MxtString& path);
    // The hatch pattern file the host records under `valueName`, found on the host's search path;
    // `path` is left as it was when false is returned. Raises _com_error.
    static bool getHatchFilePath(const MxtString& valueName, MxtString& path);

    // --- Menus ---
    // A menu group is named by a menu file's last path component (after the last backslash).

    // Whether a loaded group has exactly this name, letter case included. Catches the automation
    // failure.
    static bool isMenuLoaded(const MxtString& groupName);
    // Loads each menu file whose group (its name upper-cased, compared exactly) is not loaded; a
    // file the host does not load is passed over. Always true. Catches the automation failure.
    static bool loadMenus(const MxtArray<MxtString>& menuFiles);
    // Unloads the loaded group of each path (letter case ignored). True on completion; a path
    // named twice makes the host refuse the second unload, which gives false with the first
    // unload kept. Catches the automation failure.
    static bool unloadMenus(const MxtArray<MxtString>& menuFiles);

    // Adds the items to the first menu of the group (as given, even if present) and puts it on the
    // menu bar at `position` unless its on-menu-bar flag is exactly true. Nothing for an unknown
    // group. Raises _com_error.
    static void addMenuToMenuBar(const MxtString& groupName, const MxtArray<ZORBMenuItem>& items,
                                 long position);
    // Takes the group's first menu off the menu bar when its flag has any bit set. Raises _com_error.
    static void removeMenuFromMenuBar(const MxtString& groupName);
    // The number of menus on the menu bar; 0 without a host. Raises _com_error.
    static long getNumberOfMenusOnMenuBar();
    // Whether `text`, as given, occurs in the upper-cased tag of a menu on the menu bar (so
    // lower-case text never does; empty text does as soon as there is a menu). Raises _com_error.
    static bool isMenuLoadedOnMenuBar(const MxtString& text);

    // Adds a menu named `menuName` to the first loaded group, copies the first menu of each named
    // group into it as a submenu (taking a copied menu off the menu bar), and puts it on the menu
    // bar at `position`. Catches everything: what was done before a failure stays.
    static void combineMenusOnMenuBar(const MxtString& menuName, const MxtArray<MxtString>& groupNames,
                                      long position);

    // Adds the entries whose macro (letter case ignored) the object-snap cursor menu of the "MX"
    // group lacks, as a block before its last `positionFromEnd` items, led by a separator when all
    // entries are new. `macros` holds at least as many elements as `labels`. True also for no
    // labels; false when there is no snap menu or the host gives no item back. Raises _com_error.
    static bool addMenuItemsToSnapMenu(const MxtArray<MxtString>& labels, const MxtArray<MxtString>& macros,
                                       long positionFromEnd);
    // When the labels (letter case ignored) stand as a block before the last `positionFromEnd`
    // items, deletes as many items starting one before the block: after an addition with its
    // separator, the separator and all entries but the last. True also when the block is not
    // found; false when there is no snap menu. Raises _com_error.
    static bool removeMenuItemsFromSnapMenu(const MxtArray<MxtString>& labels, long positionFromEnd);

    // --- Toolbars ---
    // A toolbar or button is known by its tag, letter case ignored; the group by its name.

    // With `show`, shows every hidden (exactly 0) toolbar of the group tagged `toolbarName`, placed
    // first: floating at (left, top) with `floatingRows` rows when `dockStatus` is 4, else docked
    // at side `dockStatus`. Without it, hides every shown (exactly -1) one and writes its place to
    // the four values (those of the last one hidden). False exactly when a shown toolbar was
    // hidden. The names are never changed. Raises _com_error.
    static bool showHideToolbar(bool show, MxtString& groupName, MxtString& toolbarName, long& left, long& top,
                                long& dockStatus, long& floatingRows);
    // Whether the group's first toolbar tagged `toolbarName` is shown (exactly -1). Raises _com_error.
    static bool isToolbarVisible(const MxtString& groupName, const MxtString& toolbarName);
    // Attaches the toolbar (groupName, toolbarName), as named here, to the flyout of the first
    // button tagged `buttonName` on the group's first toolbar tagged `toolbarName`; nothing when
    // any is missing. Raises _com_error.
    static void attachToolbarToFlyout(const MxtString& groupName, const MxtString& toolbarName,
                                      const MxtString& buttonName);
    // Puts a new button in the place of the first button tagged `buttonName` on the group's first
    // toolbar tagged `toolbarName`: added at the old button's position with `newButtonName`,
    // `helpString` and `macro`, tagged `newButtonTag`, given the two bitmaps (a host that refuses
    // them leaves the host's default image: that step catches everything), its flyout attached to
    // the group's toolbar `flyoutToolbarName` unless that is empty; the old button is deleted
    // last. Nothing changes when the group, toolbar or button is missing or the host gives no new
    // button. Raises _com_error otherwise: a failure never loses the old button, and a tag the host
    // refuses takes the new button out again. Safe to call again with the same names: a new button
    // already standing before the old one (tagged `newButtonTag`, named `newButtonName`) is not
    // added again, only the old button is deleted. docs/toolbar-buttons.md has the whole contract.
    static void replaceToolbarButton(const MxtString& groupName, const MxtString& toolbarName,
                                     const MxtString& buttonName, const MxtString& newButtonName,
                                     const MxtString& newButtonTag, const MxtString& helpString,
                                     const MxtString& macro, const MxtString& smallBitmap,
                                     const MxtString& largeBitmap, const MxtString& flyoutToolbarName);

    // --- Documents, plotting and zoom ---

    // Closes the active drawing, saving it under its own name when `saveChanges`. True when the
    // host accepted the close. Catches the automation failure.
    static bool closeActiveDocument(bool saveChanges);
    // Makes sure the drawing at `path` is open (an open one is found by its full file name, letter
    // case ignored, and never opened again) and with `activate` makes it active. While a drawing is
    // opened "DWGCHECK" is held at 0, and it is put back afterwards, also after a failure. True
    // when the drawing was found open or was opened. Catches the automation failure.
    static bool openAndActivateDocument(const MxtString& path, bool activate);
    // Plots the layout `layoutName` of the active drawing with `plotConfigName` (empty: the
    // layout's own configuration). The plot type, and for type 4 the window from (x1, y1) to
    // (x2, y2), go to the active layout. True exactly when the host answers -1. Catches the
    // automation failure and writes its message to `errorMessage`, which is untouched otherwise.
    static bool plotLayout(const MxtString& plotConfigName, const MxtString& layoutName,
                           ZbDbPlotSettings::PlotType plotType, double x1, double x2, double y1, double y2,
                           MxtString& errorMessage);
    // Zooms the view to the window between the two points (the host's point variants, passed as
    // they are). True in every case that returns, also without a host. Keeps one reference on the
    // host application, deliberately. Raises _com_error.
    static bool zoomWindow(const _variant_t& lowerLeft, const _variant_t& upperRight);
};

// The simulated host's state: plain data that tests arrange and inspect, and that JSON loads and
// dumps. Nodes that host objects stand for (groups, menus, items, toolbars, buttons, documents)
// are held by shared pointers so that a host object keeps its node while a caller references it,
// even after the node left the model (it then fails its calls). Every struct compares deeply with
// `==`: a node compares by its content, and a null node equals only a null one.
#pragma once

#include "sim/export.h"
#include "sim/faults.h"
#include "sim/gap_buffer.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sim {

struct PopupMenu;

enum class ItemType { command = 0, separator = 1, submenu = 2 };

struct PopupMenuItem {
    ItemType type = ItemType::command;
    std::wstring label;
    std::wstring macro;
    std::wstring tag;
    bool enabled = true;
    std::shared_ptr<PopupMenu> subMenu;  // set exactly when type is submenu

    SIM_API bool operator==(const PopupMenuItem& other) const;
    bool operator!=(const PopupMenuItem& other) const { return !(*this == other); }
};

struct PopupMenu {
    std::wstring name;
    std::wstring tag;
    // A gap buffer rather than a vector: a host deletes a run of items at one position, each in
    // constant time.
    GapBuffer<std::shared_ptr<PopupMenuItem>> items;

    SIM_API bool operator==(const PopupMenu& other) const;
    bool operator!=(const PopupMenu& other) const { return !(*this == other); }
};

struct ToolbarButton {
    std::wstring name;
    std::wstring tag;
    std::wstring macro;
    std::wstring helpString;
    std::wstring smallBitmap;
    std::wstring largeBitmap;
    // The toolbar attached to the button's flyout: (menu group name, toolbar name), if any.
    std::optional<std::pair<std::wstring, std::wstring>> flyout;

    SIM_API bool operator==(const ToolbarButton& other) const;
    bool operator!=(const ToolbarButton& other) const { return !(*this == other); }
};

// The host's dock-status numbering: 0 top, 1 bottom, 2 left, 3 right, 4 floating.
constexpr long kDockFloating = 4;

struct Toolbar {
    std::wstring name;
    std::wstring tag;
    bool visible = true;
    long dockStatus = 0;
    long left = 0;
    long top = 0;
    long floatingRows = 1;
    std::vector<std::shared_ptr<ToolbarButton>> buttons;

    SIM_API bool operator==(const Toolbar& other) const;
    bool operator!=(const Toolbar& other) const { return !(*this == other); }
};

struct MenuGroup {
    std::wstring name;
    std::vector<std::shared_ptr<PopupMenu>> menus;
    std::vector<std::shared_ptr<Toolbar>> toolbars;

    SIM_API bool operator==(const MenuGroup& other) const;
    bool operator!=(const MenuGroup& other) const { return !(*this == other); }
};

struct PlotWindow {
    double lowerLeftX = 0, lowerLeftY = 0, upperRightX = 0, upperRightY = 0;

    SIM_API bool operator==(const PlotWindow& other) const;
    bool operator!=(const PlotWindow& other) const { return !(*this == other); }
};

struct Layout {
    std::wstring name;
    long plotType = 0;
    std::optional<PlotWindow> window;

    SIM_API bool operator==(const Layout& other) const;
    bool operator!=(const Layout& other) const { return !(*this == other); }
};

// What a document's plot object was told before it plotted.
struct PlotSettings {
    long numberOfCopies = 1;
    bool quietErrorMode = false;
    long batchEntries = 0;  // 0 when batch mode was not started
    std::vector<std::wstring> layoutsToPlot;

    SIM_API bool operator==(const PlotSettings& other) const;
    bool operator!=(const PlotSettings& other) const { return !(*this == other); }
};

struct Document {
    std::wstring fullFileName;
    // One of `layouts`, or a layout of its own (a document arranged without its layouts), or null:
    // the document has no active layout.
    std::shared_ptr<Layout> activeLayout;
    PlotSettings plot;
    bool readOnly = false;                        // opened read-only: the host will not save it
    std::optional<short> drawingCheckWhenOpened;  // DWGCHECK as the host opened it; none: open from the start
    std::vector<std::shared_ptr<Layout>> layouts;  // the drawing's layouts, in the host's order

    SIM_API bool operator==(const Document& other) const;
    bool operator!=(const Document& other) const { return !(*this == other); }
};

// One plot sent to a device.
struct PlotJob {
    std::wstring document;                 // full file name
    std::optional<std::wstring> device;    // none: the layout's own configuration
    std::vector<std::wstring> layouts;
    long numberOfCopies = 1;
    long plotType = 0;                     // of the active layout at the time
    std::optional<PlotWindow> window;      // of the active layout at the time

    SIM_API bool operator==(const PlotJob& other) const;
    bool operator!=(const PlotJob& other) const { return !(*this == other); }
};

struct ZoomRequest {
    double lowerLeftX = 0, lowerLeftY = 0, upperRightX = 0, upperRightY = 0;

    SIM_API bool operator==(const ZoomRequest& other) const;
    bool operator!=(const ZoomRequest& other) const { return !(*this == other); }
};

struct PreferencesFiles {
    std::wstring supportPath;
    std::wstring printerStyleSheetPath;
    std::wstring templateDrawingFolder;
    std::wstring drawingPath;

    SIM_API bool operator==(const PreferencesFiles& other) const;
    bool operator!=(const PreferencesFiles& other) const { return !(*this == other); }
};

// How forgiving the host is with what its callers pass.
enum class BeyondEnd {
    refuse,  // an index beyond the count is refused (E_INVALIDARG)
    append,  // an index beyond the count appends
};

struct HostBehaviour {
    // On: every argument must have exactly the variant type the host's interface documents, and
    // yes/no values written must be -1 or 0. Off: the host coerces as hosts commonly do.
    bool strictArguments = false;
    // Adding a menu item, separator or submenu, or a menu to the menu bar, beyond the end.
    BeyondEnd menuIndexBeyondEnd = BeyondEnd::refuse;
    // Whether the menu items, separators and submenus it adds start enabled (hosts differ).
    bool newMenuItemsEnabled = true;

    SIM_API bool operator==(const HostBehaviour& other) const;
    bool operator!=(const HostBehaviour& other) const { return !(*this == other); }
};

// What makes the host state move-only while it stays a plain aggregate.
struct MoveOnly {
    MoveOnly() = default;
    MoveOnly(MoveOnly&&) = default;
    MoveOnly& operator=(MoveOnly&&) = default;
    MoveOnly(const MoveOnly&) = delete;
    MoveOnly& operator=(const MoveOnly&) = delete;
    ~MoveOnly() = default;
};

// Move-only: its nodes are shared pointers, so a member-wise copy would share them, and two hosts
// started from such copies would change each other. `clone` is the one way to copy a state.
// The statuses of an Open that the host refuses for what a drawing asks: its check would stop the
// open with a prompt (HRESULT_FROM_WIN32(ERROR_CANCELLED)), or the password given is not the
// drawing's (HRESULT_FROM_WIN32(ERROR_INVALID_PASSWORD)).
constexpr HRESULT kOpenStoppedForCheck = static_cast<HRESULT>(0x800704C7u);
constexpr HRESULT kWrongPassword = static_cast<HRESULT>(0x80070056u);

// What the host asks before it opens a drawing on disk; a drawing not listed asks nothing.
struct DrawingDemands {
    // The host stops to check the drawing, with a prompt that an unattended open cannot answer,
    // unless DWGCHECK is 0 (a host without the variable checks).
    bool stopsForCheck = false;
    std::optional<std::wstring> password;  // it opens only with this password (letter case counts)

    SIM_API bool operator==(const DrawingDemands& other) const;
    bool operator!=(const DrawingDemands& other) const { return !(*this == other); }
};

struct HostState : MoveOnly {
    HostBehaviour behaviour;
    std::vector<std::shared_ptr<MenuGroup>> menuGroups;      // loaded, in the host's order
    std::vector<std::shared_ptr<PopupMenu>> menuBar;         // menus on the menu bar, in order
    std::vector<std::shared_ptr<Document>> documents;        // open, in the host's order
    std::shared_ptr<Document> activeDocument;                // one of documents, or null
    std::vector<std::wstring> drawingsOnDisk;                // full file names the host can open
    std::map<std::wstring, DrawingDemands> drawingDemands;   // of drawings on disk, by full file name
    std::vector<PlotJob> plotJobs;
    bool plotterAnswers = true;                              // what PlotToDevice answers
    std::vector<ZoomRequest> zoomRequests;
    PreferencesFiles preferences;
    std::map<std::wstring, short> systemVariables;           // DWGCHECK among them
    std::wstring registryRootKey;                            // below the current user's hive
    // Registry values below the root key: subkey (relative, "" for the root itself) -> name -> text.
    std::map<std::wstring, std::map<std::wstring, std::wstring>> registryValues;
    // Files on the host's search path: file name -> full path found.
    std::map<std::wstring, std::wstring> searchPathFiles;
    // Menu files the host can load: path as given to the host -> the group it defines.
    std::map<std::wstring, std::shared_ptr<MenuGroup>> menuFiles;
    std::wstring mxSupportFolder;                            // the MX settings' support folder
    std::vector<Fault> faults;                               // armed, in the order armed

    // Relations between nodes (the menu bar's menus, the active document) compare by where their
    // node sits, not by identity.
    SIM_API bool operator==(const HostState& other) const;
    bool operator!=(const HostState& other) const { return !(*this == other); }
};

// A deep copy whose nodes share nothing with the original: the copy and the original can be changed,
// and installed in hosts, independently.
SIM_API HostState clone(const HostState& state);

}  // namespace sim

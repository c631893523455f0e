// What every interface of the host's object model shares: identifiers and owning smart pointers;
// the wrappers raise failures through imported_call.h, as an imported library's do.
#pragma once

#include "automation.h"
#include "imported_call.h"

struct HostApplication;
struct HostPreferences;
struct HostPreferencesFiles;
struct HostMenuGroups;
struct HostMenuGroup;
struct HostPopupMenus;
struct HostPopupMenu;
struct HostPopupMenuItem;
struct HostMenuBar;
struct HostToolbars;
struct HostToolbar;
struct HostToolbarItem;
struct HostDocuments;
struct HostDocument;
struct HostLayout;
struct HostPlot;

// The identifiers of the host's type library.
AUTOMATION_DECLARE_UUID(HostApplication, 0x20398ddd, 0x1309, 0x474d, 0x89, 0xda, 0xae, 0x7f, 0xb6, 0xdf, 0x06, 0x81)
AUTOMATION_DECLARE_UUID(HostPreferences, 0x08d42598, 0x1f87, 0x43bc, 0xa9, 0x1d, 0xcf, 0x80, 0xbe, 0xe1, 0x86, 0x21)
AUTOMATION_DECLARE_UUID(HostPreferencesFiles, 0xb8e9451b, 0x1bea, 0x4c10, 0xa3, 0x10, 0xe3, 0x7a, 0x45, 0x6b, 0x67, 0xdb)
AUTOMATION_DECLARE_UUID(HostMenuGroups, 0xd81ab93c, 0xd74c, 0x4cf5, 0xab, 0x53, 0x13, 0xdb, 0xd0, 0x22, 0xe0, 0xd2)
AUTOMATION_DECLARE_UUID(HostMenuGroup, 0x63bf3e2c, 0x1f94, 0x40cb, 0xa8, 0xb8, 0xab, 0xd5, 0x35, 0x0a, 0x5d, 0x63)
AUTOMATION_DECLARE_UUID(HostPopupMenus, 0x475ef395, 0xdb1b, 0x4b9c, 0x95, 0x4c, 0x67, 0xd8, 0x8d, 0x94, 0x2e, 0x41)
AUTOMATION_DECLARE_UUID(HostPopupMenu, 0xa9adc855, 0xc8af, 0x4cb2, 0x81, 0x1a, 0x4b, 0xfc, 0x00, 0x51, 0x32, 0x92)
AUTOMATION_DECLARE_UUID(HostPopupMenuItem, 0xd29f740b, 0x10b6, 0x45b9, 0x8a, 0xba, 0xce, 0x89, 0xfe, 0x64, 0xd6, 0x5a)
AUTOMATION_DECLARE_UUID(HostMenuBar, 0x22370abc, 0x0b0f, 0x465b, 0x8a, 0x84, 0xbe, 0x5f, 0xab, 0x49, 0xa2, 0x83)
AUTOMATION_DECLARE_UUID(HostToolbars, 0xe9f66ebe, 0x626a, 0x44b3, 0xa6, 0x74, 0x9e, 0x2c, 0x67, 0xc7, 0x65, 0xdb)
AUTOMATION_DECLARE_UUID(HostToolbar, 0x6c6ca044, 0x9dde, 0x452b, 0xbf, 0x22, 0xe1, 0xd4, 0x45, 0x6b, 0x40, 0x9a)
AUTOMATION_DECLARE_UUID(HostToolbarItem, 0x5f591420, 0xb0af, 0x460c, 0x94, 0x54, 0x1f, 0x7d, 0xae, 0xd9, 0x12, 0x9a)
AUTOMATION_DECLARE_UUID(HostDocuments, 0xe7fb15cb, 0x091c, 0x4216, 0xbf, 0x8d, 0xf3, 0xf5, 0x8f, 0x94, 0x36, 0x75)
AUTOMATION_DECLARE_UUID(HostDocument, 0x8ee0a5a2, 0x70ad, 0x4b84, 0x89, 0x5d, 0x33, 0x39, 0x3b, 0xfe, 0x32, 0x0a)
AUTOMATION_DECLARE_UUID(HostLayout, 0xc30ab642, 0x92ad, 0x4ebc, 0xbf, 0x34, 0x98, 0x06, 0x61, 0xd7, 0xcd, 0xd7)
AUTOMATION_DECLARE_UUID(HostPlot, 0x2c3423cf, 0x7d34, 0x4ed1, 0x83, 0x03, 0xf0, 0xc1, 0x45, 0xd3, 0xc5, 0xeb)

_COM_SMARTPTR_TYPEDEF(HostApplication, __uuidof(HostApplication));
_COM_SMARTPTR_TYPEDEF(HostPreferences, __uuidof(HostPreferences));
_COM_SMARTPTR_TYPEDEF(HostPreferencesFiles, __uuidof(HostPreferencesFiles));
_COM_SMARTPTR_TYPEDEF(HostMenuGroups, __uuidof(HostMenuGroups));
_COM_SMARTPTR_TYPEDEF(HostMenuGroup, __uuidof(HostMenuGroup));
_COM_SMARTPTR_TYPEDEF(HostPopupMenus, __uuidof(HostPopupMenus));
_COM_SMARTPTR_TYPEDEF(HostPopupMenu, __uuidof(HostPopupMenu));
_COM_SMARTPTR_TYPEDEF(HostPopupMenuItem, __uuidof(HostPopupMenuItem));
_COM_SMARTPTR_TYPEDEF(HostMenuBar, __uuidof(HostMenuBar));
_COM_SMARTPTR_TYPEDEF(HostToolbars, __uuidof(HostToolbars));
_COM_SMARTPTR_TYPEDEF(HostToolbar, __uuidof(HostToolbar));
_COM_SMARTPTR_TYPEDEF(HostToolbarItem, __uuidof(HostToolbarItem));
_COM_SMARTPTR_TYPEDEF(HostDocuments, __uuidof(HostDocuments));
_COM_SMARTPTR_TYPEDEF(HostDocument, __uuidof(HostDocument));
_COM_SMARTPTR_TYPEDEF(HostLayout, __uuidof(HostLayout));
_COM_SMARTPTR_TYPEDEF(HostPlot, __uuidof(HostPlot));

// The host's plot areas.
enum ZbPlotType : int {
    zbPlotDisplay = 0,
    zbPlotExtents = 1,
    zbPlotLimits = 2,
    zbPlotView = 3,
    zbPlotWindow = 4,
    zbPlotLayout = 5,
};

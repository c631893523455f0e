#include "host_methods.h"

#include <cstring>

namespace sim::detail {
namespace {

constexpr HostMethod automation(const char* name, Gives gives)
{
    return {name, gives, true};
}
constexpr HostMethod sdk(const char* name, Gives gives)
{
    return {name, gives, false};
}

const HostMethod kHostMethods[] = {
    sdk("sdk.zbedGetZorbWinApp", Gives::object),
    sdk("sdk.zbedGetVar", Gives::shortNumber),
    sdk("sdk.zbedSetVar", Gives::nothing),
    sdk("sdk.zbedFindFile", Gives::foundPath),
    sdk("sdk.zbHeapFree", Gives::nothing),
    sdk("sdk.zbdbHostApplicationServices", Gives::object),
    sdk("ZbDbHostApplicationServices.getUserRegistryProductRootKey", Gives::text),
    sdk("CWinApp.GetIDispatch", Gives::object),
    sdk("HostApplication.QueryInterface", Gives::nothing),  // refused or not: nothing else to answer
    automation("HostApplication.get_Preferences", Gives::object),
    automation("HostApplication.get_MenuGroups", Gives::object),
    automation("HostApplication.get_MenuBar", Gives::object),
    automation("HostApplication.get_ActiveDocument", Gives::object),
    automation("HostApplication.get_Documents", Gives::object),
    automation("HostApplication.ZoomWindow", Gives::nothing),
    automation("HostPreferences.get_Files", Gives::object),
    automation("HostPreferencesFiles.get_SupportPath", Gives::text),
    automation("HostPreferencesFiles.put_SupportPath", Gives::nothing),
    automation("HostPreferencesFiles.get_PrinterStyleSheetPath", Gives::text),
    automation("HostPreferencesFiles.put_PrinterStyleSheetPath", Gives::nothing),
    automation("HostPreferencesFiles.get_TemplateDrawingFolder", Gives::text),
    automation("HostPreferencesFiles.put_TemplateDrawingFolder", Gives::nothing),
    automation("HostPreferencesFiles.get_DrawingPath", Gives::text),
    automation("HostPreferencesFiles.put_DrawingPath", Gives::nothing),
    automation("HostMenuGroups.get_Count", Gives::longNumber),
    automation("HostMenuGroups.Item", Gives::object),
    automation("HostMenuGroups._NewEnum", Gives::object),
    automation("HostMenuGroups.LoadMenuFile", Gives::object),
    automation("HostMenuGroup.get_Name", Gives::text),
    automation("HostMenuGroup.get_Menus", Gives::object),
    automation("HostMenuGroup.get_Toolbars", Gives::object),
    automation("HostMenuGroup.Unload", Gives::nothing),
    automation("HostPopupMenus.get_Count", Gives::longNumber),
    automation("HostPopupMenus.Item", Gives::object),
    automation("HostPopupMenus._NewEnum", Gives::object),
    automation("HostPopupMenus.AddMenu", Gives::object),
    automation("HostPopupMenu.get_Name", Gives::text),
    automation("HostPopupMenu.put_Name", Gives::nothing),
    automation("HostPopupMenu.get_TagString", Gives::text),
    automation("HostPopupMenu.get_OnMenuBar", Gives::yesNo),
    automation("HostPopupMenu.get_Count", Gives::longNumber),
    automation("HostPopupMenu.Item", Gives::object),
    automation("HostPopupMenu._NewEnum", Gives::object),
    automation("HostPopupMenu.AddMenuItem", Gives::object),
    automation("HostPopupMenu.AddSubMenu", Gives::object),
    automation("HostPopupMenu.AddSeparator", Gives::object),
    automation("HostPopupMenu.InsertInMenuBar", Gives::nothing),
    automation("HostPopupMenu.RemoveFromMenuBar", Gives::nothing),
    automation("HostPopupMenuItem.get_Label", Gives::text),
    automation("HostPopupMenuItem.put_Label", Gives::nothing),
    automation("HostPopupMenuItem.get_Macro", Gives::text),
    automation("HostPopupMenuItem.get_Type", Gives::longNumber),
    automation("HostPopupMenuItem.get_SubMenu", Gives::object),
    automation("HostPopupMenuItem.get_Enabled", Gives::yesNo),
    automation("HostPopupMenuItem.put_Enabled", Gives::nothing),
    automation("HostPopupMenuItem.Delete", Gives::nothing),
    automation("HostMenuBar.get_Count", Gives::longNumber),
    automation("HostMenuBar.Item", Gives::object),
    automation("HostMenuBar._NewEnum", Gives::object),
    automation("HostToolbars.get_Count", Gives::longNumber),
    automation("HostToolbars.Item", Gives::object),
    automation("HostToolbars._NewEnum", Gives::object),
    automation("HostToolbar.get_Name", Gives::text),
    automation("HostToolbar.get_TagString", Gives::text),
    automation("HostToolbar.get_Visible", Gives::yesNo),
    automation("HostToolbar.put_Visible", Gives::nothing),
    automation("HostToolbar.get_DockStatus", Gives::longNumber),
    automation("HostToolbar.get_Left", Gives::longNumber),
    automation("HostToolbar.get_Top", Gives::longNumber),
    automation("HostToolbar.get_FloatingRows", Gives::longNumber),
    automation("HostToolbar.Dock", Gives::nothing),
    automation("HostToolbar.Float", Gives::nothing),
    automation("HostToolbar.get_Count", Gives::longNumber),
    automation("HostToolbar.Item", Gives::object),
    automation("HostToolbar._NewEnum", Gives::object),
    automation("HostToolbar.AddButton", Gives::object),
    automation("HostToolbarItem.get_Name", Gives::text),
    automation("HostToolbarItem.get_TagString", Gives::text),
    automation("HostToolbarItem.put_TagString", Gives::nothing),
    automation("HostToolbarItem.get_Index", Gives::longNumber),
    automation("HostToolbarItem.SetBitmaps", Gives::nothing),
    automation("HostToolbarItem.AttachToolbarToFlyout", Gives::nothing),
    automation("HostToolbarItem.Delete", Gives::nothing),
    automation("HostDocuments.get_Count", Gives::longNumber),
    automation("HostDocuments.Item", Gives::object),
    automation("HostDocuments._NewEnum", Gives::object),
    automation("HostDocuments.Open", Gives::object),
    automation("HostDocument.get_FullFileName", Gives::text),
    automation("HostDocument.get_Plot", Gives::object),
    automation("HostDocument.get_ActiveLayout", Gives::object),
    automation("HostDocument.Activate", Gives::nothing),
    automation("HostDocument.Close", Gives::nothing),
    automation("HostLayout.get_Name", Gives::text),
    automation("HostLayout.get_PlotType", Gives::longNumber),
    automation("HostLayout.put_PlotType", Gives::nothing),
    automation("HostLayout.SetWindowToPlot", Gives::nothing),
    automation("HostPlot.put_NumberOfCopies", Gives::nothing),
    automation("HostPlot.put_QuietErrorMode", Gives::nothing),
    automation("HostPlot.StartBatchMode", Gives::nothing),
    automation("HostPlot.SetLayoutsToPlot", Gives::nothing),
    automation("HostPlot.PlotToDevice", Gives::yesNo),
    // An enumeration's calls are journaled on its collection's name.
    automation("IEnumVARIANT.Next", Gives::nothing),
    automation("IEnumVARIANT.Skip", Gives::nothing),
    automation("IEnumVARIANT.Reset", Gives::nothing),
    automation("IEnumVARIANT.Clone", Gives::object),
};

}  // namespace

const HostMethod* findHostMethod(const std::string& name)
{
    for (const HostMethod& method : kHostMethods)
        if (name == method.name)
            return &method;
    return nullptr;
}

}  // namespace sim::detail

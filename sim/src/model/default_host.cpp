// The host as the MX product finds it on a fresh installation: the host's own menus and
// toolbars, the MX menu files in the MX support folder but not yet loaded, one drawing open.
#include "sim/host.h"

#include "model/default_menus.h"
#include "model/builders.h"

namespace sim {

HostState defaultHostState()
{
    HostState state;
    state.menuGroups = {detail::hostMenuGroup()};
    const auto& hostMenus = state.menuGroups.front()->menus;
    state.menuBar.assign(hostMenus.begin(), hostMenus.begin() + 6);  // File .. Help; not the cursor menu

    const std::wstring project = L"C:\\Projects\\Warehouse 12\\Drawings\\";
    state.drawingsOnDisk = {project + L"GA-001.dwg", project + L"GA-002.dwg", project + L"Shop\\B-101.dwg",
                            project + L"Shop\\C-201.dwg", L"C:\\Users\\mx\\Documents\\Drawing1.dwg"};
    auto open = std::make_shared<Document>();
    open->fullFileName = state.drawingsOnDisk.front();
    detail::giveLayouts(*open, {L"Layout1", L"Layout2"});
    state.documents = {open};
    state.activeDocument = open;

    const std::wstring zorb = L"C:\\Program Files\\Zorb 2026";
    const std::wstring roaming = L"C:\\Users\\mx\\AppData\\Roaming\\Zorb\\Zorb 2026\\R26.0\\enu";
    state.preferences.supportPath = roaming + L"\\Support;" + zorb + L"\\Support;" + zorb + L"\\Fonts;" +
                                    zorb + L"\\Help;" + zorb + L"\\Support\\Color";
    state.preferences.printerStyleSheetPath = roaming + L"\\Plotters\\Plot Styles";
    state.preferences.templateDrawingFolder =
        L"C:\\Users\\mx\\AppData\\Local\\Zorb\\Zorb 2026\\R26.0\\enu\\Template";
    state.preferences.drawingPath = L"C:\\Users\\mx\\Documents";

    state.systemVariables = {{L"DWGCHECK", 1},  {L"FILEDIA", 1}, {L"CMDECHO", 1},       {L"OSMODE", 4133},
                             {L"PICKFIRST", 1}, {L"SDI", 0},     {L"BACKGROUNDPLOT", 2}};

    state.registryRootKey = L"Software\\Zorb\\Zorb2026\\Profile-MX";
    state.registryValues = {
        {L"", {{L"ZorbLocation", zorb}, {L"Language", L"enu"}}},
        {L"FixedProfile\\General",
         {{L"LinetypeFile", L"zorb.lin"},
          {L"HatchFile", L"zorb.pat"},
          {L"MetricLinetypeFile", L"zorbiso.lin"},
          {L"MetricHatchFile", L"zorbiso.pat"}}},
    };
    for (const wchar_t* file :
         {L"zorb.lin", L"zorbiso.lin", L"zorb.pat", L"zorbiso.pat", L"zorb.dwt", L"zorb.fmp"})
        state.searchPathFiles[file] = zorb + L"\\Support\\" + file;

    state.mxSupportFolder = L"C:\\Program Files\\MX\\Support";
    state.menuFiles = {{state.mxSupportFolder + L"\\MX", detail::mxMenuGroup()},
                       {state.mxSupportFolder + L"\\MXTOOLS", detail::mxToolsMenuGroup()}};
    return state;
}

}  // namespace sim

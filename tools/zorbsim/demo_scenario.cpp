#include "demo_scenario.h"

#include "json_file.h"

namespace zorbsim {
namespace {

// Written as a scenario file would be, and read by the same reader.
constexpr const char* kDemoScenario = R"json({
  "description": "The MX product starts in a fresh session of the default host and puts its folders where the host looks.",
  "steps": [
    {
      "title": "The MX product finds the host application",
      "call": "getCADAppDispatch",
      "expect": { "result": "0x00000000", "outputs": { "dispatch": "IDispatch" } }
    },
    {
      "call": "getCadApplication",
      "expect": { "result": "HostApplication" }
    },
    {
      "title": "It reads the host's support path",
      "call": "getCADAppSupportPath",
      "expect": { "result": "C:\\Users\\mx\\AppData\\Roaming\\Zorb\\Zorb 2026\\R26.0\\enu\\Support;C:\\Program Files\\Zorb 2026\\Support;C:\\Program Files\\Zorb 2026\\Fonts;C:\\Program Files\\Zorb 2026\\Help;C:\\Program Files\\Zorb 2026\\Support\\Color" }
    },
    {
      "title": "Merging skips folders the path already names, whatever their letter case",
      "call": "preparePathes",
      "args": {
        "folders": [ "C:\\Program Files\\MX\\Support", "c:\\program files\\zorb 2026\\fonts" ],
        "current": "C:\\Program Files\\Zorb 2026\\Support;C:\\Program Files\\Zorb 2026\\Fonts"
      },
      "expect": { "outputs": { "merged": "C:\\Program Files\\Zorb 2026\\Support;C:\\Program Files\\Zorb 2026\\Fonts;C:\\Program Files\\MX\\Support" } }
    },
    {
      "title": "It adds its support folder to the support path",
      "call": "ZORBAppUtilities::addPathesToCADAppSupportPath",
      "args": { "folders": [ "C:\\Program Files\\MX\\Support" ] },
      "expect": { "result": true, "outputs": { "merged": "C:\\Users\\mx\\AppData\\Roaming\\Zorb\\Zorb 2026\\R26.0\\enu\\Support;C:\\Program Files\\Zorb 2026\\Support;C:\\Program Files\\Zorb 2026\\Fonts;C:\\Program Files\\Zorb 2026\\Help;C:\\Program Files\\Zorb 2026\\Support\\Color;C:\\Program Files\\MX\\Support" } }
    },
    {
      "title": "The plot interface adds the symbol folder; the support folder is there already",
      "call": "CADPlotUtilities::addPathesToCADAppSupportPath",
      "args": { "folders": [ "C:\\Program Files\\MX\\Support", "C:\\Program Files\\MX\\Symbols" ] },
      "expect": { "result": true }
    },
    {
      "title": "It adds its support folder to the printer style sheet path",
      "call": "CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath",
      "expect": { "result": true }
    },
    {
      "title": "A second time there is nothing to add: true, and nothing merged",
      "call": "ZORBAppUtilities::addMXPathToCADPrinterStyleSheetPath",
      "expect": { "result": true, "outputs": { "merged": "" } }
    },
    {
      "call": "getPlotStylePath",
      "expect": { "result": true, "outputs": { "path": "C:\\Users\\mx\\AppData\\Roaming\\Zorb\\Zorb 2026\\R26.0\\enu\\Plotters\\Plot Styles;C:\\Program Files\\MX\\Support" } }
    },
    {
      "title": "It points the host's drawing templates at its own",
      "call": "setTemplateDwgPath",
      "args": { "path": "C:\\Program Files\\MX\\Templates" },
      "expect": { "result": true }
    },
    {
      "title": "It asks where the host keeps drawings, where it is installed, and its linetype and hatch files",
      "call": "getCadDrawingPath",
      "expect": { "result": true, "outputs": { "path": "C:\\Users\\mx\\Documents" } }
    },
    {
      "call": "getCadProductLocation",
      "expect": { "result": true, "outputs": { "location": "C:\\Program Files\\Zorb 2026" } }
    },
    {
      "call": "getLinetypeFilePath",
      "args": { "valueName": "LinetypeFile" },
      "expect": { "result": true, "outputs": { "path": "zorb.lin" } }
    },
    {
      "call": "getHatchFilePath",
      "args": { "valueName": "HatchFile" },
      "expect": { "result": true, "outputs": { "path": "C:\\Program Files\\Zorb 2026\\Support\\zorb.pat" } }
    },
    {
      "title": "The host's preferences now name the MX folders",
      "expectHost": {
        "/preferences/supportPath": "C:\\Users\\mx\\AppData\\Roaming\\Zorb\\Zorb 2026\\R26.0\\enu\\Support;C:\\Program Files\\Zorb 2026\\Support;C:\\Program Files\\Zorb 2026\\Fonts;C:\\Program Files\\Zorb 2026\\Help;C:\\Program Files\\Zorb 2026\\Support\\Color;C:\\Program Files\\MX\\Support;C:\\Program Files\\MX\\Symbols",
        "/preferences/printerStyleSheetPath": "C:\\Users\\mx\\AppData\\Roaming\\Zorb\\Zorb 2026\\R26.0\\enu\\Plotters\\Plot Styles;C:\\Program Files\\MX\\Support",
        "/preferences/templateDrawingFolder": "C:\\Program Files\\MX\\Templates"
      }
    }
  ]
})json";

}  // namespace

Scenario demoScenario() { return parseScenario(parseJsonText(kDemoScenario, "built-in demo"), "built-in demo", "."); }

}  // namespace zorbsim

// The module's side of the core library's two utility interfaces. The core library never links
// this module: it reaches it only through the two objects below, which register themselves while
// the module loads and withdraw when it unloads. Neither class is exported.
#include "CADPlotUtilities.h"
#include "ZORBAppUtilities.h"

#include "MxtCadPlotUtilitiesInterface"
#include "MxtZorbAppUtilitiesInterface"

namespace {

// Holds nothing and adds nothing: each operation is the exported static of the same name, so
// that both ways into the module give the same results and the same effects on the host.
class ZorbAppUtilitiesImpl : public MxtZorbAppUtilitiesInterface {
public:
    ZorbAppUtilitiesImpl() : MxtZorbAppUtilitiesInterface(this) {}

    MxtString getCADAppSupportPath() override { return ZORBAppUtilities::getCADAppSupportPath(); }
    bool setTemplateDwgPath(const MxtString& path) override { return ZORBAppUtilities::setTemplateDwgPath(path); }
    bool loadMenus(const MxtArray<MxtString>& menuFiles) override { return ZORBAppUtilities::loadMenus(menuFiles); }
    bool getLinetypeFilePath(const MxtString& valueName, MxtString& path) override
    {
        return ZORBAppUtilities::getLinetypeFilePath(valueName, path);
    }
    bool closeActiveDocument(bool saveChanges) override { return ZORBAppUtilities::closeActiveDocument(saveChanges); }
    bool openAndActivateDocument(const MxtString& path, bool activate) override
    {
        return ZORBAppUtilities::openAndActivateDocument(path, activate);
    }
    bool plotLayout(const MxtString& plotConfigName, const MxtString& layoutName, ZbDbPlotSettings::PlotType plotType,
                    double x1, double x2, double y1, double y2, MxtString& errorMessage) override
    {
        return ZORBAppUtilities::plotLayout(plotConfigName, layoutName, plotType, x1, x2, y1, y2, errorMessage);
    }
    bool unloadMenus(const MxtArray<MxtString>& menuFiles) override
    {
        return ZORBAppUtilities::unloadMenus(menuFiles);
    }
};

class CadPlotUtilitiesImpl : public MxtCadPlotUtilitiesInterface {
public:
    CadPlotUtilitiesImpl() : MxtCadPlotUtilitiesInterface(this) {}

    // The static reports nothing back: the path the app operation merged is discarded there.
    bool addMXPathToCADPrinterStyleSheetPath() override { return CADPlotUtilities::addMXPathToCADPrinterStyleSheetPath(); }
    bool addPathesToCADAppSupportPath(const MxtArray<MxtString>& paths) override
    {
        return CADPlotUtilities::addPathesToCADAppSupportPath(paths);
    }
};

// Defined in this order in one file, so the app utilities are made first and the plot utilities
// second, and the unload destroys them the other way round.
ZorbAppUtilitiesImpl zorbAppUtilities;
CadPlotUtilitiesImpl cadPlotUtilities;

}  // namespace

// Registration of the utility interfaces with the core library.
#include "MxtCadPlotUtilitiesInterface"

#include "core_test_support.h"

#include <memory>

namespace {

// An implementation that does nothing: what is under test is which object the core library holds.
class PlotUtilities : public MxtCadPlotUtilitiesInterface {
public:
    PlotUtilities() : MxtCadPlotUtilitiesInterface(this) {}
    bool addMXPathToCADPrinterStyleSheetPath() override { return false; }
    bool addPathesToCADAppSupportPath(const MxtArray<MxtString>&) override { return false; }
};

using UtilityInterfaces = CoreTest;

// That constructing registers and destroying withdraws is held by the module loading test, which
// loads the real implementations twice.
TEST_F(UtilityInterfaces, TheLatestRegistrationIsCurrentAndAnOlderOneLeavesItInPlace)
{
    auto older = std::make_unique<PlotUtilities>();
    PlotUtilities newer;
    EXPECT_EQ(MxtCadPlotUtilitiesInterface::getImplementation(), &newer);
    older.reset();
    EXPECT_EQ(MxtCadPlotUtilitiesInterface::getImplementation(), &newer);
}

}  // namespace

// One current implementation per utility interface. Registration happens under the host's loader,
// on one thread, so the pointers need no lock.
#include "MxtCadPlotUtilitiesInterface"
#include "MxtZorbAppUtilitiesInterface"

namespace {

MxtZorbAppUtilitiesInterface* currentZorbAppUtilities = nullptr;
MxtCadPlotUtilitiesInterface* currentCadPlotUtilities = nullptr;

template <class Interface>
void withdraw(Interface*& current, Interface* leaving)
{
    if (current == leaving)
        current = nullptr;
}

}  // namespace

MxtZorbAppUtilitiesInterface::MxtZorbAppUtilitiesInterface(MxtZorbAppUtilitiesInterface* impl)
{
    currentZorbAppUtilities = impl;
}

MxtZorbAppUtilitiesInterface::~MxtZorbAppUtilitiesInterface()
{
    withdraw(currentZorbAppUtilities, this);
}

MxtZorbAppUtilitiesInterface* MxtZorbAppUtilitiesInterface::getImplementation()
{
    return currentZorbAppUtilities;
}

MxtCadPlotUtilitiesInterface::MxtCadPlotUtilitiesInterface(MxtCadPlotUtilitiesInterface* impl)
{
    currentCadPlotUtilities = impl;
}

MxtCadPlotUtilitiesInterface::~MxtCadPlotUtilitiesInterface()
{
    withdraw(currentCadPlotUtilities, this);
}

MxtCadPlotUtilitiesInterface* MxtCadPlotUtilitiesInterface::getImplementation()
{
    return currentCadPlotUtilities;
}

// Every operation of the module, run undisturbed on a strict host and then failed at each host
// call, each withheld object, each step to the application and each automation string allocation and variant
// copy: it makes the host calls it should, answers as its failure handling says, leaves the host as that
// handling allows and leaves nothing behind. Each subsystem's sweep file lists its operations.
#include "support/fault_sweep.h"

#include <iostream>

using module_testing::FaultSweep;

TEST_P(FaultSweep, AnswersEachFailureAsItsHandlingSaysAndLeavesTheHostAsAllowed)
{
    const module_testing::SweepReport report = module_testing::sweepFaults(GetParam());
    std::cout << "[ sweep    ] " << GetParam().name << ": " << report.hostCalls << " host calls, "
              << report.faultSites << " fault sites (" << report.faultsReached << " reached)\n";
    RecordProperty("faultSites", static_cast<int>(report.faultSites));
}

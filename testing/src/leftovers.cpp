#include "simtest/leftovers.h"

#include "MxtAssert"

#include <gtest/gtest.h>

namespace simtest {

unsigned long liveAutomationStrings()
{
#if AUTOMATION_HAS_TEST_HOOKS
    return automation_testing::liveStrings();
#else
    return 0;
#endif
}

Leftovers::Leftovers(const sim::Host& host)
    : m_buffersHeldBefore(host.buffersHeld()), m_liveStringsBefore(liveAutomationStrings())
{
    MxtAssert::clearReports();
}

void Leftovers::expectNone(const sim::Host& host) const
{
    EXPECT_EQ(host.referencesHeld(), 0) << "references on host objects are still held";
    EXPECT_EQ(host.buffersHeld(), m_buffersHeldBefore) << "host buffers were not given back";
    EXPECT_EQ(liveAutomationStrings(), m_liveStringsBefore) << "automation strings were leaked";
    for (const MxtAssert::Report& report : MxtAssert::reports())
        ADD_FAILURE() << "contract report: " << report.condition << " at " << report.path << ':'
                      << report.line;
}

}  // namespace simtest

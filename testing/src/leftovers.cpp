#include "simtest/leftovers.h"

#include "MxtAssert"

#include <gtest/gtest.h>

#include <string>

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

namespace {

// "1 reference on HostApplication, given by CWinApp.GetIDispatch"
std::string heldObjectLine(const sim::HeldObject& object)
{
    return std::to_string(object.references) +
           (object.references == 1 ? " reference on " : " references on ") + object.object +
           (object.givenBy.empty() ? std::string() : ", given by " + object.givenBy);
}

}  // namespace

void Leftovers::expectNone(const sim::Host& host) const
{
    // Reported at the test that left them: this file's own lines mean nothing to the test's author.
    const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
    const char* file = test != nullptr ? test->file() : "unknown test";
    const int line = test != nullptr ? test->line() : 0;
    if (const long held = host.referencesHeld(); held != 0) {
        std::string objects;
        for (const sim::HeldObject& object : host.heldObjects())
            objects += "\n  " + heldObjectLine(object);
        ADD_FAILURE_AT(file, line) << "references on host objects are still held: " << held << objects;
    }
    if (const long buffers = host.buffersHeld() - m_buffersHeldBefore; buffers != 0)
        ADD_FAILURE_AT(file, line) << "host buffers were not given back with zbHeapFree: " << buffers;
    if (const unsigned long strings = liveAutomationStrings(); strings != m_liveStringsBefore)
        ADD_FAILURE_AT(file, line) << "automation strings were leaked: " << strings << " alive, "
                                   << m_liveStringsBefore << " before the test";
    for (const MxtAssert::Report& report : MxtAssert::reports())
        ADD_FAILURE_AT(file, line) << "contract report: " << report.condition << " at " << report.path << ':'
                                   << report.line;
}

}  // namespace simtest

#include "simtest/host_fixture.h"

#include "sim/state_json.h"

#include <iostream>

namespace simtest {

HostFixture::HostFixture() : HostFixture(sim::defaultHostState()) {}

HostFixture::HostFixture(sim::HostState state)
    : m_host(std::make_unique<sim::Host>(std::move(state))), m_leftovers(*m_host)
{
}

HostFixture::HostFixture(const std::string& stateFile) : HostFixture(sim::loadStateFile(stateFile)) {}

HostFixture::~HostFixture() = default;

void HostFixture::TearDown()
{
    m_leftovers.expectNone(*m_host);
    if (!HasFailure())
        return;
    const std::vector<sim::JournalEntry>& calls = hostCallEntries();
    std::cout << "Host calls of the failed test (" << calls.size() << "):\n";
    for (const sim::JournalEntry& call : calls)
        std::cout << "  " << sim::formatJournalLine(call) << "\n";
}

}  // namespace simtest

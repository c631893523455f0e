#include "simtest/host_fixture.h"

#include "sim/state_json.h"

#include <filesystem>
#include <iostream>
#include <stdexcept>

namespace simtest {
namespace {

// A relative path is taken from the folder the test runs in, which is seldom the test's source
// folder; a failure says which folder that was.
sim::HostState stateOfFile(const std::string& stateFile)
{
    try {
        return sim::loadStateFile(stateFile);
    }
    catch (const sim::StateError& error) {
        if (std::filesystem::path(stateFile).is_absolute())
            throw;
        std::error_code unknown;
        const std::filesystem::path folder = std::filesystem::current_path(unknown);
        throw std::runtime_error(std::string(error.what()) +
                                 " (a relative path is taken from the folder the test runs in: " +
                                 (unknown ? std::string("unknown") : folder.string()) + ")");
    }
}

}  // namespace

HostFixture::HostFixture() : HostFixture(sim::defaultHostState()) {}

HostFixture::HostFixture(sim::HostState state)
    : m_host(std::make_unique<sim::Host>(std::move(state))), m_leftovers(*m_host)
{
}

HostFixture::HostFixture(const std::string& stateFile) : HostFixture(stateOfFile(stateFile)) {}

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

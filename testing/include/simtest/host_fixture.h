// A GoogleTest fixture for code that runs on the simulated Zorb host: each test gets a host of its
// own, installed before the test body and removed after it. A test fails when it leaves host
// references held, host buffers not given back, automation strings alive or contract reports of
// the core library; a failed test prints the host calls it made.
//
//     class StartupTest : public simtest::HostFixture {};
//     TEST_F(StartupTest, PutsOurMenuOnTheMenuBar) { ... hostCalls() ... }
//
// A fixture that wants another host passes it on:
//
//     class PlantHostTest : public simtest::HostFixture {
//     protected:
//         PlantHostTest() : HostFixture("plant-host.json") {}
//     };
#pragma once

#include "simtest/faults.h"
#include "simtest/leftovers.h"
#include "simtest/printers.h"

#include "sim/faults.h"
#include "sim/host.h"
#include "sim/journal.h"
#include "sim/model.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace simtest {

class HostFixture : public ::testing::Test {
protected:
    // The built-in default host.
    HostFixture();
    // A host arranged in code (start from sim::defaultHostState() and change what the test needs).
    explicit HostFixture(sim::HostState state);
    // A host state file (JSON, as `zorbsim state` prints it); a relative path is taken from the
    // folder the test runs in (CTest's WORKING_DIRECTORY, else the build folder). A file that cannot
    // be read or is not a host state fails the test with the reason, naming the file and, for a
    // relative path, that folder.
    explicit HostFixture(const std::string& stateFile);
    ~HostFixture() override;

    sim::Host& host() { return *m_host; }
    // The live state: arranging it changes the host at once, reading it shows what calls did.
    sim::HostState& state() { return m_host->state(); }

    // The host calls made since the test began or the journal was last cleared, in order:
    // "HostMenuGroups.Item".
    std::vector<std::string> hostCalls() const { return m_host->journal().methods(); }
    // The same with the variant types of their arguments: "HostMenuGroups.Item(VT_I4)".
    std::vector<std::string> typedHostCalls() const { return m_host->journal().typedMethods(); }
    // The calls in full: object, arguments' types and values, status.
    const std::vector<sim::JournalEntry>& hostCallEntries() const { return m_host->journal().entries(); }
    void clearHostCalls() { m_host->journal().clear(); }

    // Arms a fault from now on: simtest::failingCall("HostToolbar.put_Visible"), withheldObject ...
    // (simtest/faults.h). clearFaults disarms them all.
    void armFault(sim::Fault fault) { m_host->armFault(std::move(fault)); }
    void clearFaults() { m_host->clearFaults(); }

    // ZORBAppUtilities::zoomWindow keeps one reference on the host application by design; a test
    // that zooms checks it and then lets go of it here, so that it leaves nothing behind.
    void releaseKeptApplicationReference() { m_host->releaseApplicationReferences(1); }

    // Checks for leftovers; prints the host calls when the test failed.
    void TearDown() override;

private:
    std::unique_ptr<sim::Host> m_host;
    Leftovers m_leftovers;  // after the host: what the host itself holds from the start is no leftover
};

}  // namespace simtest

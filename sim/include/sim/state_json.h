// The host state as JSON: load and dump. A dump loads back to an equal state. Also the journal's
// entries as reports and clients read them.
#pragma once

#include "sim/export.h"
#include "sim/faults.h"
#include "sim/journal.h"
#include "sim/model.h"

#include <nlohmann/json.hpp>

#include <stdexcept>
#include <string>
#include <vector>

namespace sim {

// Bad input: the message names the JSON path and what was expected
// ("/menuGroups/2/toolbars/0/visible: expected a boolean"), or the file and line of malformed text.
class SIM_API StateError : public std::runtime_error {
public:
    explicit StateError(const std::string& message) : std::runtime_error(message), m_problem(message) {}
    StateError(const std::string& path, const std::string& problem)
        : std::runtime_error(path.empty() ? problem : path + ": " + problem), m_path(path), m_problem(problem)
    {
    }

    // The JSON path of the value refused, so that a reader of an enclosing document can continue
    // it; empty when the complaint is about the whole input.
    const std::string& path() const { return m_path; }
    const std::string& problem() const { return m_problem; }

private:
    std::string m_path;
    std::string m_problem;
};

SIM_API HostState stateFromJson(const nlohmann::json& document);  // throws StateError
SIM_API nlohmann::json stateToJson(const HostState& state);

// Reads a state file; malformed JSON gives a StateError naming file:line:column.
SIM_API HostState loadStateFile(const std::string& path);

// Faults alone, in the form the state's "faults" member has (scenarios arm them this way).
SIM_API std::vector<Fault> faultsFromJson(const nlohmann::json& document);  // throws StateError

// {"object", "method", "arguments": [{"type", "value"}], "status"}, and for a late-bound call
// "lateBound": the variant types that arrived (["VT_I2"]).
SIM_API nlohmann::ordered_json journalEntryToJson(const JournalEntry& entry);

}  // namespace sim

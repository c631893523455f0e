// One exported operation of the module as zorbsim calls it: its name, its parameters by name and
// kind, its result kind, and the adapter that makes the real call from JSON arguments.
#pragma once

#include "input_error.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zorbsim {

using CheckValue = std::function<void(const nlohmann::json& value, const InputPlace& place)>;

// How an operation uses a parameter: an input is read only and must be given; an output is written
// only and starts from its starting value unless given one; an in/out one is read and written, so it
// must be given and its value after the call is reported.
enum class Direction { in, out, inOut };

// "in", "out", "in/out", as `zorbsim ops` shows them.
const char* directionName(Direction direction);

struct ParameterInfo {
    std::string name;  // as in the operation's signature
    std::string kind;  // "string", "long", "string array" ...
    Direction direction = Direction::in;
    nlohmann::json startingValue;  // what an output starts from when the scenario gives none
    CheckValue checkOutcome;       // outputs and in/out: a value the scenario expects after the call

    bool isInput() const { return direction != Direction::out; }
    bool isOutput() const { return direction != Direction::in; }
};

struct ResultInfo {
    std::string kind;
    CheckValue checkOutcome;
    // How the text report shows a result of this kind; none: as any JSON value.
    std::function<std::string(const nlohmann::json& value)> display;
};

// What a call gave back: its result (none for operations returning nothing, and after a call that
// raised) and the values of its output and in/out parameters, in signature order, as the call left
// them.
struct CallOutcome {
    std::optional<nlohmann::json> result;
    std::vector<std::pair<std::string, nlohmann::json>> outputs;
};

// A call with its arguments converted for the module, ready to run once the host is in place.
struct BoundCall {
    nlohmann::json arguments;  // every parameter by name, outputs with their starting values
    // Makes the call into `outcome`. Automation failures and whatever else the module raises pass
    // through, after the outputs were put into `outcome` as the call left them.
    std::function<void(CallOutcome& outcome)> call;

    CallOutcome run() const
    {
        CallOutcome outcome;
        call(outcome);
        return outcome;
    }
};

class Operation {
public:
    // Converts arguments that name every parameter into the values the call passes; a mistyped
    // value fails at its place.
    using Binder =
        std::function<std::function<void(CallOutcome&)>(const nlohmann::json& arguments, const InputPlace& place)>;

    Operation(std::string className, std::string name, std::vector<ParameterInfo> parameters,
              std::optional<ResultInfo> result, Binder binder);

    const std::string& className() const { return m_className; }
    const std::string& name() const { return m_name; }
    std::string qualifiedName() const { return m_className + "::" + m_name; }
    const std::vector<ParameterInfo>& parameters() const { return m_parameters; }
    const std::optional<ResultInfo>& result() const { return m_result; }
    const ParameterInfo* findParameter(const std::string& name) const;
    // Whether the operation keeps one reference on the host application by design (zoomWindow):
    // the report shows it as the operation's known behaviour, not as a leak.
    bool keepsApplicationReference() const { return m_keepsApplicationReference; }
    // The same operation, declared to keep its application reference.
    Operation keepingApplicationReference() &&;

    // "ZORBAppUtilities::getHatchFilePath(valueName: in string, path: out string) -> bool"
    std::string signature() const;

    // Takes a scenario's "args" (null when absent): every input and in/out parameter must be
    // given, outputs start from their starting value unless given one. Unknown, missing or
    // mistyped arguments fail at `place`. The values are converted here, before any fault of the
    // host is armed, so that a fault that fails the n-th string allocation counts the module's
    // allocations only.
    BoundCall bind(const nlohmann::json& arguments, const InputPlace& place) const;

private:
    std::string m_className;
    std::string m_name;
    std::vector<ParameterInfo> m_parameters;
    std::optional<ResultInfo> m_result;
    Binder m_binder;
    bool m_keepsApplicationReference = false;
};

}  // namespace zorbsim

// Builds an Operation from an exported function and the names of its parameters: the parameter
// and result kinds follow from the function's signature (argument_kinds.h).
#pragma once

#include "argument_kinds.h"
#include "operation.h"

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace zorbsim {

// A parameter's name in the table, with its direction where the signature alone does not tell it:
// a reference parameter is an output unless declared an input or in/out here.
struct ParameterName {
    // Implicit, so that the table names most parameters bare.
    ParameterName(const char* parameterName) : name(parameterName) {}
    const char* name;
    std::optional<Direction> direction;
};

// A reference parameter the operation only reads.
inline ParameterName input(const char* name)
{
    ParameterName parameter(name);
    parameter.direction = Direction::in;
    return parameter;
}

// A reference parameter the operation reads and may write.
inline ParameterName inOut(const char* name)
{
    ParameterName parameter(name);
    parameter.direction = Direction::inOut;
    return parameter;
}

namespace binding {

template <class Parameter>
ParameterInfo describeParameter(const ParameterName& name)
{
    using Kind = ArgumentKind<Parameter>;
    ParameterInfo info;
    info.name = name.name;
    info.kind = Kind::name;
    info.direction = Kind::isWritable ? name.direction.value_or(Direction::out) : Direction::in;
    // A value or constant parameter cannot give anything back, whatever the table says.
    if (!Kind::isWritable && name.direction.value_or(Direction::in) != Direction::in)
        throw std::logic_error(std::string("parameter ") + name.name + " cannot be written by the call");
    if constexpr (Kind::isWritable) {
        info.startingValue = Kind::write(typename Kind::Held());
        info.checkOutcome = &Kind::checkOutcome;
    }
    return info;
}

template <class Kind, class = void>
struct HasDisplay : std::false_type {};
template <class Kind>
struct HasDisplay<Kind, std::void_t<decltype(&Kind::display)>> : std::true_type {};

template <class Result>
std::optional<ResultInfo> describeResult()
{
    if constexpr (std::is_void_v<Result>) {
        return std::nullopt;
    }
    else {
        using Kind = ResultKind<Result>;
        ResultInfo info{Kind::name, &Kind::check, nullptr};
        if constexpr (HasDisplay<Kind>::value)
            info.display = &Kind::display;
        return info;
    }
}

template <class Parameter>
void collectOutput(CallOutcome& outcome, const ParameterInfo& parameter,
                   const typename ArgumentKind<Parameter>::Held& held)
{
    if (parameter.isOutput())
        outcome.outputs.emplace_back(parameter.name, ArgumentKind<Parameter>::write(held));
}

// Reads the arguments in signature order. The call works on a copy of the values, so that it
// can run again and whatever the module hands out is released as soon as it returns. The outputs
// are collected also when the call raises: a caller's variables keep what the call wrote before.
template <class Result, class... Parameters, std::size_t... I>
std::function<void(CallOutcome&)> bind(Result (*function)(Parameters...),
                                  std::shared_ptr<const std::vector<ParameterInfo>> parameters,
                                  [[maybe_unused]] const nlohmann::json& arguments,
                                  [[maybe_unused]] const InputPlace& place, std::index_sequence<I...>)
{
    using Values = std::tuple<typename ArgumentKind<Parameters>::Held...>;
    auto values = std::make_shared<const Values>(Values{ArgumentKind<Parameters>::read(
        arguments.at((*parameters)[I].name), place / (*parameters)[I].name)...});
    return [function, parameters, values](CallOutcome& outcome) {
        (void)parameters;  // an operation without parameters names none
        Values held = *values;
        const auto collectOutputs = [&] {
            (collectOutput<Parameters>(outcome, (*parameters)[I], std::get<I>(held)), ...);
        };
        try {
            if constexpr (std::is_void_v<Result>)
                function(ArgumentKind<Parameters>::pass(std::get<I>(held))...);
            else
                outcome.result =
                    ResultKind<Result>::write(function(ArgumentKind<Parameters>::pass(std::get<I>(held))...));
        }
        catch (...) {
            collectOutputs();
            throw;
        }
        collectOutputs();
    };
}

}  // namespace binding

// bindOperation("ZORBAppUtilities", "getHatchFilePath", &ZORBAppUtilities::getHatchFilePath,
//               "valueName", "path")
template <class Result, class... Parameters, class... Names>
Operation bindOperation(const char* className, const char* name, Result (*function)(Parameters...),
                        Names... parameterNames)
{
    static_assert(sizeof...(Names) == sizeof...(Parameters), "name every parameter of the operation");
    auto parameters = std::make_shared<const std::vector<ParameterInfo>>(
        std::vector<ParameterInfo>{binding::describeParameter<Parameters>(ParameterName(parameterNames))...});
    return Operation(className, name, *parameters, binding::describeResult<Result>(),
                     [function, parameters](const nlohmann::json& arguments, const InputPlace& place) {
                         return binding::bind(function, parameters, arguments, place,
                                              std::index_sequence_for<Parameters...>{});
                     });
}

}  // namespace zorbsim

// Builds an Operation from an exported function and the names of its parameters: the parameter
// and result kinds follow from the function's signature (argument_kinds.h).
#pragma once

#include "argument_kinds.h"
#include "operation.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace zorbsim {
namespace binding {

template <class Parameter>
ParameterInfo describeParameter(const char* name)
{
    using Kind = ArgumentKind<Parameter>;
    ParameterInfo info;
    info.name = name;
    info.kind = Kind::name;
    info.isOutput = Kind::isOutput;
    if constexpr (Kind::isOutput) {
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
void collectOutput(CallOutcome& outcome, const std::string& name, const typename ArgumentKind<Parameter>::Held& held)
{
    if constexpr (ArgumentKind<Parameter>::isOutput)
        outcome.outputs.emplace_back(name, ArgumentKind<Parameter>::write(held));
}

// Reads the arguments in signature order. The call works on a copy of the values, so that it
// can run again and whatever the module hands out is released as soon as it returns. The outputs
// are collected also when the call raises: a caller's variables keep what the call wrote before.
template <class Result, class... Parameters, std::size_t... I>
std::function<void(CallOutcome&)> bind(Result (*function)(Parameters...),
                                  const std::array<std::string, sizeof...(Parameters)>& names,
                                  [[maybe_unused]] const nlohmann::json& arguments,
                                  [[maybe_unused]] const InputPlace& place, std::index_sequence<I...>)
{
    using Values = std::tuple<typename ArgumentKind<Parameters>::Held...>;
    auto values = std::make_shared<const Values>(
        Values{ArgumentKind<Parameters>::read(arguments.at(names[I]), place / names[I])...});
    return [function, names, values](CallOutcome& outcome) {
        (void)names;  // an operation without parameters names none
        Values held = *values;
        const auto collectOutputs = [&] { (collectOutput<Parameters>(outcome, names[I], std::get<I>(held)), ...); };
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
    std::vector<ParameterInfo> parameters{binding::describeParameter<Parameters>(parameterNames)...};
    const std::array<std::string, sizeof...(Parameters)> names{parameterNames...};
    return Operation(className, name, std::move(parameters), binding::describeResult<Result>(),
                     [function, names](const nlohmann::json& arguments, const InputPlace& place) {
                         return binding::bind(function, names, arguments, place, std::index_sequence_for<Parameters...>{});
                     });
}

}  // namespace zorbsim

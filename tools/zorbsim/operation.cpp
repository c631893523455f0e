#include "operation.h"

namespace zorbsim {

const char* directionName(Direction direction)
{
    switch (direction) {
    case Direction::in:
        return "in";
    case Direction::out:
        return "out";
    case Direction::inOut:
        break;
    }
    return "in/out";
}

Operation::Operation(std::string className, std::string name, std::vector<ParameterInfo> parameters,
                     std::optional<ResultInfo> result, Binder binder)
    : m_className(std::move(className)),
      m_name(std::move(name)),
      m_parameters(std::move(parameters)),
      m_result(std::move(result)),
      m_binder(std::move(binder))
{
}

Operation Operation::keepingApplicationReference() &&
{
    m_keepsApplicationReference = true;
    return std::move(*this);
}

const ParameterInfo* Operation::findParameter(const std::string& name) const
{
    for (const ParameterInfo& parameter : m_parameters) {
        if (parameter.name == name)
            return &parameter;
    }
    return nullptr;
}

std::string Operation::signature() const
{
    std::string text = qualifiedName() + "(";
    for (const ParameterInfo& parameter : m_parameters)
        text += (&parameter == &m_parameters.front() ? "" : ", ") + parameter.name + ": " +
                directionName(parameter.direction) + " " + parameter.kind;
    text += ")";
    if (m_result)
        text += " -> " + m_result->kind;
    if (m_keepsApplicationReference)
        text += "  (keeps its application reference)";
    return text;
}

BoundCall Operation::bind(const nlohmann::json& arguments, const InputPlace& place) const
{
    if (!arguments.is_null() && !arguments.is_object())
        place.fail("expected an object of arguments by parameter name");
    nlohmann::json named = nlohmann::json::object();
    if (arguments.is_object()) {
        for (const auto& argument : arguments.items()) {
            if (findParameter(argument.key()) == nullptr)
                (place / argument.key()).fail("unknown argument of " + signature());
            named[argument.key()] = argument.value();
        }
    }
    for (const ParameterInfo& parameter : m_parameters) {
        if (named.contains(parameter.name))
            continue;
        if (parameter.isInput())
            place.fail("missing argument \"" + parameter.name + "\" of " + signature());
        named[parameter.name] = parameter.startingValue;
    }
    std::function<void(CallOutcome&)> call = m_binder(named, place);
    return {std::move(named), std::move(call)};
}

}  // namespace zorbsim

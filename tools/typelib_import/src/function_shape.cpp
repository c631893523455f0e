#include "function_shape.h"

namespace typelib_import {
namespace {

const char* rawPrefix(Invocation invocation)
{
    switch (invocation) {
    case Invocation::propertyGet:
        return "get_";
    case Invocation::propertyPut:
        return "put_";
    case Invocation::propertyPutRef:
        return "putref_";
    case Invocation::method:
        break;
    }
    return "raw_";
}

}  // namespace

std::string rawName(const Function& function)
{
    return rawPrefix(function.invocation) + function.name;
}

std::string wrapperName(const Function& function)
{
    switch (function.invocation) {
    case Invocation::propertyGet:
        return "Get" + function.name;
    case Invocation::propertyPut:
        return "Put" + function.name;
    case Invocation::propertyPutRef:
        return "PutRef" + function.name;
    case Invocation::method:
        break;
    }
    return function.name;
}

std::string callName(const Function& function)
{
    return function.invocation == Invocation::method ? function.name : rawName(function);
}

bool isRetval(const Parameter& parameter)
{
    return (parameter.flags & PARAMFLAG_FRETVAL) != 0;
}

std::vector<const Parameter*> callerParameters(const Function& function)
{
    std::vector<const Parameter*> passed;
    for (const Parameter& parameter : function.parameters)
        if (!isRetval(parameter))
            passed.push_back(&parameter);
    return passed;
}

std::optional<Type> givenType(const Function& function)
{
    if (function.parameters.empty() || !isRetval(function.parameters.back()))
        return std::nullopt;
    Type given = function.parameters.back().type;
    --given.pointers;
    return given;
}

}  // namespace typelib_import

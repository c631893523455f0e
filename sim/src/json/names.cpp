#include "json/names.h"

namespace sim::detail {
namespace {

template <class Enum, size_t count>
std::optional<Enum> lookUp(const std::pair<Enum, const char*> (&table)[count], const std::string& name)
{
    for (const auto& [value, valueName] : table)
        if (name == valueName)
            return value;
    return std::nullopt;
}

template <class Enum, size_t count>
const char* nameIn(const std::pair<Enum, const char*> (&table)[count], Enum wanted)
{
    for (const auto& [value, valueName] : table)
        if (value == wanted)
            return valueName;
    return "?";
}

const std::pair<ItemType, const char*> kItemTypes[] = {
    {ItemType::command, "command"},
    {ItemType::separator, "separator"},
    {ItemType::submenu, "submenu"},
};

const std::pair<FaultKind, const char*> kFaultKinds[] = {
    {FaultKind::failCall, "failCall"},
    {FaultKind::nullObject, "nullObject"},
    {FaultKind::answer, "answer"},
    {FaultKind::noFrameworkObject, "noFrameworkObject"},
    {FaultKind::noDispatch, "noDispatch"},
    {FaultKind::refuseApplicationInterface, "refuseApplicationInterface"},
    {FaultKind::failStringAllocation, "failStringAllocation"},
    {FaultKind::failVariantCopy, "failVariantCopy"},
};

const std::pair<BeyondEnd, const char*> kBeyondEnd[] = {
    {BeyondEnd::refuse, "refuse"},
    {BeyondEnd::append, "append"},
};

}  // namespace

const char* nameOfItemType(ItemType type)
{
    return nameIn(kItemTypes, type);
}
std::optional<ItemType> itemTypeNamed(const std::string& name)
{
    return lookUp(kItemTypes, name);
}

const char* nameOfFaultKind(FaultKind kind)
{
    return nameIn(kFaultKinds, kind);
}
std::optional<FaultKind> faultKindNamed(const std::string& name)
{
    return lookUp(kFaultKinds, name);
}

const char* nameOfBeyondEnd(BeyondEnd choice)
{
    return nameIn(kBeyondEnd, choice);
}
std::optional<BeyondEnd> beyondEndNamed(const std::string& name)
{
    return lookUp(kBeyondEnd, name);
}

}  // namespace sim::detail

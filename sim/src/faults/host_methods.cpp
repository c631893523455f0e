#include "faults/host_methods.h"

#include "host/members.h"

#include <array>
#include <iterator>
#include <optional>

namespace sim::detail {
namespace {

// What a member of the type library gives, as the simulator's faults see it (an interface and an
// enumeration's IUnknown are both objects a fault can withhold); none for a type they do not know.
constexpr std::optional<Gives> givesOf(VARTYPE type)
{
    switch (type) {
    case VT_EMPTY:
        return Gives::nothing;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return Gives::object;
    case VT_BSTR:
        return Gives::text;
    case VT_I4:
        return Gives::longNumber;
    case VT_BOOL:
        return Gives::yesNo;
    default:
        return std::nullopt;
    }
}

constexpr bool knowsEveryMember()
{
    for (const members::Member& member : members::all)
        if (!givesOf(member.gives))
            return false;
    return true;
}
static_assert(
    knowsEveryMember(),
    "a member of the host's type library gives a variant type that the simulator's faults do not know");

constexpr std::size_t kMethodCount = std::size(undescribed::all) + std::size(members::all);

constexpr std::array<HostMethod, kMethodCount> hostMethods()
{
    std::array<HostMethod, kMethodCount> methods{};
    std::size_t next = 0;
    for (const HostMethod* method : undescribed::all)
        methods[next++] = *method;
    for (const members::Member& member : members::all)
        methods[next++] = HostMethod{member.name, *givesOf(member.gives), true};
    return methods;
}

constexpr std::array<HostMethod, kMethodCount> kHostMethods = hostMethods();

}  // namespace

const HostMethod* findHostMethod(const std::string& name)
{
    for (const HostMethod& method : kHostMethods)
        if (name == method.name)
            return &method;
    return nullptr;
}

}  // namespace sim::detail

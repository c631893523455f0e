// GUIDs and interface identifiers, and how an interface is given its identifier so that
// __uuidof(Interface), __uuidof(Interface*) and __uuidof(expression) find it as on the platform.
#pragma once

#include <cstring>
#include <type_traits>

#include "automation/win_types.h"

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};
typedef GUID IID;
typedef GUID CLSID;
typedef const GUID& REFGUID;
typedef const IID& REFIID;
typedef const CLSID& REFCLSID;

// The null identifier: what IDispatch's reserved interface argument must be.
inline constexpr GUID GUID_NULL = {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};
#define IID_NULL GUID_NULL

inline bool IsEqualGUID(REFGUID a, REFGUID b) { return std::memcmp(&a, &b, sizeof(GUID)) == 0; }
inline bool IsEqualIID(REFIID a, REFIID b) { return IsEqualGUID(a, b); }
inline bool operator==(REFGUID a, REFGUID b) { return IsEqualGUID(a, b); }
inline bool operator!=(REFGUID a, REFGUID b) { return !IsEqualGUID(a, b); }

namespace automation_detail {

// Specialised for each interface by AUTOMATION_DECLARE_UUID; an interface without one does not
// compile where its identifier is asked for.
template <class Interface>
struct InterfaceId;

template <class T>
constexpr const GUID& uuidOf()
{
    return InterfaceId<std::remove_cv_t<std::remove_pointer_t<std::remove_reference_t<T>>>>::value;
}

}  // namespace automation_detail

#define __uuidof(x) ::automation_detail::uuidOf<__typeof__(x)>()

// Same arguments as the platform's declaration; use it at global scope, after declaring `type`.
#define AUTOMATION_DECLARE_UUID(type, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) \
    template <>                                                                  \
    struct automation_detail::InterfaceId<type> {                                \
        static constexpr GUID value = {l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}}; \
    };

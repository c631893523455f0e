// A simulated host installed for each test, reached the way the MX module reaches it.
#pragma once

#include "sim/host.h"
#include "support/automation_failure.h"
#include "support/faults.h"
#include "support/host_test.h"

#include "framework.h"
#include "host/object_model.h"
#include "host/sdk.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace sim_testing {

using module_testing::failingCall;
using module_testing::faultOfKind;
using module_testing::withheldObject;

// The framework object's dispatch, queried for the application and released: the way the MX
// module reaches the host.
inline HostApplicationPtr application()
{
    IDispatch* dispatch = zbedGetZorbWinApp()->GetIDispatch(TRUE);
    HostApplication* application = nullptr;
    dispatch->QueryInterface(__uuidof(HostApplication), reinterpret_cast<void**>(&application));
    dispatch->Release();
    return HostApplicationPtr(application, false);
}

inline HostMenuGroupPtr group(const wchar_t* name)
{
    return application()->GetMenuGroups()->Item(_variant_t(name));
}

inline HostMenuGroupPtr loadMx()
{
    return application()->GetMenuGroups()->LoadMenuFile(L"C:\\Program Files\\MX\\Support\\MX", _variant_t());
}

// The default host, installed for each test; after it nothing may be left behind.
using SimTest = module_testing::SimulatedHostTest;

inline std::wstring descriptionOf(const _com_error& failure)
{
    const _bstr_t description = failure.Description();
    return description.length() ? static_cast<const wchar_t*>(description) : L"";
}

// A variant of the given integer type.
inline _variant_t indexOf(VARTYPE type, long value)
{
    _variant_t index;
    V_VT(&index) = type;
    if (type == VT_I2)
        V_I2(&index) = static_cast<SHORT>(value);
    else if (type == VT_INT)
        V_INT(&index) = static_cast<INT>(value);
    else
        V_I4(&index) = value;
    return index;
}

// A VT_ARRAY|VT_BSTR list of `texts`, as the host takes layout names.
inline _variant_t stringList(std::initializer_list<const wchar_t*> texts)
{
    _variant_t list;
    V_VT(&list) = VT_ARRAY | VT_BSTR;
    V_ARRAY(&list) = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
    LONG index = 0;
    for (const wchar_t* text : texts) {
        SafeArrayPutElement(V_ARRAY(&list), &index, _bstr_t(text).GetBSTR());
        ++index;
    }
    return list;
}

// The host's point form: an array of two doubles.
inline _variant_t pointOf(double x, double y)
{
    ZbAxPoint2d point(x, y);
    return _variant_t(point.asVariantPtr());
}

}  // namespace sim_testing

// Initialising, clearing and copying variants.
#include "automation.h"
#include "variant_types.h"

using automation_detail::variantMayHold;

namespace {

// The test hook's countdown to a failing copy, and the status it fails with.
unsigned long copyFailureCountdown = 0;
HRESULT copyFailureStatus = E_FAIL;

bool holdsInterface(const VARIANT* variant)
{
    return (V_VT(variant) == VT_DISPATCH || V_VT(variant) == VT_UNKNOWN) && V_UNKNOWN(variant) != nullptr;
}

// Frees what a variant owns; a reference owns nothing.
HRESULT releaseOwned(VARIANT* variant)
{
    if (V_ISBYREF(variant))
        return S_OK;
    if (V_ISARRAY(variant))
        return SafeArrayDestroy(V_ARRAY(variant));
    if (V_VT(variant) == VT_BSTR)
        SysFreeString(V_BSTR(variant));
    else if (holdsInterface(variant))
        V_UNKNOWN(variant)->Release();
    return S_OK;
}

// Turns `copy`, a bitwise copy of another variant, into the owner of its own contents.
HRESULT duplicateOwned(VARIANT* copy)
{
    if (V_ISBYREF(copy))
        return S_OK;
    if (V_ISARRAY(copy))
        return SafeArrayCopy(V_ARRAY(copy), &V_ARRAY(copy));
    if (V_VT(copy) == VT_BSTR) {
        // As on the platform, a null string is copied as an allocated empty one.
        V_BSTR(copy) =
            SysAllocStringByteLen(reinterpret_cast<LPCSTR>(V_BSTR(copy)), SysStringByteLen(V_BSTR(copy)));
        return V_BSTR(copy) != nullptr ? S_OK : E_OUTOFMEMORY;
    }
    if (holdsInterface(copy))
        V_UNKNOWN(copy)->AddRef();
    return S_OK;
}

}  // namespace

void VariantInit(VARIANTARG* variant)
{
    V_VT(variant) = VT_EMPTY;
}

HRESULT VariantClear(VARIANTARG* variant)
{
    if (variant == nullptr)
        return E_INVALIDARG;
    if (!variantMayHold(V_VT(variant)))
        return DISP_E_BADVARTYPE;
    const HRESULT result = releaseOwned(variant);
    V_VT(variant) = VT_EMPTY;
    return result;
}

HRESULT VariantCopy(VARIANTARG* destination, VARIANTARG* source)
{
    if (copyFailureCountdown != 0 && --copyFailureCountdown == 0)
        return copyFailureStatus;
    if (destination == nullptr || source == nullptr)
        return E_INVALIDARG;
    if (destination == source)
        return S_OK;
    if (!variantMayHold(V_VT(source)))
        return DISP_E_BADVARTYPE;
    const HRESULT cleared = VariantClear(destination);
    if (FAILED(cleared))
        return cleared;
    VARIANT copy = *source;
    const HRESULT result = duplicateOwned(&copy);
    if (SUCCEEDED(result))
        *destination = copy;
    return result;
}

HRESULT VariantCopyInd(VARIANT* destination, VARIANTARG* source)
{
    if (destination == nullptr || source == nullptr)
        return E_INVALIDARG;
    VARIANT value;
    const HRESULT found = automation_detail::dereferenced(*source, value);
    if (FAILED(found))
        return found;
    // The value is read before `destination` is cleared, since the two may be one variant.
    VARIANT copy;
    VariantInit(&copy);
    const HRESULT copied = VariantCopy(&copy, &value);
    if (FAILED(copied))
        return copied;
    const HRESULT cleared = VariantClear(destination);
    if (FAILED(cleared)) {
        VariantClear(&copy);
        return cleared;
    }
    *destination = copy;
    return S_OK;
}

namespace automation_testing {

void failVariantCopy(unsigned long nth, HRESULT status)
{
    copyFailureCountdown = nth;
    copyFailureStatus = status;
}

}  // namespace automation_testing

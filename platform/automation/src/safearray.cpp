// One-dimensional safe arrays. The element type is kept beside the descriptor, as the platform
// keeps it, so that every operation knows how to copy and free an element.
#include <cstdlib>
#include <cstring>
#include <limits>

#include "automation.h"
#include "variant_types.h"

using automation_detail::Storage;
using automation_detail::traitsOf;
using automation_detail::TypeTraits;

namespace {

// Standard layout with the SAFEARRAY first, so that a SAFEARRAY* is a Descriptor*.
struct Descriptor {
    SAFEARRAY array;
    VARTYPE type;
};

Descriptor* descriptorOf(SAFEARRAY* array) { return reinterpret_cast<Descriptor*>(array); }

TypeTraits elementTraits(SAFEARRAY* array) { return traitsOf(descriptorOf(array)->type); }

USHORT featuresOf(VARTYPE type)
{
    switch (traitsOf(type).storage) {
    case Storage::String:
        return FADF_HAVEVARTYPE | FADF_BSTR;
    case Storage::Variant:
        return FADF_HAVEVARTYPE | FADF_VARIANT;
    case Storage::Interface:
        return FADF_HAVEVARTYPE | (type == VT_DISPATCH ? FADF_DISPATCH : FADF_UNKNOWN);
    case Storage::Value:
        break;
    }
    return FADF_HAVEVARTYPE;
}

SAFEARRAY* create(VARTYPE type, SAFEARRAYBOUND bound)
{
    const std::size_t size = traitsOf(type).size;
    if (size == 0 || bound.cElements > std::numeric_limits<std::size_t>::max() / size)
        return nullptr;
    auto* descriptor = static_cast<Descriptor*>(std::calloc(1, sizeof(Descriptor)));
    if (descriptor == nullptr)
        return nullptr;
    // Zeroed elements are null strings, null references and VT_EMPTY variants.
    void* data = bound.cElements == 0 ? nullptr : std::calloc(bound.cElements, size);
    if (bound.cElements != 0 && data == nullptr) {
        std::free(descriptor);
        return nullptr;
    }
    descriptor->type = type;
    SAFEARRAY& array = descriptor->array;
    array.cDims = 1;
    array.fFeatures = featuresOf(type);
    array.cbElements = static_cast<ULONG>(size);
    array.pvData = data;
    array.rgsabound[0] = bound;
    return &array;
}

void* slotAt(SAFEARRAY* array, ULONG position)
{
    return static_cast<char*>(array->pvData) + std::size_t{position} * array->cbElements;
}

// The position of the element at `indices`, or DISP_E_BADINDEX.
HRESULT locate(SAFEARRAY* array, const LONG* indices, ULONG& position)
{
    if (array == nullptr || indices == nullptr)
        return E_INVALIDARG;
    const SAFEARRAYBOUND& bound = array->rgsabound[0];
    if (*indices < bound.lLbound || *indices - bound.lLbound >= static_cast<LONG>(bound.cElements))
        return DISP_E_BADINDEX;
    position = static_cast<ULONG>(*indices - bound.lLbound);
    return S_OK;
}

HRESULT boundOf(SAFEARRAY* array, UINT dimension, const SAFEARRAYBOUND*& bound)
{
    if (array == nullptr)
        return E_INVALIDARG;
    if (dimension < 1 || dimension > array->cDims)
        return DISP_E_BADINDEX;
    bound = &array->rgsabound[dimension - 1];
    return S_OK;
}

// Frees what an element owns and empties it.
void clearElement(Storage storage, void* slot)
{
    switch (storage) {
    case Storage::String:
        SysFreeString(*static_cast<BSTR*>(slot));
        *static_cast<BSTR*>(slot) = nullptr;
        break;
    case Storage::Interface:
        if (IUnknown* unknown = *static_cast<IUnknown**>(slot))
            unknown->Release();
        *static_cast<IUnknown**>(slot) = nullptr;
        break;
    case Storage::Variant:
        VariantClear(static_cast<VARIANT*>(slot));
        break;
    case Storage::Value:
        break;
    }
}

// Copies an element into `target`, which holds nothing that needs freeing. `source` is the
// element's value, or for strings and interfaces the string or interface itself.
HRESULT copyElement(const TypeTraits& traits, const void* source, void* target)
{
    switch (traits.storage) {
    case Storage::String: {
        BSTR text = static_cast<BSTR>(const_cast<void*>(source));
        BSTR copy = text == nullptr ? nullptr
                                      : SysAllocStringByteLen(reinterpret_cast<LPCSTR>(text), SysStringByteLen(text));
        if (text != nullptr && copy == nullptr)
            return E_OUTOFMEMORY;
        *static_cast<BSTR*>(target) = copy;
        return S_OK;
    }
    case Storage::Interface: {
        IUnknown* unknown = static_cast<IUnknown*>(const_cast<void*>(source));
        if (unknown != nullptr)
            unknown->AddRef();
        *static_cast<IUnknown**>(target) = unknown;
        return S_OK;
    }
    case Storage::Variant:
        VariantInit(static_cast<VARIANT*>(target));
        return VariantCopy(static_cast<VARIANT*>(target), static_cast<VARIANT*>(const_cast<void*>(source)));
    case Storage::Value:
        std::memcpy(target, source, traits.size);
        return S_OK;
    }
    return E_UNEXPECTED;
}

// An element as copyElement takes it: the string or interface itself, else its address.
const void* elementValue(Storage storage, void* slot)
{
    if (storage == Storage::String || storage == Storage::Interface)
        return *static_cast<void**>(slot);
    return slot;
}

}  // namespace

SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds)
{
    if (dimensions != 1 || bounds == nullptr)
        return nullptr;
    return create(type, bounds[0]);
}

SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG count)
{
    return create(type, SAFEARRAYBOUND{count, lowerBound});
}

HRESULT SafeArrayDestroy(SAFEARRAY* array)
{
    if (array == nullptr)
        return S_OK;
    if (array->cLocks != 0)
        return DISP_E_ARRAYISLOCKED;
    const Storage storage = elementTraits(array).storage;
    for (ULONG position = 0; position < array->rgsabound[0].cElements; ++position)
        clearElement(storage, slotAt(array, position));
    std::free(array->pvData);
    std::free(descriptorOf(array));
    return S_OK;
}

HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy)
{
    if (copy == nullptr)
        return E_INVALIDARG;
    *copy = nullptr;
    if (array == nullptr)
        return S_OK;
    SAFEARRAY* result = create(descriptorOf(array)->type, array->rgsabound[0]);
    if (result == nullptr)
        return E_OUTOFMEMORY;
    const TypeTraits traits = elementTraits(array);
    for (ULONG position = 0; position < array->rgsabound[0].cElements; ++position) {
        const HRESULT copied =
            copyElement(traits, elementValue(traits.storage, slotAt(array, position)), slotAt(result, position));
        if (FAILED(copied)) {
            SafeArrayDestroy(result);
            return copied;
        }
    }
    *copy = result;
    return S_OK;
}

HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value)
{
    ULONG position = 0;
    const HRESULT located = locate(array, indices, position);
    if (FAILED(located))
        return located;
    const TypeTraits traits = elementTraits(array);
    if (value == nullptr && (traits.storage == Storage::Value || traits.storage == Storage::Variant))
        return E_INVALIDARG;
    // Copy first, so that a failed copy leaves the old element in place.
    alignas(VARIANT) unsigned char copy[sizeof(VARIANT)];
    const HRESULT copied = copyElement(traits, value, copy);
    if (FAILED(copied))
        return copied;
    void* slot = slotAt(array, position);
    clearElement(traits.storage, slot);
    std::memcpy(slot, copy, traits.size);
    return S_OK;
}

HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* value)
{
    ULONG position = 0;
    const HRESULT located = locate(array, indices, position);
    if (FAILED(located))
        return located;
    if (value == nullptr)
        return E_INVALIDARG;
    const TypeTraits traits = elementTraits(array);
    return copyElement(traits, elementValue(traits.storage, slotAt(array, position)), value);
}

UINT SafeArrayGetDim(SAFEARRAY* array) { return array == nullptr ? 0 : array->cDims; }

UINT SafeArrayGetElemsize(SAFEARRAY* array) { return array == nullptr ? 0 : array->cbElements; }

HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type)
{
    if (array == nullptr || type == nullptr)
        return E_INVALIDARG;
    *type = descriptorOf(array)->type;
    return S_OK;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* lowerBound)
{
    const SAFEARRAYBOUND* bound = nullptr;
    const HRESULT found = lowerBound == nullptr ? E_INVALIDARG : boundOf(array, dimension, bound);
    if (SUCCEEDED(found))
        *lowerBound = bound->lLbound;
    return found;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* upperBound)
{
    const SAFEARRAYBOUND* bound = nullptr;
    const HRESULT found = upperBound == nullptr ? E_INVALIDARG : boundOf(array, dimension, bound);
    if (SUCCEEDED(found))
        *upperBound = bound->lLbound + static_cast<LONG>(bound->cElements) - 1;
    return found;
}

HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data)
{
    if (array == nullptr || data == nullptr)
        return E_INVALIDARG;
    ++array->cLocks;
    *data = array->pvData;
    return S_OK;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY* array)
{
    if (array == nullptr)
        return E_INVALIDARG;
    if (array->cLocks == 0)
        return E_UNEXPECTED;
    --array->cLocks;
    return S_OK;
}

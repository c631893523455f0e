#include "objects/arguments_in.h"

#include "sim/journal.h"

namespace sim::detail {
namespace {

std::wstring typeName(const VARIANT& value) { return *text::fromUtf8(variantTypeName(V_VT(&value))); }

std::optional<long long> wholeNumber(const VARIANT& value)
{
    switch (V_VT(&value)) {
    case VT_I2:
        return V_I2(&value);
    case VT_I4:
        return V_I4(&value);
    case VT_INT:
        return V_INT(&value);
    default:
        return std::nullopt;
    }
}

// The elements of a one-dimensional safe array of `type`, copied out; null when it is not one.
template <class Element> std::optional<std::vector<Element>> elementsOf(const VARIANT& value, VARTYPE type)
{
    if (V_VT(&value) != (VT_ARRAY | type) || V_ARRAY(&value) == nullptr ||
        SafeArrayGetDim(V_ARRAY(&value)) != 1)
        return std::nullopt;
    SAFEARRAY* array = V_ARRAY(&value);
    LONG lower = 0;
    LONG upper = -1;
    if (FAILED(SafeArrayGetLBound(array, 1, &lower)) || FAILED(SafeArrayGetUBound(array, 1, &upper)))
        return std::nullopt;
    void* data = nullptr;
    if (FAILED(SafeArrayAccessData(array, &data)))
        return std::nullopt;
    std::vector<Element> elements(static_cast<const Element*>(data),
                                  static_cast<const Element*>(data) + (upper - lower + 1));
    SafeArrayUnaccessData(array);
    return elements;
}

}  // namespace

CollectionIndex readCollectionIndex(const VARIANT& index)
{
    CollectionIndex read;
    if (const auto number = wholeNumber(index)) {
        read.kind = CollectionIndex::Kind::position;
        read.position = *number;
    }
    else if (V_VT(&index) == VT_BSTR) {
        read.kind = CollectionIndex::Kind::name;
        read.name = text::fromBstr(V_BSTR(&index));
    }
    return read;
}

HRESULT refuseIndex(Call& call, const CollectionIndex& index, const VARIANT& given, const std::wstring& what)
{
    switch (index.kind) {
    case CollectionIndex::Kind::position:
        return call.fail(DISP_E_BADINDEX, L"no " + what + L" at index " + std::to_wstring(index.position));
    case CollectionIndex::Kind::name:
        return call.fail(DISP_E_BADINDEX, L"no " + what + L" named '" + index.name + L"'");
    case CollectionIndex::Kind::unusable:
        break;
    }
    return call.fail(DISP_E_TYPEMISMATCH, L"a " + what +
                                              L" index is a whole number (VT_I2, VT_I4, VT_INT) or a name "
                                              L"(VT_BSTR), not " +
                                              typeName(given));
}

bool findInsertion(Call& call, const VARIANT& given, size_t count, const std::wstring& what, size_t& position)
{
    const auto number = wholeNumber(given);
    if (!number) {
        call.fail(DISP_E_TYPEMISMATCH, L"the index to add a " + what +
                                           L" at is a whole number (VT_I2, VT_I4, "
                                           L"VT_INT), not " +
                                           typeName(given));
        return false;
    }
    if (*number < 0 || *number > static_cast<long long>(count)) {
        call.fail(E_INVALIDARG, L"cannot add a " + what + L" at index " + std::to_wstring(*number) +
                                    L": indexes 0 to " + std::to_wstring(count) + L" are possible");
        return false;
    }
    position = static_cast<size_t>(*number);
    return true;
}

bool readPoint(Call& call, const VARIANT& given, const std::wstring& which, double& x, double& y)
{
    const auto coordinates = elementsOf<double>(given, VT_R8);
    if (!coordinates) {
        call.fail(DISP_E_TYPEMISMATCH, L"the " + which +
                                           L" is a one-dimensional array of doubles (VT_ARRAY|VT_R8), "
                                           L"not " +
                                           typeName(given));
        return false;
    }
    if (coordinates->size() != 2) {
        call.fail(E_INVALIDARG,
                  L"the " + which + L" has 2 coordinates, not " + std::to_wstring(coordinates->size()));
        return false;
    }
    x = (*coordinates)[0];
    y = (*coordinates)[1];
    return true;
}

bool isMissing(const VARIANT& given)
{
    return V_VT(&given) == VT_EMPTY || (V_VT(&given) == VT_ERROR && V_ERROR(&given) == DISP_E_PARAMNOTFOUND);
}

bool readYesNo(Call& call, const VARIANT& given, const std::wstring& what, bool& value)
{
    if (V_VT(&given) == VT_BOOL) {
        value = V_BOOL(&given) != VARIANT_FALSE;
        return true;
    }
    if (const auto number = wholeNumber(given)) {
        value = *number != 0;
        return true;
    }
    call.fail(DISP_E_TYPEMISMATCH,
              L"the " + what + L" is a yes/no value (VT_BOOL, VT_I2, VT_I4, VT_INT), not " + typeName(given));
    return false;
}

bool readText(Call& call, const VARIANT& given, const std::wstring& what, std::wstring& value)
{
    if (V_VT(&given) != VT_BSTR) {
        call.fail(DISP_E_TYPEMISMATCH, L"the " + what + L" is a text (VT_BSTR), not " + typeName(given));
        return false;
    }
    value = text::fromBstr(V_BSTR(&given));
    return true;
}

bool readTexts(Call& call, const VARIANT& given, const std::wstring& what, std::vector<std::wstring>& values)
{
    const auto texts = elementsOf<BSTR>(given, VT_BSTR);
    if (!texts) {
        call.fail(DISP_E_TYPEMISMATCH, L"the " + what +
                                           L" is a one-dimensional array of texts (VT_ARRAY|VT_BSTR), "
                                           L"not " +
                                           typeName(given));
        return false;
    }
    values.clear();
    for (BSTR element : *texts)
        values.push_back(text::fromBstr(element));
    return true;
}

}  // namespace sim::detail
